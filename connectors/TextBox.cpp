#include "connectors/TextBox.h"

#include <string_view>
#include <utility>

#include "drawing/CDC.h"
#include "drawing/TextCodec.h"
#include "model/ChartView.h"
#include "model/Editors.h"
#include "platform/Service.h"

namespace morvane {

namespace {

constexpr std::string_view kHiddenMark = "<M>";

/// Without the marks, and without those that come about where one was cut out.
std::string WithoutMarks(std::string_view text) {
  std::string shown;
  for (const char c : text) {
    shown += c;
    if (shown.ends_with(kHiddenMark)) shown.resize(shown.size() - kHiddenMark.size());
  }
  return shown;
}

}  // namespace

std::string TextBox::ShownText() const { return WithoutMarks(ToUtf8(text, CDC::kMaxPaintedBytes)); }

void TextBox::Draw(CDC* dc, const RECT* rect) const {
  view->DrawChartText(*dc, ShownText(), *rect);
}

std::vector<std::string*> TextBox::Texts() { return {&text}; }

bool TextBox::EditText(const std::string& title) {
  return Service<Editors>::Get().EditText(title, text);
}

}  // namespace morvane
