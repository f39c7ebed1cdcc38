#pragma once

#include <QAbstractScrollArea>

#include "drawing/Geometry.h"
#include "drawing/qt/QtDC.h"
#include "drawing/qt/QtText.h"

namespace morvane {

class Picture;

/// A picture of a chart on white, which can be scrolled and zoomed, with a frame around one place.
class DiffPictureView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  /// The picture has to outlive the window.
  DiffPictureView(const Picture& picture, QWidget* parent);

  void ZoomIn();
  void ZoomOut();
  /// Shows all of the picture, no larger than it is, until another zoom is chosen.
  void Fit();
  /// Frames a place, in logical units of the picture, and scrolls to it; an empty one takes the
  /// frame away.
  void Show(const RECT& place);
  double Zoom() const { return zoom; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void SetZoom(double wanted);
  void UpdateBars();
  QImage Render(const QRect& area);
  QPoint ScrollPosition() const;

  const Picture& picture;
  QtFontCache fonts;
  RECT framed;
  double zoom = 1;
  bool fits = true;
};

}  // namespace morvane
