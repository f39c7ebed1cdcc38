#include "connectors/MetafileStamp.h"

namespace morvane {

void MetafileStamp::Show(POINT point, CWnd& window) {
  if (!IsActive()) feedback.Show(window, std::exchange(metafile, {}), point);
  feedback.MoveTo(point);
}

}  // namespace morvane
