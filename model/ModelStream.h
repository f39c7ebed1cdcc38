#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

namespace morvane {

class Object;

/// What every `Write` and `Read` receives: a standard text stream and the version of the text. It
/// is made on the stack for one pass and doesn't own the stream.
class ModelStream {
 public:
  /// The version of the format, which the header of a text names.
  static constexpr std::int32_t kMajor = 4;
  static constexpr std::int32_t kMinor = 1;
  static constexpr float kSupportedVersion = kMajor + kMinor * 0.1F;

  explicit ModelStream(std::istream& stream) : input(&stream) {}
  explicit ModelStream(std::ostream& stream) : output(&stream) {}

  std::istream& In() const { return *input; }
  std::ostream& Out() const { return *output; }

  ModelStream& operator<<(std::int32_t v);
  ModelStream& operator<<(std::uint32_t v);
  ModelStream& operator<<(std::string_view text);
  ModelStream& operator<<(char c);
  ModelStream& operator>>(std::int16_t& v);
  ModelStream& operator>>(std::uint16_t& v);
  ModelStream& operator>>(std::int32_t& v);
  ModelStream& operator>>(std::uint32_t& v);
  /// "0" or "1"; anything else puts the stream into the failed state.
  ModelStream& operator>>(bool& v);

  float supportedVersion = 0;  ///< 4.1 once a header has been read
  float fileVersion = 0;       ///< of the text being read, set by the header

 private:
  std::istream* input = nullptr;
  std::ostream* output = nullptr;
};

ModelStream& operator<<(ModelStream& stream, const Object* object);
ModelStream& operator>>(ModelStream& stream, Object* object);

/// Throws the rest of the present line away.
void SkipLine(std::istream& in);
/// Reads a whole line; an empty text when there is none.
std::string ReadLine(std::istream& in);
/// True while the stream gives more; a stream that failed counts as ended.
bool HasMore(std::istream& in);

/// Writes a text of several lines: its length, the begin tag, its lines, the end tag.
void WriteTextBlock(std::ostream& out, const std::string& text, const std::string& beginTag,
                    const std::string& endTag);
/// Reads what `WriteTextBlock` wrote; throws the text for the user when it is damaged.
void ReadTextBlock(std::istream& in, std::string& text, const std::string& beginTag,
                   const std::string& endTag);

}  // namespace morvane
