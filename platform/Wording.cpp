#include "platform/Wording.h"

namespace morvane {

namespace {
Translator translate = nullptr;
/// The length of "(&F)"
constexpr std::size_t kAddedMnemonic = 4;
}  // namespace

void SetTranslator(Translator translator) { translate = translator; }

std::string Worded(std::string_view english) {
  return translate != nullptr ? translate(english) : std::string(english);
}

std::string PlainLabel(std::string_view label) {
  std::string plain;
  for (std::size_t i = 0; i < label.size(); ++i) {
    // Where no letter of the label is one of the keyboard's, the mnemonic stands behind it.
    if (label.substr(i).starts_with("(&") && i + kAddedMnemonic <= label.size() &&
        label[i + kAddedMnemonic - 1] == ')') {
      i += kAddedMnemonic - 1;
      continue;
    }
    if (label[i] == '&' && i + 1 < label.size()) ++i;
    plain += label[i];
  }
  return plain;
}

std::string SpokenLabel(std::string_view label) {
  std::string name = PlainLabel(label);
  name.erase(name.find_last_not_of(": ") + 1);
  return name;
}

}  // namespace morvane
