#include "persistence/UndoHistory.h"

#include <utility>

void UndoHistory::Push(std::string text) {
  if (!entries.empty()) {
    if (entries[current] == text) return;
    entries.resize(current + 1);
  }
  entries.push_back(std::move(text));
  if (entries.size() > kMaxEntries) entries.erase(entries.begin());
  current = entries.size() - 1;
}

std::string UndoHistory::Undo() {
  if (CanUndo()) --current;
  return entries[current];
}

std::string UndoHistory::Redo() {
  if (CanRedo()) ++current;
  return entries[current];
}
