#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/Geometry.h"
#include "machine/Machine.h"
#include "machine/MachineText.h"
#include "model/ModelProperties.h"

namespace morvane {

/// Any object of a chart, as its record has it.
struct DrawnObject {
  enum class Kind { State, InitialMark, FinalMark, Transition, Message, Annotation };

  Kind kind = Kind::Annotation;
  std::string keyword;  ///< of its record
  std::int32_t id = 0;
  int line = 0;       ///< of the model file where its record begins
  std::string title;  ///< of a state, in UTF-8

  /// How problems name it, in the language of the user: GenericState 105 "Listen".
  std::string Name() const;
};

/// A state, an initial or a final mark.
struct DrawnState : DrawnObject {
  RECT rect;
  bool history = false;
  MachineText entry;
  MachineText exit;
};

struct DrawnTransition : DrawnObject {
  std::int32_t sourceId = 0;
  std::int32_t targetId = 0;
};

struct DrawnMessage : DrawnObject {
  std::int32_t transitionId = 0;
  MachineText event;
  MachineText guard;
  MachineText effect;
};

/// What a model text draws, each kind in the order of the text. Nothing is resolved yet.
struct DrawnChart {
  std::vector<DrawnState> states;
  std::vector<DrawnTransition> transitions;
  std::vector<DrawnMessage> messages;
  std::vector<DrawnObject> annotations;
  ModelProperties properties;
  Machine::PropertyLines propertyLines;
};

}  // namespace morvane
