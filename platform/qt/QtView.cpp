#include "platform/qt/QtView.h"

#include <cmath>

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>

#include "drawing/CRgn.h"
#include "drawing/qt/LineClip.h"
#include "drawing/qt/QtDC.h"
#include "platform/CScrollView.h"
#include "platform/Feedback.h"
#include "platform/InPlaceText.h"
#include "platform/qt/InPlaceBox.h"
#include "platform/qt/PartsTeller.h"
#include "platform/qt/ViewInterface.h"

namespace morvane {

// The picture of the client area and its scroll bars; what comes from the mouse and the keyboard is
// in QtViewInput.cpp.

namespace {

/// A gesture at the edge scrolls so often.
constexpr int kEdgeMilliseconds = 50;

QRegion ToRegion(const CRgn::Piece& piece, const QRect& client) {
  if (const RECT* r = std::get_if<RECT>(&piece)) {
    const RECT part = IntersectRect(*r, {0, 0, client.width(), client.height()});
    return QRect(part.left, part.top, part.right - part.left, part.bottom - part.top);
  }
  QPolygonF polygon;
  for (const POINT p : std::get<CRgn::Polygon>(piece)) polygon << QPointF(p.x, p.y);
  const QRegion inside(ClipPolygon(polygon, client).toPolygon(), Qt::WindingFill);
  // Slanted lines are smoothed into the pixels beside those that they cover.
  return inside + inside.translated(-1, 0) + inside.translated(1, 0) + inside.translated(0, -1) +
         inside.translated(0, 1);
}

}  // namespace

QtView::QtView(CScrollView& view, QWidget* parent)
    : QAbstractScrollArea(parent),
      view(&view),
      teller(std::make_unique<PartsTeller>(*this)),
      picture(1, 1, QImage::Format_RGB32) {
  ViewInterface::Install();
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  viewport()->setAttribute(Qt::WA_NoSystemBackground);
  repaintTimer.setSingleShot(true);
  repaintTimer.setInterval(0);
  connect(&repaintTimer, &QTimer::timeout, this, &QtView::PaintInvalid);
  edgeTimer.setInterval(kEdgeMilliseconds);
  connect(&edgeTimer, &QTimer::timeout, this, &QtView::ScrollAtEdge);
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this,
          [this](int value) { OnBarMoved(ScrollBar::Horizontal, value); });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
          [this](int value) { OnBarMoved(ScrollBar::Vertical, value); });
  view.SetPeer(this);
  RemakePicture();
}

QtView::~QtView() { Detach(); }

void QtView::Detach() {
  if (view == nullptr) return;
  QtView::ReleaseCapture();
  view->SetPeer(nullptr);
  view = nullptr;
  textBox.reset();
  queue.clear();
  repaintTimer.stop();
  edgeTimer.stop();
  Stir();
}

RECT QtView::ClientRect() const { return {0, 0, viewport()->width(), viewport()->height()}; }

void QtView::InvalidateRect(const RECT& r) { InvalidateRgn(CRgn::FromRect(r)); }

void QtView::InvalidateRgn(const CRgn& region) {
  if (IsAllInvalid()) return AddInvalid({});
  const QRect client = viewport()->rect();
  QRegion added;
  for (const CRgn::Piece& piece : region.Pieces()) added += ToRegion(piece, client);
  AddInvalid(added);
  if (scale == 1) return;
  // On a finer screen a stroke reaches a part of a pixel beyond the points of its region.
  for (const QPoint beyond : {QPoint(1, 0), {-1, 0}, {0, 1}, {0, -1}}) {
    AddInvalid(added.translated(beyond));
  }
}

void QtView::InvalidateAll() {
  AddInvalid(IsAllInvalid() ? QRegion() : QRegion(viewport()->rect()));
}

/// Whatever is asked for now is repainted anyway.
bool QtView::IsAllInvalid() const {
  return invalid.rectCount() == 1 && invalid.boundingRect() == viewport()->rect();
}

void QtView::AddInvalid(const QRegion& region) {
  invalid += region & viewport()->rect();
  if (redraw && !invalid.isEmpty() && !repaintTimer.isActive()) repaintTimer.start();
}

void QtView::Update() { PaintInvalid(); }

void QtView::OnPartsChanged() { teller->OnChanged(); }

void QtView::SetRedraw(bool on) {
  redraw = on;
  AddInvalid({});
}

void QtView::InvalidateFeedback(const RECT& r) {
  const RECT seen = IntersectRect(r, ClientRect());
  viewport()->update(seen.left, seen.top, seen.right - seen.left, seen.bottom - seen.top);
}

