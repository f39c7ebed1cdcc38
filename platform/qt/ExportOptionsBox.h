#pragma once

#include <QWidget>

#include "platform/PictureOptions.h"

class QCheckBox;
class QSpinBox;

namespace morvane {

/// What a user may choose about a picture, as fields below a file dialog.
class ExportOptionsBox : public QWidget {
 public:
  /// Starts from `options`; the selection is offered only where there is one.
  ExportOptionsBox(const PictureOptions& options, bool hasSelection, QWidget* parent);

  /// Not every kind of picture has a ground that can be left out.
  void OfferTransparency(bool offered);
  PictureOptions Options() const;

 private:
  QSpinBox* scale;  ///< per cent
  QCheckBox* transparent;
  QCheckBox* trimmed;
  QSpinBox* margin;
  QCheckBox* selectionOnly;
};

}  // namespace morvane
