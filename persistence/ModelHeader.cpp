#include "persistence/ModelHeader.h"

#include <string_view>

#include "drawing/Decimal.h"
#include "model/ModelStream.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::int32_t kMagic = 9999;
constexpr std::int32_t kMajor = ModelStream::kMajor;
constexpr std::int32_t kMinor = ModelStream::kMinor;

std::string VersionText(double version) {
  constexpr std::string_view place = "%2.1f";
  std::string text = LoadText(IDS_VERSION_FORMAT);
  for (const double number : {double{ModelStream::kSupportedVersion}, version}) {
    const std::size_t at = text.find(place);
    if (at != std::string::npos) text.replace(at, place.size(), Decimal(number, 1));
  }
  return text;
}

}  // namespace

void ModelHeader::Write(ModelStream& stream) {
  stream << kMagic << ' ' << kMajor << ' ' << kMinor << '\n';
}

void ModelHeader::Read(ModelStream& stream) {
  std::int16_t magic = 0;
  std::int16_t major = 0;
  std::int16_t minor = 0;
  stream >> magic >> major >> minor;
  if (magic != kMagic) throw LoadText(IDS_INVALID_MODEL);
  const auto version = static_cast<float>(minor * 0.1 + major);
  if (major > kMajor || (major == kMajor && minor > kMinor)) throw VersionText(version);
  // No chart has ever had one. Taken for an old one it would lose what old charts didn't have.
  if (version < 0) throw LoadText(IDS_CORRUPT_FILE);
  stream.supportedVersion = ModelStream::kSupportedVersion;
  stream.fileVersion = version;
}

}  // namespace morvane
