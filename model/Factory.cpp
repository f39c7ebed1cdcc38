#include "model/Factory.h"

#include <array>

#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"

namespace {

struct Maker {
  std::string_view keyword;
  std::unique_ptr<Shape> (*make)();
};

template <class Made>
std::unique_ptr<Shape> Make() {
  return std::make_unique<Made>();
}

constexpr std::array kMakers = {
    Maker{"GenericState", Make<GenericState>},
    Maker{"InitialState", Make<InitialState>},
    Maker{"FinalState", Make<FinalState>},
    Maker{"Transition", Make<Transition>},
    Maker{"Mesg", Make<Mesg>},
    Maker{"Note", Make<Note>},
    Maker{"Line", Make<Line>},
};

}  // namespace

std::unique_ptr<Shape> Factory::Create(std::string_view keyword) const {
  for (const Maker& maker : kMakers) {
    if (maker.keyword == keyword) return maker.make();
  }
  return nullptr;
}
