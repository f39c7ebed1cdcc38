#include "states/GenericState.h"

#include <algorithm>
#include <cmath>

#include "drawing/CDC.h"
#include "drawing/Mapping.h"
#include "model/ChartView.h"
#include "model/Contents.h"
#include "model/Defaults.h"
#include "model/Editors.h"
#include "model/InPlaceField.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "platform/Service.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// The ellipse of a rounded corner, model units.
constexpr std::int32_t kCorner = 5;
/// The border stands so far inside the right and the lower edge, logical units.
constexpr std::int32_t kBorderInset = 2;
/// What keeps texts off the lines around them, logical units.
constexpr std::int32_t kTextMargin = 3;
/// The name of a state whose name was emptied, whatever the default of new states is.
constexpr const char* kNameOfNameless = "State";

}  // namespace

GenericState::GenericState(std::int32_t id, ChartView* view, const RECT& rect,
                           const std::string& name)
    : State(id, view, rect, name), entryExit(view) {
  const Defaults& settings = Defaults::Instance();
  bgColor = settings.StateBgColor;
  transparent = settings.StateBgTransparent;
  entryExit.SetTexts(settings.Entry, settings.Exit);
}

const std::string& GenericState::GetTypeName() const {
  static const std::string keyword = "GenericState";
  return keyword;
}

void GenericState::Write(ModelStream& stream) const {
  State::Write(stream);
  stream << history << ' ' << bgColor << ' ' << transparent << '\n';
  WriteTextBlock(stream.Out(), entryExit.GetEntry(), "TEXTBEGIN", "TEXTEND");
  WriteTextBlock(stream.Out(), entryExit.GetExit(), "TEXTBEGIN", "TEXTEND");
}

void GenericState::Read(ModelStream& stream) {
  State::Read(stream);
  stream >> history >> bgColor >> transparent;
  SkipLine(stream.In());
  std::string entry;
  std::string exit;
  ReadTextBlock(stream.In(), entry, "TEXTBEGIN", "TEXTEND");
  ReadTextBlock(stream.In(), exit, "TEXTBEGIN", "TEXTEND");
  entryExit.SetTexts(entry, exit);
}

RECT GenericState::GetPaintedBorder() const {
  const RECT whole = view->ToLogical(rect);
  return {whole.left, whole.top, SubSat(whole.right, kBorderInset),
          SubSat(whole.bottom, kBorderInset)};
}

void GenericState::Draw(CDC* dc) {
  const BkMode oldMode = dc->SetBkMode(BkMode::Transparent);
  const RECT body = GetPaintedBorder();
  const CBrush oldBrush =
      dc->SelectBrush(transparent != 0 ? CBrush::Null() : CBrush::Solid(bgColor));
  const std::int32_t corner = view->ToLogical(kCorner);
  dc->RoundRect(body, {corner, corner});

  const COLORREF oldColour = dc->SetTextColor(view->GetTextColor());
  const RECT inner = InflateRect(body, -kTextMargin);
  const CFont oldFont = dc->SelectFont(view->GetBoldFont());
  RECT nameArea = inner;
  dc->DrawText(name, nameArea, DT_CENTER | DT_WORDBREAK);
  if (history != 0) DrawHistoryMark(dc, body);
  RECT title = inner;
  const std::int32_t titleHeight =
      dc->DrawText(name, title, DT_CENTER | DT_WORDBREAK | DT_CALCRECT);
  dc->SelectFont(oldFont);

  DrawSeparator(dc, body, AddSat(AddSat(body.top, titleHeight), kTextMargin));
  const RECT compartment{body.left, AddSat(body.top, titleHeight), body.right, body.bottom};
  entryExit.Draw(dc, InflateRect(compartment, -kTextMargin));

  dc->SetBkMode(oldMode);
  dc->SetTextColor(oldColour);
  dc->SelectBrush(oldBrush);
}

/// From border to border, also where that is round. A name that fills the state leaves no room for
/// a separator.
void GenericState::DrawSeparator(CDC* dc, const RECT& body, std::int32_t y) const {
  if (y >= SubSat(body.bottom, 1)) return;
  const double radius =
      std::min<double>(view->ToLogical(kCorner) / 2.0,
                       static_cast<double>(std::min(Width(body), Height(body))) / 2.0);
  const double fromEdge = std::min(SubSat(y, body.top), SubSat(body.bottom, y));
  const double upwards = std::max(radius - fromEdge, 0.0);
  const std::int32_t inset =
      RoundHalfAway(radius - std::sqrt(std::max(radius * radius - upwards * upwards, 0.0)));
  dc->MoveTo({AddSat(body.left, inset), y});
  const std::int32_t last = dc->PaintsLastPoint() ? 1 : 0;
  dc->LineTo({SubSat(SubSat(body.right, inset), last), y});
}

