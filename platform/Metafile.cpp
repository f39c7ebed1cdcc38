#include "drawing/Metafile.h"

void Metafile::MoveBy(POINT offset) {
  for (Record& record : records) {
    record.rect = record.rect + offset;
    for (POINT& p : record.points) p = p + offset;
  }
}
