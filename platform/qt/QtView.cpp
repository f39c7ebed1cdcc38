#include "platform/qt/QtView.h"

#include <cmath>
#include <optional>

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>

#include "drawing/CRgn.h"
#include "drawing/qt/LineClip.h"
#include "drawing/qt/QtDC.h"
#include "platform/CScrollView.h"

// The picture of the client area and its scroll bars; what comes from the mouse and the keyboard is
// in QtViewInput.cpp.

namespace {

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

/// A context outside or inside a paint; what it painted is copied to the screen when it goes. It
/// keeps the picture alive, should the window get a new one meanwhile. What is drawn to be erased
/// again outside a paint is drawn on the overlay too.
class QtView::ClientDC : public QtDC {
 public:
  ClientDC(QtView& owner, const QRegion* clip)
      : QtDC(*owner.picture, owner.scale, owner.fonts, clip),
        owner(&owner),
        picture(owner.picture),
        inPaint(clip != nullptr) {}
  ~ClientDC() override {
    if (owner == nullptr) return;
    owner->ShowPhysical(Touched());
    if (marks) owner->overlay.Touch(marks->Touched());
  }

  void Polyline(std::span<const POINT> points) override {
    if (CDC* shadow = Shadow()) shadow->Polyline(points);
    QtDC::Polyline(points);
  }
  void Polygon(std::span<const POINT> points) override {
    if (CDC* shadow = Shadow()) shadow->Polygon(points);
    QtDC::Polygon(points);
  }
  void Rectangle(const RECT& r) override {
    if (CDC* shadow = Shadow()) shadow->Rectangle(r);
    QtDC::Rectangle(r);
  }
  void Ellipse(const RECT& r) override {
    if (CDC* shadow = Shadow()) shadow->Ellipse(r);
    QtDC::Ellipse(r);
  }
  void Arc(const RECT& r, POINT start, POINT end) override {
    if (CDC* shadow = Shadow()) shadow->Arc(r, start, end);
    QtDC::Arc(r, start, end);
  }

 private:
  /// The context on the overlay, with everything as it is selected here; null where none is needed.
  CDC* Shadow() {
    if (inPaint || owner == nullptr || GetROP2() != RasterOp::NotXorPen) return nullptr;
    if (!marks) {
      marks.emplace(owner->overlay.Marks(picture->size()), owner->scale, owner->fonts);
      marks->SetROP2(RasterOp::NotXorPen);
    }
    marks->SelectPen(GetPen());
    marks->SelectBrush(GetBrush());
    marks->SetViewportOrg(GetViewportOrg());
    return &*marks;
  }

  QPointer<QtView> owner;
  std::shared_ptr<QImage> picture;
  std::optional<QtDC> marks;
  bool inPaint;
};

QtView::QtView(CScrollView& view, QWidget* parent)
    : QAbstractScrollArea(parent),
      view(&view),
      picture(std::make_shared<QImage>(1, 1, QImage::Format_RGB32)) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  viewport()->setAttribute(Qt::WA_NoSystemBackground);
  repaintTimer.setSingleShot(true);
  repaintTimer.setInterval(0);
  connect(&repaintTimer, &QTimer::timeout, this, &QtView::PaintInvalid);
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
  queue.clear();
  repaintTimer.stop();
}

RECT QtView::ClientRect() const { return {0, 0, viewport()->width(), viewport()->height()}; }

std::unique_ptr<CDC> QtView::CreateClientDC() {
  return std::make_unique<ClientDC>(*this, painting.isEmpty() ? nullptr : &painting);
}

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

void QtView::SetRedraw(bool on) {
  redraw = on;
  AddInvalid({});
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
  if (size == picture->size() && wanted == scale) return;
  auto made = std::make_shared<QImage>(size, QImage::Format_RGB32);
  made->fill(Qt::white);
  QRegion kept;
  if (wanted == scale) {
    QPainter(made.get()).drawImage(0, 0, *picture);
    const QSize old = picture->size() / wanted;
    kept = QRect(QPoint(0, 0), old);
  }
  picture = std::move(made);
  scale = wanted;
  AddInvalid(QRegion(viewport()->rect()) - kept);
}

void QtView::PaintInvalid() {
  repaintTimer.stop();
  if (view == nullptr || !redraw || !painting.isEmpty() || invalid.isEmpty()) return;
  const QRegion device = invalid & viewport()->rect();
  invalid = {};
  if (device.isEmpty()) return;
  painting = ToPhysical(device);
  {
    QtDC dc(*picture, scale, fonts, &painting);
    dc.Painter().fillRect(painting.boundingRect(), Qt::white);
    view->OnPrepareDC(dc);
    view->OnDraw(dc);
  }
  overlay.ShowOn(*picture, painting);
  painting = {};
  viewport()->update(device);
}

void QtView::ShowPhysical(const QRect& physical) {
  if (physical.isEmpty()) return;
  const QRectF device(physical.x() / scale, physical.y() / scale, physical.width() / scale,
                      physical.height() / scale);
  viewport()->update(device.toAlignedRect());
}

void QtView::paintEvent(QPaintEvent* event) {
  if (devicePixelRatioF() != scale) RemakePicture();
  if (!invalid.isEmpty()) PaintInvalid();
  QPainter painter(viewport());
  for (const QRect& r : event->region()) {
    const QRectF source(r.x() * scale, r.y() * scale, r.width() * scale, r.height() * scale);
    painter.drawImage(QRectF(r), *picture, source);
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

void QtView::OnBarMoved(ScrollBar bar, int value) {
  if (view != nullptr) view->OnScroll(bar, ScrollCode::ToPosition, value);
}

void QtView::scrollContentsBy(int, int) {
  // The view scrolls itself.
}
