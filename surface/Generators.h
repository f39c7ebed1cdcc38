#pragma once

#include <string>

namespace morvane {

class ModelProperties;

/// The code generators, as a chart asks for them by this service. The default service has none.
class Generators {
 public:
  virtual ~Generators() = default;
  /// Lets the user edit the texts for the generators; true if they were taken over.
  virtual bool EditProperties(ModelProperties& properties) = 0;
  /// Shows the run of a generator, by the id of its command, on the chart's file as it was saved.
  virtual void Run(unsigned command, const std::string& path) = 0;

  static Generators& Default();
};

}  // namespace morvane
