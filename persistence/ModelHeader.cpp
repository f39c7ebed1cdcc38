#include "persistence/ModelHeader.h"

#include <array>
#include <cstdio>

#include "persistence/ModelStream.h"
#include "resources/Texts.h"

namespace {

constexpr std::int32_t kMagic = 9999;
constexpr std::int32_t kMajor = 4;
constexpr std::int32_t kMinor = 1;

std::string VersionText(double version) {
  std::array<char, 256> text{};
  const std::string format = LoadText(IDS_VERSION_FORMAT);
  // The format comes from the program's own texts and takes two floating-point numbers.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  std::snprintf(text.data(), text.size(), format.c_str(),
                static_cast<double>(ModelStream::kSupportedVersion), version);
#pragma GCC diagnostic pop
  return text.data();
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
  stream.supportedVersion = ModelStream::kSupportedVersion;
  stream.fileVersion = version;
}
