#include "exchange/XmlSource.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <utility>

#include "drawing/TextCodec.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr unsigned kFlags = pugi::parse_default | pugi::parse_doctype;

enum class ByteOrder { None, Little, Big };

ByteOrder OrderOf(std::string_view bytes) {
  using namespace std::string_view_literals;
  if (bytes.starts_with("\xFF\xFE"sv) || bytes.starts_with("<\0"sv)) return ByteOrder::Little;
  if (bytes.starts_with("\xFE\xFF"sv) || bytes.starts_with("\0<"sv)) return ByteOrder::Big;
  return ByteOrder::None;
}

/// Halves of pairs that stand alone become the sign for what can't be read.
std::string FromUtf16(std::string_view bytes, ByteOrder order) {
  constexpr std::uint32_t unreadable = 0xFFFD;
  constexpr std::uint32_t mark = 0xFEFF;
  const auto unitAt = [&](std::size_t at) -> std::uint32_t {
    const std::uint32_t first = static_cast<unsigned char>(bytes[at]);
    const std::uint32_t second = static_cast<unsigned char>(bytes[at + 1]);
    return order == ByteOrder::Little ? first | second << 8 : first << 8 | second;
  };
  const auto isHalf = [](std::uint32_t unit, std::uint32_t from) {
    return unit >= from && unit < from + 0x400;
  };
  constexpr std::uint32_t high = 0xD800;
  constexpr std::uint32_t low = 0xDC00;
  std::string text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    std::uint32_t value = unitAt(at);
    if (isHalf(value, high) && at + 3 < bytes.size() && isHalf(unitAt(at + 2), low)) {
      at += 2;
      value = 0x10000 + ((value - high) << 10) + (unitAt(at) - low);
    } else if (isHalf(value, high) || isHalf(value, low)) {
      value = unreadable;
    }
    if (value != mark || at > 0) AppendUtf8(text, value);
  }
  return text;
}

std::string Decoded(std::string_view bytes) {
  const ByteOrder order = OrderOf(bytes);
  if (order != ByteOrder::None) return FromUtf16(bytes, order);
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  return ToUtf8(bytes);
}

[[noreturn]] void Fail(int line, const std::string& what) {
  throw Said("line %1: %2", {std::to_string(line), what});
}

std::string ReasonOf(const pugi::xml_parse_result& result) {
  switch (result.status) {
    case pugi::status_end_element_mismatch:
      return Said("The end of an element does not match its beginning");
    case pugi::status_no_document_element: return Said("There is no element");
    case pugi::status_bad_doctype: return Said("The document type cannot be read");
    case pugi::status_bad_attribute: return Said("An attribute cannot be read");
    case pugi::status_bad_comment: return Said("A comment does not end");
    case pugi::status_bad_cdata: return Said("A CDATA section does not end");
    case pugi::status_out_of_memory: return Said("There is not enough memory");
    default: return Said("This is no well-formed XML");
  }
}

/// So much of an element is enough for a person to read.
class LimitedText : public pugi::xml_writer {
 public:
  void write(const void* data, std::size_t size) override {
    constexpr std::size_t most = 100'000;
    if (text.size() >= most) return;
    text.append(static_cast<const char*>(data), size);
    if (text.size() >= most) text += "...";
  }

  std::string text;
};

bool IsNameByte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return std::isalnum(byte) != 0 || c == '_' || c == '-' || c == '.' || c == ':' || byte >= 0x80;
}

}  // namespace

XmlSource::XmlSource(std::string_view bytes) : text(Decoded(bytes)) {
  for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1)) {
    breaks.push_back(at);
  }
  if (text.find_first_not_of(" \t\r\n") == std::string::npos) throw Said("The file is empty");
  const pugi::xml_parse_result result =
      document.load_buffer(text.data(), text.size(), kFlags, pugi::encoding_utf8);
  if (!result)
    Fail(LineAt(static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0))),
         ReasonOf(result));
  root = document.document_element();
  CheckDocumentType();
  CheckEntities();
}

int XmlSource::LineAt(std::size_t offset) const {
  return static_cast<int>(std::ranges::lower_bound(breaks, offset) - breaks.begin()) + 1;
}

int XmlSource::LineOf(const pugi::xml_node& element) const {
  const std::ptrdiff_t offset = element.offset_debug();
  return offset < 0 ? 0 : LineAt(static_cast<std::size_t>(offset));
}

void XmlSource::CheckDocumentType() {
  for (const pugi::xml_node& node : document.children()) {
    if (node.type() != pugi::node_doctype) continue;
    const std::string_view type = node.value();
    const std::size_t start = text.find("<!DOCTYPE");
    const std::size_t entity = type.find("<!ENTITY");
    if (entity != std::string_view::npos) {
      Fail(LineAt(text.find("<!ENTITY", start)), Said("Entities of the file's own are not read"));
    }
    const std::string_view head = type.substr(0, type.find('['));
    const bool isOuter = head.find("SYSTEM") != std::string_view::npos ||
                         head.find("PUBLIC") != std::string_view::npos;
    if (isOuter) outerTypeLine = LineAt(start);
  }
}

/// What looks like a reference to an entity and is none that XML knows. An "&" alone is let pass.
void XmlSource::CheckEntities() const {
  constexpr std::array<std::string_view, 5> known = {"lt", "gt", "amp", "quot", "apos"};
  const std::string_view all = text;
  for (std::size_t at = all.find_first_of("&<"); at != std::string_view::npos;
       at = all.find_first_of("&<", at + 1)) {
    for (const auto& [begin, end] : {std::pair{"<!--", "-->"}, std::pair{"<![CDATA[", "]]>"}}) {
      if (!all.substr(at).starts_with(begin)) continue;
      const std::size_t close = all.find(end, at);
      if (close == std::string_view::npos) return;
      at = close;
    }
    if (all[at] != '&') continue;
    std::size_t end = at + 1;
    while (end < all.size() && IsNameByte(all[end])) ++end;
    const std::string_view name = all.substr(at + 1, end - at - 1);
    if (name.empty() || end >= all.size() || all[end] != ';') continue;
    if (std::ranges::find(known, name) != known.end()) continue;
    Fail(LineAt(at), Said("The entity \"%1\" is not known", {std::string(name)}));
  }
}

std::string XmlSource::Markup(const pugi::xml_node& element) {
  LimitedText out;
  element.print(out, "  ", pugi::format_indent | pugi::format_no_declaration);
  while (!out.text.empty() && out.text.back() == '\n') out.text.pop_back();
  return out.text;
}

}  // namespace morvane
