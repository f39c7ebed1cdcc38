#pragma once

#include <string>
#include <vector>

namespace morvane {

/// A piece of model text that the user can search, replace and edit.
class TextHandler {
 public:
  TextHandler() = default;
  virtual ~TextHandler() = default;
  TextHandler(const TextHandler&) = delete;
  TextHandler& operator=(const TextHandler&) = delete;

  /// The texts, in the order in which they are searched. Who changes one tells its object.
  virtual std::vector<std::string*> Texts() = 0;
  /// Runs the editor dialog; true if the user took the texts over.
  virtual bool EditText(const std::string& title) = 0;
};

}  // namespace morvane
