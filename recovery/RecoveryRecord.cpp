#include "recovery/RecoveryRecord.h"

#include <charconv>

namespace morvane {

namespace {

constexpr std::string_view kMark = "Morvane recovery 1\n";
constexpr std::string_view kPath = "path ";
constexpr std::string_view kTitle = "title ";
constexpr std::string_view kTime = "time ";
constexpr std::string_view kStamp = "stamp ";
constexpr std::string_view kText = "text\n";

/// Takes a line that begins with a word off the text and gives what follows the word.
bool TakeLine(std::string_view& rest, std::string_view word, std::string& value) {
  if (!rest.starts_with(word)) return false;
  const std::size_t end = rest.find('\n');
  if (end == std::string_view::npos) return false;
  value = rest.substr(word.size(), end - word.size());
  rest.remove_prefix(end + 1);
  return true;
}

}  // namespace

std::string RecoveryRecord::Escape(std::string_view text) {
  std::string line;
  for (const char c : text) {
    switch (c) {
      case '\n': line += "\\n"; break;
      case '\\': line += "\\\\"; break;
      default: line += c; break;
    }
  }
  return line;
}

std::string RecoveryRecord::Unescape(std::string_view line) {
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != '\\' || i + 1 == line.size()) {
      text += line[i];
    } else {
      const char letter = line[++i];
      text += letter == 'n' ? '\n' : letter;
    }
  }
  return text;
}

std::string RecoveryRecord::Head() const {
  std::string head(kMark);
  const auto add = [&head](std::string_view word, const std::string& value) {
    head.append(word).append(value).push_back('\n');
  };
  add(kPath, Escape(path));
  add(kTitle, Escape(title));
  add(kTime, std::to_string(time));
  add(kStamp, stamp.ToLine());
  return head.append(kText);
}

RecoveryRecord RecoveryRecord::Parse(std::string bytes) {
  RecoveryRecord record;
  std::string_view rest = bytes;
  std::string path;
  std::string title;
  std::string time;
  std::string stamp;
  const bool isRecord = rest.starts_with(kMark) && (rest.remove_prefix(kMark.size()), true) &&
                        TakeLine(rest, kPath, path) && TakeLine(rest, kTitle, title) &&
                        TakeLine(rest, kTime, time) && TakeLine(rest, kStamp, stamp) &&
                        rest.starts_with(kText);
  if (!isRecord) {
    record.text = std::move(bytes);
    return record;
  }
  record.path = Unescape(path);
  record.title = Unescape(title);
  std::from_chars(time.data(), time.data() + time.size(), record.time);
  record.stamp = FileStamp::FromLine(stamp);
  record.text = rest.substr(kText.size());
  return record;
}

}  // namespace morvane
