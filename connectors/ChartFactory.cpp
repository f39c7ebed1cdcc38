#include "connectors/ChartFactory.h"

#include <array>

#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "model/Factory.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"

namespace morvane {

namespace {

template <class Made>
std::unique_ptr<Shape> Make() {
  return std::make_unique<Made>();
}

constexpr std::array kMakers = {
    Factory::Maker{"GenericState", Make<GenericState>},
    Factory::Maker{"InitialState", Make<InitialState>},
    Factory::Maker{"FinalState", Make<FinalState>},
    Factory::Maker{"Transition", Make<Transition>},
    Factory::Maker{"Mesg", Make<Mesg>},
    Factory::Maker{"Note", Make<Note>},
    Factory::Maker{"Line", Make<Line>},
};

}  // namespace

const Factory& ChartFactory() {
  static const Factory factory(kMakers);
  return factory;
}

}  // namespace morvane
