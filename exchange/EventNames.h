#pragma once

#include <set>
#include <string>
#include <vector>

#include "exchange/ScxmlDocument.h"

namespace morvane {

/// The events of a document, and which of them a descriptor stands for.
class EventNames {
 public:
  explicit EventNames(const ScxmlDocument& document);

  /// The events of the document that a descriptor matches: that name, those that go on with a dot
  /// behind it, or all for "*".
  std::vector<std::string> Matching(const std::string& descriptor) const;
  /// The descriptor stands for any event at all.
  static bool IsAny(const std::string& descriptor) { return descriptor == "*"; }
  /// The event by which the platform says that a state is complete.
  static bool IsDone(const std::string& descriptor) {
    return descriptor.starts_with("done.state.") || descriptor == "done.state";
  }
  /// An event as a message of a chart can name it.
  static std::string Written(const std::string& event);

 private:
  std::set<std::string> known;
};

}  // namespace morvane
