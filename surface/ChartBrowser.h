#pragma once

#include "model/ObjectBrowser.h"

namespace morvane {

class LayoutMgr;

/// The tree beside a chart, which shows one view after the other.
class ChartBrowser : public ObjectBrowser {
 public:
  /// Shows the chart of a view from now on.
  virtual void Attach(LayoutMgr* view) = 0;
};

}  // namespace morvane
