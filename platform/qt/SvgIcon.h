#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace morvane {

/// The two colours of our pictures, fit for what they are shown on.
struct SvgColours {
  QColor ink;
  QColor accent;
  /// For a ground; on a dark one the ink is that of the text there.
  static SvgColours On(const QColor& ground, const QColor& text);
};

/// Adds a picture of the resources, by its name, to an icon: a square of `side` pixels, crisp at
/// the usual ratios of screens. Without such a picture the icon stays as it is.
void AddSvgPixmaps(QIcon& icon, const QString& name, int side, const SvgColours& colours,
                   QIcon::Mode mode = QIcon::Normal);

}  // namespace morvane
