#include "exchange/ChartMaker.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/TextFit.h"
#include "connectors/Transition.h"
#include "model/ModelMgr.h"
#include "platform/LineBreaks.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

/// The first object gets the next number.
constexpr std::int32_t kIdsFrom = 100;
/// Where the chart begins, model units.
constexpr POINT kCorner{8, 8};
/// What of a message and of a note is no room for text, logical units.
constexpr RECT kLeastMessage{1, 1, 9, 4};
constexpr SIZE kMessageMargins{6, 6};
constexpr SIZE kNoteMargins{16, 7};
/// Of the note with all that has no counterpart, model units.
constexpr std::int32_t kNoteWidth = 80;
constexpr std::int32_t kLargestNote = 250;
/// A transition that isn't laid yet.
constexpr POINT kNowhere{1, 1};
constexpr POINT kNearNowhere{1, 9};

/// Adopts an object, which is at hand after that.
template <class Made, class... Rest>
Made* Adopted(ModelMgr& model, std::int32_t id, const Rest&... rest) {
  auto made = std::make_unique<Made>(id, model.GetView(), rest...);
  Made* object = made.get();
  model.Adopt(std::move(made));
  return object;
}

std::string Listed(const std::vector<std::string>& events) {
  std::string text;
  for (const std::string& event : events) text += (text.empty() ? "" : ", ") + event;
  return text;
}

}  // namespace

ChartMaker::ChartMaker(LayoutMgr& view) : view(view), model(view.GetModel()), lastId(kIdsFrom) {}

std::int32_t ChartMaker::NextId() {
  while (!taken.insert(++lastId).second) {
  }
  return lastId;
}

/// What several want, the first one gets.
std::int32_t ChartMaker::WantedOrNext(std::int32_t wanted) {
  return wanted > 0 && model.Find(wanted) == nullptr ? wanted : NextId();
}

void ChartMaker::Make(const ImportedChart& chart, const std::string& fileName) {
  for (const ImportedTransition& transition : chart.transitions) {
    if (transition.wantedId > 0) taken.insert(transition.wantedId);
  }
  for (const ImportedState& state : chart.states) {
    if (state.wantedId > 0) taken.insert(state.wantedId);
  }
  for (const ImportedState& state : chart.states) AddState(state);
  for (const ImportedTransition& transition : chart.transitions) AddTransition(transition);
  if (!chart.remarks.empty()) AddNote(chart.remarks, fileName);
  ChartArranger(model).Arrange(parts, kCorner, routes);
  view.GetProperties().ModelName = chart.name;
}

void ChartMaker::AddState(const ImportedState& state) {
  const std::int32_t id = WantedOrNext(state.wantedId);
  if (state.isFinal) {
    parts.push_back({Adopted<FinalState>(model, id, FinalState::DefaultRect()), state.holder});
    return;
  }
  const std::string name = state.title.empty() ? "State" + std::to_string(id) : state.title;
  auto* made = Adopted<GenericState>(model, id, GenericState::DefaultRect(), name);
  made->GetEntryExit().SetTexts(WithCrLf(state.entry), WithCrLf(state.exit));
  made->SetKeepsHistory(state.history);
  parts.push_back({made, state.holder});
}

int ChartMaker::AddMark(int level) {
  parts.push_back({Adopted<InitialState>(model, NextId(), InitialState::DefaultRect()), level});
  return static_cast<int>(parts.size()) - 1;
}

void ChartMaker::AddTransition(const ImportedTransition& transition) {
  const int source = transition.isInitial ? AddMark(transition.source) : transition.source;
  auto* from = dynamic_cast<StartableState*>(parts[source].shape);
  auto* to = dynamic_cast<EndableState*>(parts[transition.target].shape);
  if (from == nullptr || to == nullptr) return;
  const std::int32_t id = WantedOrNext(transition.wantedId);
  WantedRoute route{Adopted<Transition>(model, id, kNowhere, kNearNowhere), from, to};
  AddMessage(transition, route);
  routes.push_back(route);
}

void ChartMaker::AddMessage(const ImportedTransition& transition, WantedRoute& route) {
  if (transition.events.empty() && transition.guard.empty() && transition.effect.empty()) return;
  auto* message = Adopted<Mesg>(model, NextId(), kLeastMessage, route.transition);
  message->GetText().SetTexts(Listed(transition.events), transition.guard,
                              WithCrLf(transition.effect));
  TextFit fit(kLeastMessage, kMessageMargins);
  message->ResizeTo(fit.Grow(view, message->GetBounds(), message->GetText().ShownText()));
}

void ChartMaker::AddNote(const ImportRemarks& remarks, const std::string& fileName) {
  std::string text = fileName;
  for (const ImportRemark& remark : remarks) {
    text += '\n' + std::to_string(remark.line) + ": " + remark.text;
    if (!remark.kept.empty()) text += '\n' + remark.kept;
  }
  auto* note = Adopted<Note>(model, NextId(), Note::DefaultRect());
  note->GetText().Text() = WithCrLf(text);
  const auto units = [](std::int32_t logical) { return logical / ChartView::kLogicalPerModel + 1; };
  const SIZE shown = view.MeasureChartText(note->GetText().ShownText(),
                                           view.ToLogical(kNoteWidth) - kNoteMargins.cx,
                                           ChartView::Letters::Normal);
  note->ResizeTo(
      {1, 1, 1 + kNoteWidth, 1 + std::min(units(AddSat(shown.cy, kNoteMargins.cy)), kLargestNote)});
  parts.push_back({note});
}

}  // namespace morvane
