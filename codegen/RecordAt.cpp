#include "codegen/RecordAt.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "model/RecordLine.h"

namespace morvane {

namespace {

/// Follows the lines of a model text and knows whose record each belongs to.
class RecordScanner {
 public:
  void Take(const std::string& line) {
    if (inText) {
      TakeOfText(line);
    } else if (line == "TEXTBEGIN") {
      inText = true;
      length = std::strtoll(before.c_str(), nullptr, 10);
      size = -kLineEnd;
    } else {
      TakeOfRecord(line);
    }
    before = line;
  }
  std::int32_t Id() const { return id; }

 private:
  static constexpr long long kLineEnd = 2;  ///< CR LF, as texts hold it

  /// What reads like a record or the end of the text may be a line of the text: its length tells.
  void TakeOfText(const std::string& line) {
    if (line == "TEXTEND" && size >= length) {
      inText = false;
    } else {
      size += static_cast<long long>(line.size()) + kLineEnd;
    }
  }
  void TakeOfRecord(const std::string& line) {
    const RecordLine words = RecordLine::Parse(line);
    if (words.first == "END") id = 0;
    if (words.first != "BEGIN") return;
    const std::size_t kind = line.find(words.second, line.find(words.first) + words.first.size());
    id = static_cast<std::int32_t>(
        std::strtol(line.c_str() + kind + words.second.size(), nullptr, 10));
  }

  std::int32_t id = 0;
  bool inText = false;
  long long length = 0;
  long long size = 0;
  std::string before;
};

}  // namespace

std::int32_t RecordAt(std::string_view modelText, int line) {
  RecordScanner scanner;
  for (int number = 1; !modelText.empty(); ++number) {
    const std::size_t end = std::min(modelText.find('\n'), modelText.size());
    scanner.Take(std::string(modelText.substr(0, end)));
    if (number == line) return scanner.Id();
    modelText.remove_prefix(std::min(end + 1, modelText.size()));
  }
  return 0;
}

}  // namespace morvane
