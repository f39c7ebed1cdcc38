#include "model/ModelStream.h"

#include <array>
#include <charconv>
#include <istream>
#include <limits>
#include <ostream>
#include <type_traits>

#include "model/Object.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Traits = std::char_traits<char>;

// Numbers go straight to and from the stream's buffer: a chart is written out after every change,
// and the formatting of the standard streams takes several times as long. Reading accepts what they
// accept, and leaves the stream in the same state.

void Put(std::ostream& out, std::string_view text) {
  const auto size = static_cast<std::streamsize>(text.size());
  if (out.rdbuf()->sputn(text.data(), size) != size) out.setstate(std::ios::badbit);
}

template <class Number>
void PutNumber(std::ostream& out, Number v) {
  std::array<char, 16> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), v);
  Put(out, {text.data(), static_cast<std::size_t>(result.ptr - text.data())});
}

/// An unsigned number with a minus wraps around, as the standard streams have it.
template <class Number>
Number FromMagnitude(std::uint64_t magnitude, bool negative, bool& inRange) {
  constexpr std::uint64_t greatest = std::numeric_limits<Number>::max();
  const bool wraps = std::is_unsigned_v<Number>;
  inRange = magnitude <= greatest + (negative && !wraps ? 1U : 0U);
  if (!inRange) {
    return negative && !wraps ? std::numeric_limits<Number>::min()
                              : std::numeric_limits<Number>::max();
  }
  return static_cast<Number>(negative ? 0 - magnitude : magnitude);
}

template <class Number>
void GetNumber(std::istream& in, Number& v) {
  const std::istream::sentry ready(in);
  if (!ready) return;
  std::streambuf& buffer = *in.rdbuf();
  int c = buffer.sgetc();
  const bool negative = c == '-';
  if (c == '-' || c == '+') c = buffer.snextc();
  constexpr std::uint64_t tooGreat = std::numeric_limits<std::uint32_t>::max();
  std::uint64_t magnitude = 0;
  bool digits = false;
  for (; c >= '0' && c <= '9'; c = buffer.snextc()) {
    digits = true;
    if (magnitude <= tooGreat) magnitude = magnitude * 10 + static_cast<unsigned>(c - '0');
  }
  if (c == Traits::eof()) in.setstate(std::ios::eofbit);
  bool inRange = false;
  v = digits ? FromMagnitude<Number>(magnitude, negative, inRange) : Number{0};
  if (!inRange) in.setstate(std::ios::failbit);
}

}  // namespace

ModelStream& ModelStream::operator<<(std::int32_t v) {
  PutNumber(*output, v);
  return *this;
}

ModelStream& ModelStream::operator<<(std::uint32_t v) {
  PutNumber(*output, v);
  return *this;
}

ModelStream& ModelStream::operator<<(std::string_view text) {
  Put(*output, text);
  return *this;
}

ModelStream& ModelStream::operator<<(char c) {
  Put(*output, {&c, 1});
  return *this;
}

ModelStream& ModelStream::operator>>(std::int16_t& v) {
  GetNumber(*input, v);
  return *this;
}

ModelStream& ModelStream::operator>>(std::uint16_t& v) {
  GetNumber(*input, v);
  return *this;
}

ModelStream& ModelStream::operator>>(std::int32_t& v) {
  GetNumber(*input, v);
  return *this;
}

ModelStream& ModelStream::operator>>(std::uint32_t& v) {
  GetNumber(*input, v);
  return *this;
}

ModelStream& ModelStream::operator>>(bool& v) {
  std::int32_t number = 0;
  GetNumber(*input, number);
  v = number != 0;
  if (number != 0 && number != 1) input->setstate(std::ios::failbit);
  return *this;
}

ModelStream& operator<<(ModelStream& stream, const Object* object) {
  object->Write(stream);
  return stream;
}

ModelStream& operator>>(ModelStream& stream, Object* object) {
  object->Read(stream);
  return stream;
}

void SkipLine(std::istream& in) { in.ignore(std::numeric_limits<std::streamsize>::max(), '\n'); }

std::string ReadLine(std::istream& in) {
  std::string line;
  std::getline(in, line);
  return line;
}

bool HasMore(std::istream& in) { return in.good(); }

void WriteTextBlock(std::ostream& out, const std::string& text, const std::string& beginTag,
                    const std::string& endTag) {
  ModelStream stream(out);
  stream << static_cast<std::uint32_t>(text.size()) << '\n' << beginTag << '\n';
  std::size_t start = 0;
  for (std::size_t end = text.find("\r\n"); end != std::string::npos;
       end = text.find("\r\n", start)) {
    stream << std::string_view(text).substr(start, end - start) << '\n';
    start = end + 2;
  }
  stream << std::string_view(text).substr(start) << '\n' << endTag << '\n';
}

void ReadTextBlock(std::istream& in, std::string& text, const std::string& beginTag,
                   const std::string& endTag) {
  ModelStream stream(in);
  std::uint32_t length = 0;
  stream >> length;
  SkipLine(in);
  std::string line;
  std::getline(in, line);
  if (line != beginTag) throw LoadText(IDS_CORRUPT_FILE);
  constexpr std::string_view lineBreak = "\r\n";
  text.clear();
  for (;;) {
    std::getline(in, line);
    // A line that reads like the end tag can stand in the text: the length tells them apart.
    const std::size_t size = text.empty() ? 0 : text.size() - lineBreak.size();
    if (line == endTag && !in.fail() && size == length) break;
    if (!HasMore(in) || size > length) throw LoadText(IDS_CORRUPT_FILE);
    text += line;
    text += lineBreak;
  }
  if (!text.empty()) text.resize(text.size() - lineBreak.size());
}

}  // namespace morvane
