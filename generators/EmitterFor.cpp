#include "generators/EmitterFor.h"

#include "generators/CEmitter.h"
#include "generators/ScxmlEmitter.h"

namespace morvane {

std::unique_ptr<Emitter> EmitterFor(TargetLanguage language) {
  switch (language) {
    case TargetLanguage::C: return std::make_unique<CEmitter>();
    case TargetLanguage::Xml: return std::make_unique<ScxmlEmitter>();
    default: return nullptr;
  }
}

}  // namespace morvane
