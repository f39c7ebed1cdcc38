#pragma once

#include <optional>
#include <string>
#include <vector>

#include "exchange/ImportRemark.h"

namespace morvane {

/// A transition as a document has it; texts are in UTF-8, with LF between lines.
struct ScxmlTransition {
  int line = 0;
  int source = -1;                  ///< the index of a state
  std::vector<std::string> events;  ///< descriptors
  std::string cond;
  std::vector<std::string> targets;  ///< ids
  std::string effect;
  bool isInternal = false;
  int traceId = 0;  ///< what a trace that the document writes calls it by; 0 if it writes none
};

struct ScxmlState {
  enum class Kind { State, Parallel, Final, History };

  static constexpr int kRoot = -1;

  Kind kind = Kind::State;
  int line = 0;
  int parent = kRoot;
  std::vector<int> children;  ///< states of all kinds but histories
  std::string id;
  std::string title;  ///< empty where the document has none beside the id
  std::string entry;
  std::string exit;
  bool isDeep = false;                       ///< of a history
  std::vector<std::string> initial;          ///< the attribute
  std::optional<ScxmlTransition> beginning;  ///< of an `<initial>`, or of a history
};

/// What a document says, not yet what it means.
struct ScxmlDocument {
  std::string name;
  std::vector<std::string> initial;  ///< the attribute of the root
  std::vector<ScxmlState> states;    ///< outer before inner
  std::vector<int> outermost;        ///< states of all kinds
  std::vector<ScxmlTransition> transitions;
  std::vector<std::string> sent;  ///< events that the document itself raises and sends
  ImportRemarks remarks;
};

}  // namespace morvane
