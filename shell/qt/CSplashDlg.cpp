#include "shell/qt/CSplashDlg.h"

#include <QPainter>
#include <QScreen>
#include <QTimer>

#include "drawing/qt/QtText.h"
#include "platform/Files.h"
#include "platform/InstallFolder.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"
#include "resources/Version.h"
#include "shell/qt/SplashPicture.h"

namespace morvane {

namespace {

constexpr QSize kSize(387, 242);
constexpr QPoint kVersionPlace(270, 150);
constexpr int kShowMilliseconds = 800;
constexpr const char* kPicture = "bin/_sp.mo";

Qt::WindowFlags FlagsOf(bool modal) {
  return modal ? Qt::Dialog | Qt::FramelessWindowHint
               : Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
}

}  // namespace

CSplashDlg::CSplashDlg(bool modal, QWidget* parent)
    : QDialog(parent, FlagsOf(modal)), modal(modal) {
  setFixedSize(kSize);
  setWindowTitle("Morvane");
  const QRect room = parent != nullptr ? parent->frameGeometry() : screen()->availableGeometry();
  move(room.center() - rect().center());
  loaded = LoadSplashBitmap(FindPath(GetInstallFolder() + kPicture));
  if (!loaded) ShowMessage(LoadText(IDS_SPLASH_CORRUPT));
  if (loaded && !modal) QTimer::singleShot(kShowMilliseconds, this, &QDialog::close);
}

bool CSplashDlg::LoadSplashBitmap(const std::string& path) {
  std::string bytes;
  if (!ReadWholeFile(path, bytes).Ok()) return false;
  bitmap = ReadSplashPicture(QByteArray::fromStdString(bytes));
  return !bitmap.isNull();
}

void CSplashDlg::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (loaded) painter.drawImage(0, 0, bitmap);
  painter.setPen(Qt::black);
  const QString version = ToQString(LoadText(IDS_VERSION)) + ' ' + kProductVersion;
  painter.drawText(kVersionPlace + QPoint(0, painter.fontMetrics().ascent()), version);
}

void CSplashDlg::mousePressEvent(QMouseEvent*) {
  if (modal) accept();
}

void CSplashDlg::keyPressEvent(QKeyEvent*) {
  if (modal) accept();
}

}  // namespace morvane
