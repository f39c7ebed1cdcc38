#include "generators/EmitterFor.h"

#include "generators/CEmitter.h"
#include "generators/ClassEmitter.h"
#include "generators/ClassFacts.h"
#include "generators/ScxmlEmitter.h"

namespace morvane {

std::unique_ptr<Emitter> EmitterFor(TargetLanguage language) {
  switch (language) {
    case TargetLanguage::C: return std::make_unique<CEmitter>();
    case TargetLanguage::Xml: return std::make_unique<ScxmlEmitter>();
    case TargetLanguage::Cpp: return std::make_unique<ClassEmitter>(CppFacts());
    case TargetLanguage::CSharp: return std::make_unique<ClassEmitter>(CSharpFacts());
    case TargetLanguage::Java: return std::make_unique<ClassEmitter>(JavaFacts());
  }
  return nullptr;
}

}  // namespace morvane
