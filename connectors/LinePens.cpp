#include "connectors/LinePens.h"

namespace morvane {

namespace {

template <class Table>
auto EntryOf(const Table& table, std::int32_t index) {
  const auto place = static_cast<std::size_t>(index);
  return table[index >= 0 && place < table.size() ? place : 0];
}

}  // namespace

CPen MakeLinePen(std::int32_t styleIndex, std::int32_t colourIndex) {
  return {EntryOf(kLineStyles, styleIndex), 0, EntryOf(kLineColours, colourIndex)};
}

}  // namespace morvane
