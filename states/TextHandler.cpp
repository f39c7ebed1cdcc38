#include "states/TextHandler.h"

namespace morvane {

bool ReplaceInText(std::string& text, const std::string& findText, const std::string& replaceText) {
  if (findText.empty()) return false;
  std::string replaced;
  std::size_t position = 0;
  std::size_t hit = text.find(findText);
  if (hit == std::string::npos) return false;
  for (; hit != std::string::npos; hit = text.find(findText, position)) {
    replaced.append(text, position, hit - position);
    replaced += replaceText;
    position = hit + findText.size();
  }
  replaced.append(text, position);
  text = std::move(replaced);
  return true;
}

}  // namespace morvane
