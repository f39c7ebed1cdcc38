#pragma once

#include <string>
#include <vector>

#include "review/DescribedObject.h"

namespace morvane {

/// What a model text stores, object by object. What has no meaning to a reader is not in it: the
/// order of the objects, zoom and version.
struct ChartDescription {
  std::vector<DescribedObject> objects;  ///< by id, those of one id by class
  std::vector<Fact> properties;

  /// Reads a model text with LF between the lines; an empty one is a new chart. Gives the reason
  /// that opening it would show, empty on success.
  static std::string Read(const std::string& text, ChartDescription& description);
  /// The bytes of a chart's file with LF between the lines. Version control names a chart that is
  /// not there "/dev/null", whose text is empty. Gives the reason of a failure, empty on success.
  static std::string ReadText(const std::string& path, std::string& text);
  /// Reads a file.
  static std::string Load(const std::string& path, ChartDescription& description);
};

}  // namespace morvane
