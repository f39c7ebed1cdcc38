#pragma once

#include <QByteArray>
#include <QImage>

namespace morvane {

/// The picture in the bytes of a bitmap file; a null image if they are none, or of the old kind
/// with the core header, or fewer than the file says of itself.
QImage ReadSplashPicture(const QByteArray& bytes);

}  // namespace morvane