QRegion QtView::ToPhysical(const QRegion& device) const {
  if (scale == 1) return device;
  QRegion physical;
  for (const QRect& r : device) {
    physical +=
        QRectF(r.x() * scale, r.y() * scale, r.width() * scale, r.height() * scale).toAlignedRect();
  }
  return physical;
}

void QtView::RemakePicture() {
  const double wanted = devicePixelRatioF();
  const QSize client = viewport()->size();
  const QSize size(std::max(1, static_cast<int>(std::ceil(client.width() * wanted))),
                   std::max(1, static_cast<int>(std::ceil(client.height() * wanted))));
  if (size == picture.size() && wanted == scale) return;
  QImage made(size, QImage::Format_RGB32);
  made.fill(Qt::white);
  QRegion kept;
  if (wanted == scale) {
    QPainter(&made).drawImage(0, 0, picture);
    const QSize old = picture.size() / wanted;
    kept = QRect(QPoint(0, 0), old);
  }
  picture = std::move(made);
  scale = wanted;
  AddInvalid(QRegion(viewport()->rect()) - kept);
}

void QtView::PaintInvalid() {
  repaintTimer.stop();
  if (view == nullptr || !redraw || painting || invalid.isEmpty()) return;
  const QRegion device = invalid & viewport()->rect();
  invalid = {};
  if (device.isEmpty()) return;
  const QRegion physical = ToPhysical(device);
  painting = true;
  {
    QtDC dc(picture, scale, fonts, &physical);
    dc.Painter().fillRect(physical.boundingRect(), Qt::white);
    view->OnPrepareDC(dc);
    view->OnDraw(dc);
  }
  painting = false;
  viewport()->update(device);
}

const QImage& QtView::Shown(const QRegion& part) {
  if (view == nullptr || view->ShownFeedback().empty()) return picture;
  if (composed.size() != picture.size()) composed = QImage(picture.size(), picture.format());
  const QRegion physical = ToPhysical(part) & picture.rect();
  {
    QPainter copying(&composed);
    for (const QRect& r : physical) copying.drawImage(r.topLeft(), picture, r);
  }
  QtDC dc(composed, scale, fonts, &physical);
  dc.SetROP2(RasterOp::NotXorPen);
  dc.SetViewportOrg(POINT{} - view->GetDrift());
  for (const Feedback* each : view->ShownFeedback()) each->Paint(dc);
  return composed;
}

void QtView::paintEvent(QPaintEvent* event) {
  if (devicePixelRatioF() != scale) RemakePicture();
  if (!invalid.isEmpty()) PaintInvalid();
  const QImage& shown = Shown(event->region());
  QPainter painter(viewport());
  for (const QRect& r : event->region()) {
    const QRectF source(r.x() * scale, r.y() * scale, r.width() * scale, r.height() * scale);
    painter.drawImage(QRectF(r), shown, source);
  }
}

void QtView::resizeEvent(QResizeEvent*) {
  RemakePicture();
  if (view != nullptr) view->OnSize();
}

void QtView::SetScrollBar(ScrollBar bar, int limit, int line, int page, int position) {
  QScrollBar* widget = bar == ScrollBar::Horizontal ? horizontalScrollBar() : verticalScrollBar();
  const QSignalBlocker blocker(widget);
  widget->setRange(0, limit);
  widget->setSingleStep(line);
  widget->setPageStep(page);
  widget->setValue(position);
}

void QtView::OpenTextBox(const InPlaceText& text) {
  const auto left = [this](bool keep) {
    if (view != nullptr) view->OnTextBoxLeft(keep);
  };
  textBox = std::make_unique<InPlaceBox>(text, viewport(), left);
}

void QtView::MoveTextBox(const RECT& client) {
  if (textBox == nullptr) return;
  textBox->Move(
      QRect(QPoint(client.left, client.top), QPoint(client.right - 1, client.bottom - 1)));
}

std::optional<std::string> QtView::CloseTextBox() {
  std::unique_ptr<InPlaceBox> closing = std::move(textBox);
  if (closing == nullptr) return std::nullopt;
  std::string text = closing->Text();
  const bool hadFocus = closing->HasFocus();
  closing.reset();
  if (hadFocus) setFocus();
  return text;
}

void QtView::OnBarMoved(ScrollBar bar, int value) {
  if (view != nullptr) view->OnScroll(bar, ScrollCode::ToPosition, value);
}

void QtView::scrollContentsBy(int, int) {
  // The view scrolls itself.
}

}  // namespace morvane
