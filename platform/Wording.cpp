#include "platform/Wording.h"

namespace morvane {

namespace {
Translator translate = nullptr;
}

void SetTranslator(Translator translator) { translate = translator; }

std::string Worded(std::string_view english) {
  return translate != nullptr ? translate(english) : std::string(english);
}

}  // namespace morvane
