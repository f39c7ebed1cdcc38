#include "states/EntryExitTextBox.h"

#include "drawing/CDC.h"
#include "drawing/TextCodec.h"
#include "model/ChartView.h"
#include "model/Editors.h"
#include "platform/Service.h"
#include "resources/Texts.h"

namespace morvane {

void EntryExitTextBox::SetTexts(const std::string& entryText, const std::string& exitText) {
  entry = entryText;
  exit = exitText;
}

std::string EntryExitTextBox::ShownText() const {
  std::string text = "[" + LoadText(IDS_ENTRY) + "]\n";
  if (!entry.empty()) text.append(ToUtf8(entry, CDC::kMaxPaintedBytes)) += '\n';
  text += "[" + LoadText(IDS_EXIT) + "]\n";
  if (!exit.empty()) text.append(ToUtf8(exit, CDC::kMaxPaintedBytes));
  return text;
}

void EntryExitTextBox::Draw(CDC* dc, const RECT& rect) const {
  view->DrawChartText(*dc, ShownText(), rect);
}

std::vector<std::string*> EntryExitTextBox::Texts() { return {&entry, &exit}; }

bool EntryExitTextBox::EditText(const std::string& title) {
  return Service<Editors>::Get().EditEntryExit(title, entry, exit);
}

}  // namespace morvane
