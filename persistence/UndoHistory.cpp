#include "persistence/UndoHistory.h"

#include <utility>

namespace morvane {

SharedText UndoHistory::At(std::size_t index) const {
  return index < entries.size() ? entries[index] : nullptr;
}

void UndoHistory::Push(std::string text) {
  if (!entries.empty()) {
    if (*entries[current] == text) return;
    entries.resize(current + 1);
  }
  entries.push_back(std::make_shared<const std::string>(std::move(text)));
  if (entries.size() > kMaxEntries) entries.erase(entries.begin());
  current = entries.size() - 1;
}

void UndoHistory::Amend(std::string text) {
  if (entries.empty()) {
    Push(std::move(text));
  } else if (*entries[current] != text) {
    entries[current] = std::make_shared<const std::string>(std::move(text));
  }
}

void UndoHistory::StepBack() {
  if (CanUndo()) --current;
}

void UndoHistory::StepForward() {
  if (CanRedo()) ++current;
}

}  // namespace morvane
