#pragma once

#include <deque>
#include <memory>

#include <QAbstractScrollArea>
#include <QImage>
#include <QRegion>
#include <QTimer>

#include "drawing/qt/QtText.h"
#include "platform/WindowPeer.h"

namespace morvane {

class InPlaceBox;

class CScrollView;
class PartsTeller;

/// The window of a `CScrollView`. It keeps a picture of its client area: a paint erases and redraws
/// the invalid part of it. The toolkit's paint event copies it, with the feedback of the view over
/// it. A device pixel of the client area is a pixel of Qt's; the picture has as many physical
/// pixels as the screen.
class QtView : public QAbstractScrollArea, public WindowPeer {
  Q_OBJECT

 public:
  explicit QtView(CScrollView& view, QWidget* parent = nullptr);
  ~QtView() override;

  /// Ends the tie to the view, which may go now. The widget shows what it showed last.
  void Detach();
  CScrollView* View() const { return view; }
  /// A gesture waits for its next message: nothing may take the chart away or change it meanwhile.
  bool IsWaiting() const { return waiting; }
  /// Makes the gesture that waits end with the message Quit.
  void EndLoop();
  /// The picture without the feedback.
  const QImage& Picture() const { return picture; }

  RECT ClientRect() const override;
  void InvalidateRect(const RECT& r) override;
  void InvalidateRgn(const CRgn& region) override;
  void InvalidateAll() override;
  void Update() override;
  void SetRedraw(bool on) override;
  void InvalidateFeedback(const RECT& r) override;
  void SetCapture() override;
  void ReleaseCapture() override;
  bool HasCapture() const override;
  POINT CursorPos() const override;
  bool IsShiftDown() const override;
  bool IsAltDown() const override;
  int DragDistance() const override;
  void SetCursor(Cursor cursor) override;
  POINT ClientToScreen(POINT p) const override;
  POINT ScreenToClient(POINT p) const override;
  void SetScrollBar(ScrollBar bar, int limit, int line, int page, int position) override;
  void OpenTextBox(const InPlaceText& text) override;
  void MoveTextBox(const RECT& client) override;
  std::optional<std::string> CloseTextBox() override;
  Message NextMessage() override;
  void OnPartsChanged() override;

 protected:
  bool event(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  void TakeMouse(Message::Kind kind, QMouseEvent& event);
  /// A press of a button; `left` is what it is of the left one.
  void TakePress(Message::Kind left, QMouseEvent& event);
  bool Take(const Message& message);
  bool Handle(const Message& message);
  void HandleLeftovers();
  void Remember(const Message& message);
  void ZoomByWheel(int angle, QPointF at);
  bool TakesWheel() const;
  /// The surface follows the pointer: with the middle button, or the left one while Space is held.
  enum class Hand { Away, Ready, Dragging };
  void TakeSurface(QPoint at);
  void ShowHand(Hand wanted);
  bool TakeSpace(const QKeyEvent& event);
  bool TakeMenuKey(const QKeyEvent& event);
  void NoteEdge(POINT client);
  void ScrollAtEdge();
  void RepeatMove();
  void OnBarMoved(ScrollBar bar, int value);
  void LoseCapture();
  /// A nested loop is not to sleep before it has seen what has just changed.
  void Stir();
  void FollowButtons(Qt::MouseButtons held);

  QRegion ToPhysical(const QRegion& device) const;
  void RemakePicture();
  void AddInvalid(const QRegion& region);
  bool IsAllInvalid() const;
  void PaintInvalid();
  /// The picture as it is to be seen, at least in a part of the client area.
  const QImage& Shown(const QRegion& part);

  CScrollView* view;
  std::unique_ptr<PartsTeller> teller;
  std::unique_ptr<InPlaceBox> textBox;
  QtFontCache fonts;
  QImage picture;
  QImage composed;   ///< the picture with feedback, where it was last shown
  double scale = 1;  ///< physical pixels of the picture to a device pixel
  QRegion invalid;   ///< device pixels
  QTimer repaintTimer;
  bool redraw = true;
  bool painting = false;

  std::deque<Message> queue;
  bool waiting = false;  ///< inside `NextMessage`
  int handlers = 0;      ///< operations of the view that are running
  bool quitLoop = false;
  bool stirred = false;  ///< since `NextMessage` began to wait

  bool captured = false;
  bool grabbed = false;
  bool pressedHere = false;  ///< Qt sends us the mouse until the button is up
  bool pointerInside = false;
  POINT pointer;
  bool shiftDown = false;
  bool altDown = false;
  Cursor cursor = Cursor::Arrow;
  int zoomRest = 0;
  Hand hand = Hand::Away;
  bool spaceHeld = false;
  bool spaceUsed = false;      ///< as more than a key that was hit
  QPoint taken;                ///< where the pointer took the surface
  POINT takenFrom;             ///< where the surface stood then
  QTimer edgeTimer;            ///< runs while a gesture holds the pointer at the edge
  POINT newest;                ///< the last place of the pointer that came
  bool wasWithinEdge = false;  ///< in this gesture
};

}  // namespace morvane
