#include "generators/ScxmlEmitter.h"

#include <algorithm>
#include <set>

#include "drawing/TextCodec.h"
#include "drawing/XmlText.h"
#include "generators/CodeWriter.h"
#include "generators/CommentText.h"
#include "machine/Identifier.h"
#include "machine/Machine.h"
#include "platform/Files.h"

namespace morvane {

namespace {

using Kind = MachineState::Kind;

/// Of what the standard has no word for.
constexpr const char* kOwnNamespace = "https://morvane.halvern.example/scxml";

std::size_t Index(int of) { return static_cast<std::size_t>(of); }

std::string Attribute(const std::string& name, const std::string& value) {
  return ' ' + name + "=\"" + XmlEscape(ToUtf8(value)) + '"';
}

/// The title says more than the identifier that was made of it. One that others have, too, could
/// not be told apart when it is read again.
bool HasTitle(const MachineState& state) {
  return state.kind != Kind::Final && state.title != state.name &&
         Identifier::Clean(state.title, 'S') == state.name;
}

/// Writes one machine.
class ScxmlWriter {
 public:
  ScxmlWriter(const Machine& machine, const EmitOptions& options)
      : machine(machine), options(options) {
    for (const MachineState& state : machine.states) ids.insert(state.name);
    for (const MachineEvent& event : machine.events) eventNames.push_back(SafeEvent(event));
  }

