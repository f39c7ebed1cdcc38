#include "connectors/MetafileStamp.h"

void MetafileStamp::Show(POINT point, CWnd& window) {
  if (!IsActive()) feedback.Show(window, std::exchange(metafile, {}), point);
  feedback.MoveTo(point);
}
