#pragma once

#include <optional>
#include <string>

#include <QImage>
#include <QWidget>

namespace morvane {

/// A small picture of the chart of a model text, with nothing of the paper around it, at most
/// `size` large at `ratio` physical pixels to a pixel. Nothing for a text that can't be read or
/// takes too long.
std::optional<QImage> MakeThumbnail(const std::string& text, QSize size, double ratio);

/// Shows the small picture of a chart, drawn when it is first seen, or that there is none.
class ChartThumbnail : public QWidget {
 public:
  /// The text has to outlive the widget.
  ChartThumbnail(const std::string& text, QSize size, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const std::string& text;
  bool drawn = false;
  std::optional<QImage> picture;
};

}  // namespace morvane
