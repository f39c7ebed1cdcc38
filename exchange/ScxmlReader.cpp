#include "exchange/ScxmlReader.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "resources/Texts.h"

namespace morvane {

namespace {

using Kind = ScxmlState::Kind;

constexpr std::string_view kNamespace = "http://www.w3.org/2005/07/scxml";

std::string PrefixOf(std::string_view name) {
  const std::size_t colon = name.find(':');
  return std::string(colon == std::string_view::npos ? "" : name.substr(0, colon));
}

std::vector<std::string> Words(const char* text) {
  std::istringstream in(text);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

/// One line: a condition is one.
std::string OnOneLine(std::string text) {
  for (char& c : text) {
    if (c == '\n' || c == '\r' || c == '\t') c = ' ';
  }
  return Unindented(text);
}

/// The title that a document gives a state beside its id.
std::string TitleOf(const pugi::xml_node& element) {
  for (const pugi::xml_attribute& attribute : element.attributes()) {
    const std::string_view name = attribute.name();
    if (name != "title" && LocalName(attribute.name()) == "title") {
      return OnOneLine(attribute.value());
    }
  }
  return {};
}

}  // namespace

ScxmlDocument ScxmlReader::Read(std::string_view bytes) { return ScxmlReader(bytes).Run(); }

ScxmlDocument ScxmlReader::Run() {
  const pugi::xml_node root = source.Root();
  if (LocalName(root.name()) != "scxml") {
    throw Said(
        "line %1: %2",
        {std::to_string(source.LineOf(root)),
         Said("This is no SCXML: the element <%1> stands where <scxml> should", {root.name()})});
  }
  if (source.OuterTypeLine() != 0) {
    document.remarks.push_back(
        {source.OuterTypeLine(), Said("The document type that stands elsewhere is not read"), {}});
  }
  TakeNamespaces();
  document.name = OnOneLine(root.attribute("name").value());
  document.initial = Words(root.attribute("initial").value());
  open.push_back({root, ScxmlState::kRoot});
  while (!open.empty()) {
    const Open next = open.back();
    open.pop_back();
    TakeChildren(next);
  }
  if (foreign > 0) {
    document.remarks.push_back(
        {firstForeignLine,
         Said("Elements of other namespaces are passed over: %1", {std::to_string(foreign)}),
         {}});
  }
  std::ranges::stable_sort(document.remarks, {}, &ImportRemark::line);
  return std::move(document);
}

/// A document may do without a namespace.
void ScxmlReader::TakeNamespaces() {
  const pugi::xml_node root = source.Root();
  prefixes.insert(PrefixOf(root.name()));
  for (const pugi::xml_attribute& attribute : root.attributes()) {
    const std::string_view name = attribute.name();
    if (attribute.value() != kNamespace) continue;
    if (name == "xmlns") prefixes.insert("");
    if (name.starts_with("xmlns:")) prefixes.insert(LocalName(attribute.name()));
  }
}

bool ScxmlReader::IsOurs(const pugi::xml_node& element) const {
  const std::string prefix = PrefixOf(element.name());
  const pugi::xml_attribute own =
      element.attribute((prefix.empty() ? "xmlns" : "xmlns:" + prefix).c_str());
  return own.empty() ? prefixes.contains(prefix) : own.value() == kNamespace;
}

void ScxmlReader::TakeChildren(const Open& next) {
  const std::size_t before = open.size();
  for (const pugi::xml_node& element : next.element.children()) {
    if (element.type() != pugi::node_element) continue;
    if (IsOurs(element)) {
      TakeElement(element, next.state);
    } else if (foreign++ == 0) {
      firstForeignLine = source.LineOf(element);
    }
  }
  // The first one that was found is read first, so that states come in the order of the document.
  std::reverse(open.begin() + static_cast<std::ptrdiff_t>(before), open.end());
}

void ScxmlReader::TakeElement(const pugi::xml_node& element, int state) {
  const std::string name = LocalName(element.name());
  const bool isRoot = state == ScxmlState::kRoot;
  if (name == "state") {
    AddState(element, state, Kind::State);
  } else if (name == "parallel") {
    Remark(element,
           Said("Regions that run side by side: the first one begins, the others stand beside it"),
           false);
    AddState(element, state, Kind::Parallel);
  } else if (name == "final") {
    AddState(element, state, Kind::Final);
  } else if (name == "history" && !isRoot) {
    AddState(element, state, Kind::History);
  } else if (name == "transition" && !isRoot) {
    document.transitions.push_back(TransitionOf(element, state));
  } else if (name == "initial" && !isRoot) {
    TakeBeginning(element, state);
  } else if (name == "onentry" && !isRoot) {
    TakeText(element, state, &ScxmlState::entry);
  } else if (name == "onexit" && !isRoot) {
    TakeText(element, state, &ScxmlState::exit);
  } else {
    Remark(element, Said("<%1> has no counterpart in a chart", {name}));
  }
}

void ScxmlReader::AddState(const pugi::xml_node& element, int parent, Kind kind) {
  const int index = static_cast<int>(document.states.size());
  ScxmlState state;
  state.kind = kind;
  state.line = source.LineOf(element);
  state.parent = parent;
  state.id = OnOneLine(element.attribute("id").value());
  state.title = TitleOf(element);
  state.initial = Words(element.attribute("initial").value());
  document.states.push_back(std::move(state));
  if (kind == Kind::History) {
    document.states.back().isDeep = std::string_view(element.attribute("type").value()) == "deep";
    return TakeBeginning(element, index);
  }
  (parent == ScxmlState::kRoot ? document.outermost : document.states[parent].children)
      .push_back(index);
  open.push_back({element, index});
}

ScxmlTransition ScxmlReader::TransitionOf(const pugi::xml_node& element, int from) {
  ScxmlActions actions;
  actions.Add(element);
  NoteSent(actions);
  ScxmlTransition transition;
  transition.line = source.LineOf(element);
  transition.source = from;
  transition.events = Words(element.attribute("event").value());
  transition.cond = OnOneLine(element.attribute("cond").value());
  transition.targets = Words(element.attribute("target").value());
  transition.effect = actions.Text();
  transition.isInternal = std::string_view(element.attribute("type").value()) == "internal";
  transition.traceId = actions.TraceId();
  return transition;
}

/// The first transition of an `<initial>` or a history; there should be no other.
void ScxmlReader::TakeBeginning(const pugi::xml_node& element, int state) {
  for (const pugi::xml_node& child : element.children()) {
    if (child.type() != pugi::node_element) continue;
    if (LocalName(child.name()) == "transition" && !document.states[state].beginning) {
      document.states[state].beginning = TransitionOf(child, state);
    } else {
      Remark(child, Said("A beginning has one transition and nothing else"));
    }
  }
}

void ScxmlReader::TakeText(const pugi::xml_node& element, int state,
                           std::string ScxmlState::*text) {
  ScxmlActions actions;
  actions.Add(element);
  NoteSent(actions);
  std::string& whole = document.states[state].*text;
  if (!whole.empty() && !actions.Text().empty()) whole += '\n';
  whole += actions.Text();
  const bool isLost = document.states[state].kind == Kind::Final && !actions.Text().empty();
  if (isLost) Remark(element, Said("A final state of a chart has no texts"));
}

void ScxmlReader::NoteSent(const ScxmlActions& actions) {
  document.sent.insert(document.sent.end(), actions.Sent().begin(), actions.Sent().end());
}

void ScxmlReader::Remark(const pugi::xml_node& element, const std::string& text, bool keep) {
  document.remarks.push_back(
      {source.LineOf(element), text, keep ? XmlSource::Markup(element) : std::string()});
}

}  // namespace morvane
