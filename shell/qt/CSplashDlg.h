#pragma once

#include <string>

#include <QDialog>
#include <QImage>

namespace morvane {

/// The picture of the program with its version: for a moment at start-up, and as the About box.
class CSplashDlg : public QDialog {
  Q_OBJECT

 public:
  /// The splash of the start goes by itself; an About box is `modal` and goes with a key or a
  /// click. Says so if the picture can't be read.
  explicit CSplashDlg(bool modal, QWidget* parent = nullptr);

  /// The picture was read.
  bool IsLoaded() const { return loaded; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool LoadSplashBitmap(const std::string& path);

  bool modal;
  bool loaded;
  QImage bitmap;
};

}  // namespace morvane
