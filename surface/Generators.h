#pragma once

namespace morvane {

class LayoutMgr;
class ModelProperties;

/// The code generators, as a chart asks for them by this service. The default service has none.
class Generators {
 public:
  virtual ~Generators() = default;
  /// Lets the user edit the texts for the generators; true if they were taken over.
  virtual bool EditProperties(ModelProperties& properties) = 0;
  /// Shows the run of a generator, by the id of its command, on the file of a chart as it was
  /// saved.
  virtual void Run(unsigned command, LayoutMgr& chart) = 0;

  static Generators& Default();
};

}  // namespace morvane
