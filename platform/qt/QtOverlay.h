#pragma once

#include <QImage>
#include <QRect>
#include <QRegion>

/// What is drawn on a window to be erased by a second drawing: rubber lines, frames, marks. It is
/// kept beside the picture, so that it survives a repaint of what lies below it. All rectangles are
/// physical pixels.
class QtOverlay {
 public:
  /// The picture of the marks alone: inverting another picture by it shows them there. White leaves
  /// a pixel as it is.
  QImage& Marks(const QSize& size);
  /// Something may have been drawn or erased here.
  void Touch(const QRect& r) { touched |= r; }
  /// Shows the marks on a part of the picture that has been painted afresh.
  void ShowOn(QImage& picture, const QRegion& part);

 private:
  bool IsBlank() const;

  QImage marks;
  QRect touched;
};
