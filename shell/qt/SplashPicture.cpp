#include "shell/qt/SplashPicture.h"

#include <QtEndian>

namespace morvane {

namespace {

// Places in the file
constexpr int kFileSizeAt = 2;
constexpr int kHeaderSizeAt = 14;
constexpr int kSmallest = kHeaderSizeAt + 4;
constexpr quint32 kCoreHeaderSize = 12;

quint32 DoubleWord(const QByteArray& bytes, int at) {
  return qFromLittleEndian<quint32>(bytes.constData() + at);
}

}  // namespace

QImage ReadSplashPicture(const QByteArray& bytes) {
  const bool isRead = bytes.size() >= kSmallest && bytes.startsWith("BM") &&
                      DoubleWord(bytes, kFileSizeAt) <= static_cast<quint32>(bytes.size()) &&
                      DoubleWord(bytes, kHeaderSizeAt) != kCoreHeaderSize;
  return isRead ? QImage::fromData(bytes, "BMP").convertToFormat(QImage::Format_RGB32) : QImage();
}

}  // namespace morvane
