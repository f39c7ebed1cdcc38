#include "connectors/EventEditorBox.h"

#include <utility>

#include "drawing/CDC.h"
#include "drawing/TextCodec.h"
#include "model/ChartView.h"
#include "model/Editors.h"
#include "model/ModelStream.h"
#include "platform/Service.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// Older texts hold the effect alone.
constexpr float kFirstVersionWithEvent = 3.0F;

const std::string kBeginTag = "TEXTBEGIN";
const std::string kEndTag = "TEXTEND";

}  // namespace

void EventEditorBox::SetTexts(std::string newEvent, std::string newGuard, std::string newEffect) {
  event = std::move(newEvent);
  guard = std::move(newGuard);
  effect = std::move(newEffect);
}

void EventEditorBox::Write(ModelStream& stream) const {
  stream << event << '\n' << guard << '\n';
  WriteTextBlock(stream.Out(), effect, kBeginTag, kEndTag);
}

void EventEditorBox::Read(ModelStream& stream) {
  if (stream.fileVersion < kFirstVersionWithEvent) {
    event.clear();
  } else {
    event = ReadLine(stream.In());
    guard = ReadLine(stream.In());
  }
  ReadTextBlock(stream.In(), effect, kBeginTag, kEndTag);
}

std::string EventEditorBox::ShownText() const {
  std::string text = LoadText(IDS_ON_EVENT) + "(";
  text.append(ToUtf8(event, CDC::kMaxPaintedBytes)) += ')';
  if (!guard.empty()) (text += "\n[").append(ToUtf8(guard, CDC::kMaxPaintedBytes)) += ']';
  if (!effect.empty()) (text += "\n/").append(ToUtf8(effect, CDC::kMaxPaintedBytes));
  return text;
}

void EventEditorBox::Draw(CDC* dc, const RECT* rect) const {
  view->DrawChartText(*dc, ShownText(), *rect);
}

std::vector<std::string*> EventEditorBox::Texts() { return {&event, &guard, &effect}; }

bool EventEditorBox::EditText(const std::string& /*title*/) {
  return Service<Editors>::Get().EditEvent(event, guard, effect);
}

}  // namespace morvane
