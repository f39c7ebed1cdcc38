#pragma once

#include <string>

namespace morvane {

/// The bytes behind a text box. As long as the user leaves the box alone they go back as they came;
/// only what was edited is taken from the screen.
class TextState {
 public:
  /// The control holds another text than the box knows of: the box has to show it.
  bool IsStale(const std::string& text) const { return !loaded || text != known; }
  void Load(const std::string& text) {
    original = text;
    known = text;
    loaded = true;
  }
  /// What goes back: `read` gives what the screen shows, and is called only if the user edited it.
  template <class Read>
  void Take(bool edited, const Read& read, std::string& text) {
    text = edited ? read() : original;
    known = text;
  }
  /// What was loaded.
  const std::string& Original() const { return original; }

 private:
  std::string original;
  std::string known;  ///< what the control held last
  bool loaded = false;
};

}  // namespace morvane
