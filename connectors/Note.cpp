#include "connectors/Note.h"

#include <array>

#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/Editors.h"
#include "model/InPlaceField.h"
#include "model/ModelStream.h"
#include "platform/Service.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

const std::string kBeginTag = "TEXTBEGIN";
const std::string kEndTag = "TEXTEND";
/// The size of the folded corner, model units.
constexpr std::int32_t kFold = 2;
/// The text keeps away from the left, top and bottom edge, logical units.
constexpr std::int32_t kTextMargin = 3;

}  // namespace

Note::Note() : text(LoadText(IDS_NOTE)) {}

Note::Note(std::int32_t id, ChartView* view, const RECT& rect)
    : ConnectableRectShape(id, view, rect, LAYER_NOTE), text(LoadText(IDS_NOTE)) {}

const std::string& Note::GetTypeName() const {
  static const std::string keyword = "Note";
  return keyword;
}

void Note::Write(ModelStream& stream) const {
  ConnectableRectShape::Write(stream);
  look.Write(stream);
  WriteTextBlock(stream.Out(), text.GetText(), kBeginTag, kEndTag);
}

void Note::Read(ModelStream& stream) {
  ConnectableRectShape::Read(stream);
  look.Read(stream);
  SkipLine(stream.In());
  ReadTextBlock(stream.In(), text.Text(), kBeginTag, kEndTag);
}

void Note::OnPlaced() {
  text.SetView(view);
  ConnectableRectShape::OnPlaced();
}

/// The top right corner, where the paper is folded, has none.
void Note::RefreshAnchors() {
  ClearAnchors();
  const POINT middle = CentreOf(rect);
  anchors.Add({1, SIDE_TOP}, {rect.left, rect.top});
  anchors.Add({2, SIDE_TOP}, {middle.x, rect.top});
  anchors.Add({1, SIDE_RIGHT}, {rect.right, middle.y});
  anchors.Add({1, SIDE_BOTTOM}, {rect.right, rect.bottom});
  anchors.Add({2, SIDE_BOTTOM}, {middle.x, rect.bottom});
  anchors.Add({3, SIDE_BOTTOM}, {rect.left, rect.bottom});
  anchors.Add({1, SIDE_LEFT}, {rect.left, middle.y});
}

void Note::Draw(CDC* dc) {
  RECT r = view->ToLogical(rect);
  r.right = SubSat(r.right, 1);
  r.bottom = SubSat(r.bottom, 1);
  const std::int32_t fold = view->ToLogical(kFold);
  const POINT foldRight{r.right, AddSat(r.top, fold)};
  const POINT foldTop{SubSat(r.right, fold), r.top};
  const std::array<POINT, 6> outline{
      TopLeft(r), POINT{r.left, r.bottom}, BottomRight(r), foldRight, foldTop, TopLeft(r)};

  const CPen oldPen = dc->SelectPen({PenStyle::Solid, 0, look.borderColor});
  const CBrush oldBrush =
      dc->SelectBrush(look.bgTransparent != 0 ? CBrush::Null() : CBrush::Solid(look.bgColor));
  dc->Polygon(outline);
  dc->MoveTo(foldRight);
  dc->LineTo({foldTop.x, foldRight.y});
  dc->LineTo(foldTop);
  dc->SelectBrush(oldBrush);
  dc->SelectPen(oldPen);

  const RECT inner = TextArea();
  text.Draw(dc, &inner);
}

RECT Note::TextArea() const {
  const RECT r = view->ToLogical(rect);
  const std::int32_t right = SubSat(SubSat(r.right, 1), view->ToLogical(kFold));
  return {AddSat(r.left, kTextMargin), AddSat(r.top, kTextMargin), right,
          SubSat(SubSat(r.bottom, 1), kTextMargin)};
}

void Note::OnCommand(unsigned command) {
  switch (command) {
    case ID_NOTE_EDIT: EditText(); break;
    case ID_NOTE_DELETE:
      if (ConfirmDeletion(IDS_CONFIRM_DELETION)) delete this;
      break;
    case ID_OBJECT_PROPERTIES: EditProperties(); break;
    default: ConnectableRectShape::OnCommand(command);
  }
}

void Note::OnLButtonDblClk(unsigned /*flags*/, std::int32_t /*x*/, std::int32_t /*y*/) {
  if (!view->EditInPlace(*this)) EditText();
}

std::optional<InPlaceField> Note::FieldInPlace() const {
  return InPlaceField{.label = LoadText(IDS_NOTE),
                      .text = text.GetText(),
                      .area = InflateRect(TextArea(), kTextMargin),
                      .severalLines = true};
}

void Note::TakeInPlace(const std::string& typed) {
  Retype([this, &typed] {
    text.Text() = typed;
    return true;
  });
}

void Note::EditText() {
  Retype([this] { return text.EditText(LoadText(IDS_NOTE)); });
}

void Note::Retype(const std::function<bool()>& change) {
  const bool automatic = fit.IsAutomatic(*view, rect, text.ShownText());
  if (!change()) return;
  if (automatic) ResizeTo(fit.Grow(*view, rect, text.ShownText()));
  OnTextsChanged();
}

void Note::OnTextsChanged() {
  view->UpdateNodes(this);
  Invalidate();
}

void Note::EditProperties() {
  BoxFields fields = look.Fields(showAnchors);
  if (!Service<Editors>::Get().EditNote(fields)) return;
  look.Take(fields, showAnchors);
  Invalidate();
}

}  // namespace morvane
