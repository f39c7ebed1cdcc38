#pragma once

#include <string>

namespace morvane {

/// A piece of model text that the user can search, replace and edit.
class TextHandler {
 public:
  TextHandler() = default;
  virtual ~TextHandler() = default;
  TextHandler(const TextHandler&) = delete;
  TextHandler& operator=(const TextHandler&) = delete;

  /// One of the texts holds `text`, byte by byte.
  virtual bool Contains(const std::string& /*text*/) const { return false; }
  /// Replaces every occurrence in every text; true if there was one.
  virtual bool ReplaceAll(const std::string& /*findText*/, const std::string& /*replaceText*/) {
    return false;
  }
  /// Runs the editor dialog; true if the user took the texts over.
  virtual bool EditText(const std::string& title) = 0;
};

/// Replaces every occurrence in one text from left to right, without looking at what was inserted;
/// true if there was one. An empty search text finds nothing.
bool ReplaceInText(std::string& text, const std::string& findText, const std::string& replaceText);

}  // namespace morvane
