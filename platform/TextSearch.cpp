#include "platform/TextSearch.h"

#include <utility>

#include "platform/Wording.h"

namespace morvane {

namespace {

class PlainMatcher : public TextMatcher {
 public:
  explicit PlainMatcher(std::string text) : text(std::move(text)) {}
  bool ForEach(std::string_view utf8, const Take& take) override {
    if (text.empty()) return true;
    std::size_t hit = utf8.find(text);
    while (hit != std::string_view::npos) {
      const std::size_t end = hit + text.size();
      take({{hit, end}, {}});
      hit = utf8.find(text, end);
    }
    return true;
  }

 private:
  std::string text;
};

class PlainTextSearch : public TextSearch {
 public:
  std::unique_ptr<TextMatcher> Compile(const TextPattern& pattern, std::size_t& place,
                                       std::string& reason) override {
    if (pattern.matchCase && !pattern.wholeWords && !pattern.isExpression) {
      return std::make_unique<PlainMatcher>(pattern.text);
    }
    place = 0;
    reason = Worded(kSearchTooPlain);
    return nullptr;
  }
};

}  // namespace

TextSearch& TextSearch::Default() {
  static PlainTextSearch service;
  return service;
}

}  // namespace morvane
