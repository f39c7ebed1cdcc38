#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

namespace morvane {

/// The executable content of a document as a text: scripts as they are, the other elements as the
/// statements that they stand for, and what has none as a comment with the element in it.
class ScxmlActions {
 public:
  /// What stands in `<onentry>`, `<onexit>`, `<transition>` and the like. Of several the texts
  /// stand below each other.
  void Add(const pugi::xml_node& holder);

  /// The text, with LF between lines.
  const std::string& Text() const { return text; }
  /// The number of a transition that logs itself in a trace; 0 if it doesn't.
  int TraceId() const { return traceId; }
  const std::vector<std::string>& Sent() const { return sent; }

 private:
  void AddElement(const pugi::xml_node& element, int depth);
  void AddIf(const pugi::xml_node& element, int depth);
  bool TakeTrace(const pugi::xml_node& element);
  void Line(const std::string& line, int depth);

  std::string text;
  int traceId = 0;
  std::vector<std::string> sent;
};

/// A text without the indentation that all of its lines share, and without blank lines around it.
std::string Unindented(const std::string& text);
/// The name of an element or an attribute without the prefix of its namespace.
std::string LocalName(const char* name);

}  // namespace morvane
