#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/ReadableParts.h"

namespace morvane {

class LayoutMgr;
class ReadingOrder;
class Shape;

/// A chart for screen readers: its objects by their ids, so that nobody holds one that is gone. The
/// order is found when somebody asks, and then again only if the chart has changed.
class ChartReading : public ReadableParts {
 public:
  explicit ChartReading(LayoutMgr& view);
  ~ChartReading() override;

  /// Objects have come or gone, or have moved.
  void Forget();

  std::string Name() override;
  const std::vector<Key>& Keys() override;
  bool Has(Key key) override;
  bool Describe(Key key, ReadablePart& part) override;
  Key Current() override;
  Key At(POINT client) override;
  void Choose(Key key) override;
  void ShowMenu(Key key) override;

 private:
  const ReadingOrder& Order();

  LayoutMgr& view;
  std::unique_ptr<ReadingOrder> order;
  std::uint64_t changes = 0;  ///< of the model, when the order was made
  std::vector<Key> keys;
};

}  // namespace morvane
