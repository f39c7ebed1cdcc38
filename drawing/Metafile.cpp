#include "drawing/Metafile.h"

namespace morvane {

void Metafile::MoveBy(POINT offset) {
  for (Record& record : records) {
    record.rect = record.rect + offset;
    for (POINT& p : record.points) p = p + offset;
  }
}

}  // namespace morvane
