#pragma once

#include "platform/Wording.h"
#include "resources/TextSource.h"
#include "resources/Texts.h"

namespace morvane {

/// Has a language in use, as long as it lives, in which each text is the English one between two
/// marks. What is seen without them has not been asked for as a text of the program.
class PseudoLanguage : public TextSource {
 public:
  PseudoLanguage() : former(Use(this)) { SetTranslator(Translate); }
  ~PseudoLanguage() override { Use(former); }
  PseudoLanguage(const PseudoLanguage&) = delete;
  PseudoLanguage& operator=(const PseudoLanguage&) = delete;

  std::optional<std::string> Text(unsigned id) const override {
    for (const EnglishText& text : EnglishTexts()) {
      if (text.id == id) return Marked(text.text);
    }
    return std::nullopt;
  }
  std::optional<std::string> Translation(std::string_view english) const override {
    return english.empty() ? std::string() : Marked(english);
  }
  std::string Locale() const override { return "xx"; }

  /// What of a text, which may have marks within marks, stands outside of them.
  static std::string Unmarked(std::string text) {
    const std::string_view begin = kBegin;
    const std::string_view end = kEnd;
    for (std::size_t close = text.find(end); close != std::string::npos; close = text.find(end)) {
      const std::size_t open = text.rfind(begin, close);
      if (open == std::string::npos) break;
      text.erase(open, close + end.size() - open);
    }
    return text;
  }

 private:
  static constexpr const char* kBegin = "\u2039";
  static constexpr const char* kEnd = "\u203A";

  static std::string Marked(std::string_view text) { return kBegin + std::string(text) + kEnd; }

  TextSource* former;
};

}  // namespace morvane
