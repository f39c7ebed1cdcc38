#include "drawing/CMetaFileDC.h"
#include "drawing/EmfWriter.h"
#include "drawing/NullDC.h"

namespace morvane {

std::string MetafileOfARectangle();

std::string MetafileOfARectangle() {
  NullDC reference;
  CMetaFileDC dc(reference);
  dc.Rectangle({10, 20, 110, 80});
  return EmfWriter::Encode(dc.Close(), reference, "Morvane", {});
}

}  // namespace morvane