/// The mark is as large as its letter wants it, or as the state leaves room for it.
void GenericState::DrawHistoryMark(CDC* dc, const RECT& body) const {
  constexpr std::int32_t indent = 10;
  constexpr std::int32_t growth = 2;
  RECT mark = InflateRect(body, -kTextMargin);
  mark.left = AddSat(mark.left, indent);
  dc->DrawText("H", mark, DT_CALCRECT);
  const std::int64_t width = Width(mark);
  const std::int64_t height = Height(mark);
  const RECT room = InflateRect(body, -1);
  const std::int64_t side =
      std::min({height + std::int64_t{2} * growth, Width(room), Height(room)});
  if (side <= 0) return;
  RECT circle;
  circle.left = Saturate(std::min(mark.left - (height - width) / 2 - growth, room.right - side));
  circle.top = Saturate(std::min(std::int64_t{mark.top} - growth, room.bottom - side));
  circle.right = Saturate(circle.left + side);
  circle.bottom = Saturate(circle.top + side);
  dc->Ellipse(circle);
  RECT letter = mark + (TopLeft(circle) - POINT{Saturate(mark.left - (height - width) / 2 - growth),
                                                SubSat(mark.top, growth)});
  letter = IntersectRect(letter, circle);
  dc->DrawText("H", letter, DT_LEFT);
}

void GenericState::OnCommand(unsigned command) {
  switch (command) {
    case ID_OBJECT_PROPERTIES: EditProperties(); break;
    case ID_STATE_EDIT_TEXTS: EditTexts(); break;
    case ID_SELECT_CONTENTS: mgr->Select(Contents()); break;
    default: State::OnCommand(command);
  }
}

void GenericState::OnLButtonDblClk(unsigned /*flags*/, std::int32_t x, std::int32_t y) {
  const bool onName = PtInRect(NameBand(), view->LogicalMapping().ToLogical({x, y}));
  if (!onName || !view->EditInPlace(*this)) EditTexts();
}

RECT GenericState::NameBand() const {
  RECT band = GetPaintedBorder();
  const auto room = Saturate(Width(band) - std::int64_t{2} * kTextMargin);
  const SIZE shown = view->MeasureChartText(name, room, ChartView::Letters::Bold);
  band.bottom = std::min(band.bottom, AddSat(AddSat(band.top, shown.cy), 2 * kTextMargin));
  return band;
}

std::optional<InPlaceField> GenericState::FieldInPlace() const {
  return InPlaceField{.label = Translate("Name of the State"),
                      .text = name,
                      .area = NameBand(),
                      .bold = true,
                      .centred = true,
                      .severalLines = false};
}

void GenericState::TakeInPlace(const std::string& typed) {
  name = typed;
  OnRenamed();
}

std::vector<Shape*> GenericState::Contents() const { return ContentsOf(*mgr, *this); }

void GenericState::EditTexts() {
  if (entryExit.EditText(name)) Invalidate();
}

bool GenericState::EditProperties() {
  StateFields fields{name, history, bgColor, transparent};
  if (!Service<Editors>::Get().EditState(fields)) return false;
  name = fields.name;
  history = fields.history;
  transparent = fields.transparent;
  bgColor = fields.bgColor;
  OnRenamed();
  return true;
}

void GenericState::OnRenamed() {
  if (name.empty()) name = kNameOfNameless;
  view->UpdateNodes(this);
  Invalidate();
}

void GenericState::OnPlaced() {
  entryExit.SetView(view);
  ConnectableRectShape::OnPlaced();
}

void GenericState::OnRectChanged(const RECT& old, bool sized) {
  ConnectableRectShape::OnRectChanged(old, sized);
  UpdateOutgoing(sized);
  UpdateIncoming(sized);
}

void GenericState::RefreshAnchors() {
  ClearAnchors();
  const POINT middle = CentreOf(rect);
  const auto quarterX = static_cast<std::int32_t>(Width(rect) / 4);
  const auto quarterY = static_cast<std::int32_t>(Height(rect) / 4);
  // Clockwise from the top left, three on each side.
  const auto fillSide = [this](Side side, POINT second, POINT step) {
    anchors.Add({1, side}, second - step);
    anchors.Add({2, side}, second);
    anchors.Add({3, side}, second + step);
  };
  fillSide(SIDE_TOP, {middle.x, rect.top}, {quarterX, 0});
  fillSide(SIDE_RIGHT, {rect.right, middle.y}, {0, quarterY});
  fillSide(SIDE_BOTTOM, {middle.x, rect.bottom}, {-quarterX, 0});
  fillSide(SIDE_LEFT, {rect.left, middle.y}, {0, -quarterY});
}

}  // namespace morvane
