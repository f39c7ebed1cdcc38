#include "shell/InstanceRequest.h"

#include <array>
#include <cstdint>
#include <cstdlib>

#include "platform/FileSystem.h"

namespace morvane {

namespace {

/// The mark of a request, behind which its texts follow, each behind its length in four bytes with
/// the highest first.
constexpr std::string_view kMark = "Morvane start 1\n";
constexpr std::size_t kLengthBytes = 4;
constexpr unsigned kByteBits = 8;
/// Longer than any path that a system takes.
constexpr std::size_t kLongestText = 0x10000;

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::array<std::string*, 3> TextsOf(InstanceRequest& request) {
  return {&request.file, &request.startupId, &request.activationToken};
}

void AppendText(std::string& bytes, const std::string& text) {
  for (std::size_t i = kLengthBytes; i-- > 0;) {
    bytes += static_cast<char>(text.size() >> (i * kByteBits));
  }
  bytes += text;
}

std::size_t LengthAt(std::string_view bytes) {
  std::size_t length = 0;
  for (const char c : bytes.substr(0, kLengthBytes)) {
    length = length << kByteBits | static_cast<unsigned char>(c);
  }
  return length;
}

}  // namespace

InstanceRequest InstanceRequest::ForThisStart(const std::string& file) {
  InstanceRequest request{file, Variable("DESKTOP_STARTUP_ID"), Variable("XDG_ACTIVATION_TOKEN")};
  if (!file.empty()) request.file = AbsolutePath(file);
  return request;
}

bool InstanceRequest::CanBeSent() const {
  const bool hasEnd = file.size() <= kLongestText && startupId.size() <= kLongestText &&
                      activationToken.size() <= kLongestText;
  return hasEnd && (file.empty() || IsAbsolute(file));
}

std::string InstanceRequest::Encode() const {
  std::string bytes(kMark);
  for (const std::string* text : {&file, &startupId, &activationToken}) AppendText(bytes, *text);
  return bytes;
}

InstanceRequestReader::State InstanceRequestReader::Add(std::string_view piece) {
  if (damaged) return State::Damaged;
  bytes += piece;
  const State state = Read();
  damaged = state == State::Damaged;
  if (damaged) bytes.clear();
  return state;
}

InstanceRequestReader::State InstanceRequestReader::Read() {
  std::string_view rest = bytes;
  if (rest.substr(0, kMark.size()) != kMark.substr(0, rest.size())) return State::Damaged;
  if (rest.size() < kMark.size()) return State::Partial;
  rest.remove_prefix(kMark.size());
  for (std::string* text : TextsOf(request)) {
    if (rest.size() < kLengthBytes) return State::Partial;
    const std::size_t length = LengthAt(rest);
    if (length > kLongestText) return State::Damaged;
    rest.remove_prefix(kLengthBytes);
    if (rest.size() < length) return State::Partial;
    *text = rest.substr(0, length);
    rest.remove_prefix(length);
  }
  return rest.empty() ? State::Complete : State::Damaged;
}

}  // namespace morvane
