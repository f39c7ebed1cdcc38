#pragma once

#include <string>

namespace morvane {

class ChartText;
struct FileResult;

/// A model text on disk, where lines end in CR LF.
class ModelFile {
 public:
  /// Reads a file into a chart. The text is empty on success and else holds the reason for the
  /// user.
  static std::string Load(const std::string& path, ChartText& chart);
  /// Reads the text of a file, with LF between the lines. Empty on success, else the reason.
  static std::string ReadText(const std::string& path, std::string& text);
  /// Reads a model text into a chart, as `Load` does.
  static std::string Parse(const std::string& text, ChartText& chart);
  /// Writes a model text with the line ends of a file. Empty on success, else the reason.
  static std::string Save(const std::string& path, const std::string& text);

  /// The reason for the user why a file could not be written; empty on success.
  static std::string ReasonOf(const FileResult& written);

  /// CR LF becomes LF; any other CR stays.
  static std::string FromDisk(std::string bytes);
  /// The bytes of a file without the mark that says that they are UTF-8.
  static std::string WithoutMark(std::string bytes);
  static std::string ToDisk(const std::string& text);
};

}  // namespace morvane
