#include "surface/ObjectNames.h"

#include <array>
#include <initializer_list>
#include <string_view>

#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "drawing/TextBreaks.h"
#include "drawing/TextCodec.h"
#include "resources/Texts.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"
#include "surface/ReadingOrder.h"

namespace morvane {

namespace {

/// So much of a text is part of a name, bytes.
constexpr std::size_t kLongestPart = 200;

/// A text with names in the places of its "%1" and "%2".
std::string Fill(unsigned textId, std::string_view first, std::string_view second = {}) {
  const std::array parts{std::string(first), std::string(second)};
  return Filled(LoadText(textId), parts);
}

/// The first line that says something, or its beginning, in UTF-8.
std::string FirstLine(const std::string& stored) {
  const std::string text = ToUtf8(stored);
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string::npos) return {};
  const std::string_view line =
      std::string_view(text).substr(start, text.find_first_of("\r\n", start) - start);
  return std::string(LetterPrefix(line, kLongestPart));
}

std::string JoinLines(std::initializer_list<std::string> texts) {
  std::string joined;
  for (const std::string& text : texts) {
    if (text.empty()) continue;
    if (!joined.empty()) joined += '\n';
    joined += text;
  }
  return joined;
}

std::string Labelled(unsigned textId, const std::string& text) {
  return FirstLine(text).empty() ? std::string() : WithName(LoadText(textId), ToUtf8(text));
}

/// The event and the guard: "coin [amount > 0]".
std::string TriggerOf(const Mesg& mesg) {
  const EventEditorBox& text = mesg.GetText();
  std::string trigger = FirstLine(text.GetEvent());
  if (!text.GetGuard().empty()) {
    if (!trigger.empty()) trigger += ' ';
    trigger.append("[").append(FirstLine(text.GetGuard())) += ']';
  }
  return trigger;
}

std::string EndName(const State* state) {
  if (state == nullptr) return LoadText(IDS_FREE_END);
  if (dynamic_cast<const InitialState*>(state) != nullptr) return LoadText(IDS_READ_INITIAL);
  if (dynamic_cast<const FinalState*>(state) != nullptr) return LoadText(IDS_READ_FINAL);
  return FirstLine(state->GetName());
}

std::string NameOf(const Transition& transition) {
  std::string name =
      Fill(IDS_READ_TRANSITION, EndName(transition.GetSource()), EndName(transition.GetTarget()));
  if (transition.GetMesg() == nullptr) return name;
  const std::string trigger = TriggerOf(*transition.GetMesg());
  return trigger.empty() ? name : Fill(IDS_READ_EVENT, name, trigger);
}

std::string NameOf(const State& state, const ReadingOrder& order) {
  const auto* generic = dynamic_cast<const GenericState*>(&state);
  std::string name =
      generic != nullptr ? Fill(IDS_READ_STATE, FirstLine(state.GetName())) : EndName(&state);
  if (const auto* holder = dynamic_cast<const State*>(order.HolderOf(&state))) {
    name = Fill(IDS_READ_IN, name, FirstLine(holder->GetName()));
  }
  if (generic != nullptr && generic->KeepsHistory()) name = Fill(IDS_READ_HISTORY, name);
  return name;
}

std::string NameOf(const Line& line, const ReadingOrder& order) {
  const auto end = [&order](const Connectable* shape) {
    const auto* object = dynamic_cast<const Shape*>(shape);
    return object != nullptr ? NameOfObject(*object, order) : LoadText(IDS_FREE_END);
  };
  return Fill(IDS_READ_LINE, end(line.GetStartShape()), end(line.GetEndShape()));
}

}  // namespace

std::string NameOfObject(const Shape& object, const ReadingOrder& order) {
  if (const auto* state = dynamic_cast<const State*>(&object)) return NameOf(*state, order);
  if (const auto* transition = dynamic_cast<const Transition*>(&object)) return NameOf(*transition);
  if (const auto* mesg = dynamic_cast<const Mesg*>(&object)) {
    return Fill(IDS_READ_MESSAGE, TriggerOf(*mesg));
  }
  if (const auto* note = dynamic_cast<const Note*>(&object)) {
    return Fill(IDS_READ_NOTE, FirstLine(note->GetText().ShownText()));
  }
  if (const auto* line = dynamic_cast<const Line*>(&object)) return NameOf(*line, order);
  return object.GetTypeName();
}

std::string TextOfObject(const Shape& object) {
  if (const auto* state = dynamic_cast<const GenericState*>(&object)) {
    const EntryExitTextBox& texts = state->GetEntryExit();
    return JoinLines(
        {Labelled(IDS_READ_ENTRY, texts.GetEntry()), Labelled(IDS_READ_EXIT, texts.GetExit())});
  }
  const auto* mesg = dynamic_cast<const Mesg*>(&object);
  if (const auto* transition = dynamic_cast<const Transition*>(&object)) {
    mesg = transition->GetMesg();
  }
  if (mesg != nullptr) {
    return JoinLines({TriggerOf(*mesg), Labelled(IDS_READ_EFFECT, mesg->GetText().GetEffect())});
  }
  const auto* note = dynamic_cast<const Note*>(&object);
  return note != nullptr ? note->GetText().ShownText() : std::string();
}

}  // namespace morvane