  Emission Write() {
    out.Line("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    WriteAbout();
    WriteRoot();
    emission.files.push_back({options.stem + ".scxml", out.Text()});
    return std::move(emission);
  }

 private:
  /// The platform's own events begin with these words and a dot, and would be taken for the
  /// chart's.
  std::string SafeEvent(const MachineEvent& event) {
    if (event.name != "done" && event.name != "error") return event.name;
    emission.problems.push_back({Problem::Severity::Warning, 0, 0,
                                 "The event \"" + event.name + "\" is called \"" + event.name +
                                     "_\" in SCXML, where the name has a meaning of its own"});
    return event.name + '_';
  }

  std::string UniqueId(std::string id) {
    while (!ids.insert(id).second) id += '_';
    return id;
  }

  void WriteAbout() {
    const ModelProperties& about = machine.properties;
    std::string text = about.ModelName + '\n' + about.Description + '\n';
    if (!CommentLine(about.Author, CommentStyle::Line).empty())
      text += "Author: " + about.Author + '\n';
    text += "Made from " + FileNameOf(options.modelFile) + '.';
    out.Line("<!--");
    for (std::string line : CommentLines(text, CommentStyle::Line)) {
      // Two hyphens would end the comment.
      for (std::size_t at = line.find("--"); at != std::string::npos; at = line.find("--", at)) {
        line.insert(at + 1, " ");
      }
      if (!line.empty() && line.back() == '-') line += ' ';
      out.Line("  " + line);
    }
    out.Line("-->");
  }

  void WriteRoot() {
    const MachineTransition* first = machine.initial == MachineState::kNone
                                         ? nullptr
                                         : &machine.transitions[Index(machine.initial)];
    const bool acts = first != nullptr && (!first->effect.IsEmpty() || options.debug);
    std::string initial;
    if (first != nullptr) initial = machine.states[Index(first->target)].name;
    // Nothing can happen on the way to the root's own initial state.
    if (acts) initial = UniqueId("Initial");
    const bool hasTitles = std::ranges::any_of(machine.states, HasTitle);
    out.Open("<scxml xmlns=\"http://www.w3.org/2005/07/scxml\"" +
             (hasTitles ? Attribute("xmlns:morvane", kOwnNamespace) : "") + " version=\"1.0\"" +
             Attribute("datamodel", "ecmascript") +
             Attribute("name", CommentLine(machine.properties.ModelName, CommentStyle::Line)) +
             Attribute("initial", initial) + '>');
    if (acts) {
      out.Open("<state" + Attribute("id", initial) + '>');
      WriteTransition(machine.initial);
      out.Close("</state>");
    }
    for (const int state : machine.outermost) WriteState(state);
    out.Close("</scxml>");
  }

  void WriteState(int index) {
    const MachineState& state = machine.states[Index(index)];
    const std::string tag = state.kind == Kind::Final ? "final" : "state";
    out.Open('<' + tag + Attribute("id", state.name) +
             (HasTitle(state) ? Attribute("morvane:title", state.title) : "") + '>');
    if (state.kind == Kind::Composite) WriteBeginning(state);
    WriteText("onentry", "enter", state.name, state.entry);
    // The machine ends in an outermost final state, and is not said to leave it.
    const bool isEnd = state.kind == Kind::Final && state.parent == MachineState::kChart;
    if (!isEnd) WriteText("onexit", "exit", state.name, state.exit);
    for (const int transition : state.outgoing) WriteTransition(transition);
    for (const int child : state.children) WriteState(child);
    out.Close("</" + tag + '>');
  }

  void WriteBeginning(const MachineState& state) {
    if (state.initial == MachineState::kNone) return;
    if (!state.history) {
      out.Open("<initial>");
      WriteTransition(state.initial);
      out.Close("</initial>");
      return;
    }
    const std::string history = UniqueId(state.name + "History");
    out.Open("<initial>");
    out.Line("<transition" + Attribute("target", history) + "/>");
    out.Close("</initial>");
    out.Open("<history" + Attribute("id", history) + Attribute("type", "shallow") + '>');
    WriteTransition(state.initial);
    out.Close("</history>");
  }

  void WriteTransition(int index) {
    const MachineTransition& transition = machine.transitions[Index(index)];
    std::string head = "<transition";
    if (!transition.isInitial) head += TriggerOf(transition);
    head += Attribute("target", machine.states[Index(transition.target)].name);
    if (transition.effect.IsEmpty() && !options.debug) {
      out.Line(head + "/>");
      return;
    }
    out.Open(head + '>');
    Log("take", std::to_string(transition.id));
    WriteScript(transition.effect);
    out.Close("</transition>");
  }

  std::string TriggerOf(const MachineTransition& transition) const {
    std::string events;
    for (const int event : transition.events) {
      if (!events.empty()) events += ' ';
      events += eventNames[Index(event)];
    }
    const MachineState& source = machine.states[Index(transition.source)];
    if (events.empty() && source.kind == Kind::Composite) events = "done.state." + source.name;
    std::string trigger = events.empty() ? "" : Attribute("event", events);
    if (!transition.guard.IsEmpty()) trigger += Attribute("cond", transition.guard.text);
    return trigger;
  }

  void WriteText(const std::string& tag, const char* kind, const std::string& name,
                 const MachineText& code) {
    if (code.IsEmpty() && !options.debug) return;
    out.Open('<' + tag + '>');
    Log(kind, name);
    WriteScript(code);
    out.Close("</" + tag + '>');
  }

  void WriteScript(const MachineText& code) {
    if (code.IsEmpty()) return;
    out.Open("<script>");
    std::string lines;
    std::size_t begin = 0;
    const std::string utf8 = ToUtf8(code.text);
    while (begin <= utf8.size()) {
      const std::size_t end = std::min(utf8.find('\n', begin), utf8.size());
      lines += XmlEscape(std::string_view(utf8).substr(begin, end - begin)) + '\n';
      begin = end + 1;
    }
    out.Lines(lines);
    out.Close("</script>");
  }

  void Log(const char* kind, const std::string& name) {
    if (!options.debug) return;
    out.Line("<log" + Attribute("label", kind) + Attribute("expr", '\'' + name + '\'') + "/>");
  }

  const Machine& machine;
  const EmitOptions& options;
  CodeWriter out{2};
  std::set<std::string> ids;
  std::vector<std::string> eventNames;
  Emission emission;
};

}  // namespace

Emission ScxmlEmitter::Emit(const Machine& machine, const EmitOptions& options) const {
  return ScxmlWriter(machine, options).Write();
}

}  // namespace morvane
