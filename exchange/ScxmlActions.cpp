#include "exchange/ScxmlActions.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <string_view>

#include "exchange/XmlSource.h"

namespace morvane {

namespace {

/// What is nested deeper stays XML.
constexpr int kDeepest = 50;
constexpr int kIndent = 2;

std::string Value(const pugi::xml_node& element, const char* name) {
  return element.attribute(name).value();
}

/// All characters of an element that has no others inside.
std::string TextOf(const pugi::xml_node& element) {
  std::string text;
  for (const pugi::xml_node& child : element.children()) {
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
      text += child.value();
  }
  return text;
}

bool HasNothingBut(const pugi::xml_node& element, std::initializer_list<std::string_view> names) {
  for (const pugi::xml_attribute& attribute : element.attributes()) {
    if (std::ranges::find(names, attribute.name()) == names.end()) return false;
  }
  return element.first_child().empty();
}

/// The word of the trace that each of its lines is labelled with.
bool IsTraceLabel(const std::string& label) {
  return label == "enter" || label == "exit" || label == "take";
}

}  // namespace

std::string LocalName(const char* name) {
  const std::string_view whole = name;
  const std::size_t colon = whole.find(':');
  return std::string(colon == std::string_view::npos ? whole : whole.substr(colon + 1));
}

std::string Unindented(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  std::size_t least = std::string::npos;
  constexpr const char* blanks = " \t\r";
  for (std::string line; std::getline(in, line);) {
    line.erase(line.find_last_not_of(blanks) + 1);
    if (!line.empty()) least = std::min(least, line.find_first_not_of(blanks));
    if (!line.empty() || !lines.empty()) lines.push_back(line);
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  std::string result;
  for (const std::string& line : lines) {
    if (!result.empty()) result += '\n';
    if (!line.empty()) result += line.substr(least);
  }
  return result;
}

void ScxmlActions::Add(const pugi::xml_node& holder) {
  bool isFirst = true;
  for (const pugi::xml_node& child : holder.children()) {
    if (child.type() != pugi::node_element) continue;
    if (!isFirst || !TakeTrace(child)) AddElement(child, 0);
    isFirst = false;
  }
}

/// The first thing that each step of a document that was made with a trace does is to log itself.
bool ScxmlActions::TakeTrace(const pugi::xml_node& element) {
  if (LocalName(element.name()) != "log" || !IsTraceLabel(Value(element, "label"))) return false;
  const std::string expr = Value(element, "expr");
  if (expr.size() < 3 || expr.front() != '\'' || expr.back() != '\'') return false;
  if (Value(element, "label") == "take") {
    std::from_chars(expr.data() + 1, expr.data() + expr.size() - 1, traceId);
  }
  return true;
}

void ScxmlActions::Line(const std::string& line, int depth) {
  std::istringstream in(line);
  for (std::string part; std::getline(in, part);) {
    if (!text.empty()) text += '\n';
    if (!part.empty()) text.append(static_cast<std::size_t>(depth) * kIndent, ' ');
    text += part;
  }
}

void ScxmlActions::AddElement(const pugi::xml_node& element, int depth) {
  const std::string name = LocalName(element.name());
  const std::string event = Value(element, "event");
  if ((name == "raise" || name == "send") && !event.empty()) sent.push_back(event);
  if (name == "script" && Value(element, "src").empty()) {
    Line(Unindented(TextOf(element)), depth);
  } else if (name == "assign" && HasNothingBut(element, {"location", "expr"})) {
    Line(Value(element, "location") + " = " + Value(element, "expr") + ';', depth);
  } else if ((name == "raise" || name == "send") && HasNothingBut(element, {"event"})) {
    Line(name + "(\"" + event + "\");", depth);
  } else if (name == "log" && HasNothingBut(element, {"label", "expr"})) {
    const std::string label = Value(element, "label");
    Line("log(" + (label.empty() ? "" : '"' + label + "\", ") + Value(element, "expr") + ");",
         depth);
  } else if (name == "if" && depth < kDeepest) {
    AddIf(element, depth);
  } else {
    Line("/* " + XmlSource::Markup(element) + " */", depth);
  }
}

void ScxmlActions::AddIf(const pugi::xml_node& element, int depth) {
  Line("if (" + Value(element, "cond") + ") {", depth);
  for (const pugi::xml_node& child : element.children()) {
    if (child.type() != pugi::node_element) continue;
    const std::string name = LocalName(child.name());
    if (name == "elseif") {
      Line("} else if (" + Value(child, "cond") + ") {", depth);
    } else if (name == "else") {
      Line("} else {", depth);
    } else {
      AddElement(child, depth + 1);
    }
  }
  Line("}", depth);
}

}  // namespace morvane
