#include "fuzz/StepBook.h"

#include <algorithm>
#include <utility>

#include "persistence/UndoHistory.h"

namespace morvane {

std::string StepBook::WithoutZoom(const std::string& modelText) {
  const std::size_t header = std::min(modelText.find('\n'), modelText.size());
  const std::size_t zoom = std::min(modelText.find('\n', header + 1), modelText.size());
  return modelText.substr(0, header) + modelText.substr(zoom);
}

bool StepBook::Note(const std::string& modelText) {
  std::string text = WithoutZoom(modelText);
  if (!steps.empty()) {
    if (steps[current] == text) return false;
    steps.resize(current + 1);
  }
  steps.push_back(std::move(text));
  if (steps.size() > UndoHistory::kMaxEntries) steps.erase(steps.begin());
  current = steps.size() - 1;
  return true;
}

}  // namespace morvane
