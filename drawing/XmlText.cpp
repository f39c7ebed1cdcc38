#include "drawing/XmlText.h"

namespace morvane {

std::string XmlEscape(std::string_view utf8) {
  std::string out;
  for (const char c : utf8) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default:
        // XML knows no control characters.
        out += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
  }
  return out;
}

}  // namespace morvane
