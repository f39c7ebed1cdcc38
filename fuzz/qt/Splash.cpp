#include "fuzz/FuzzTarget.h"
#include "shell/qt/SplashPicture.h"

namespace morvane {

// The file of the splash picture: every pixel of what is read can be looked at.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = TextOf(data, size);
  const QImage picture = ReadSplashPicture(QByteArray::fromStdString(bytes));
  QRgb seen = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) seen |= picture.pixel(x, y);
  }
  Require(picture.isNull() || bytes.starts_with("BM"), "something else became a picture");
  Require(picture.isNull() || seen != 0, "a picture has no pixel that can be seen");
  return 0;
}

}  // namespace morvane
