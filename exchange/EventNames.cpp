#include "exchange/EventNames.h"

#include "machine/Identifier.h"

namespace morvane {

namespace {

/// Without what says that others may follow, which goes without saying.
std::string Stem(std::string descriptor) {
  if (descriptor.ends_with(".*")) descriptor.resize(descriptor.size() - 2);
  while (descriptor.ends_with('.')) descriptor.pop_back();
  return descriptor;
}

}  // namespace

EventNames::EventNames(const ScxmlDocument& document) {
  const auto add = [this](const std::string& event) {
    if (!IsAny(event) && !IsDone(event)) known.insert(Stem(event));
  };
  for (const ScxmlTransition& transition : document.transitions) {
    for (const std::string& event : transition.events) add(event);
  }
  for (const std::string& event : document.sent) add(event);
  known.erase("");
}

std::vector<std::string> EventNames::Matching(const std::string& descriptor) const {
  if (IsAny(descriptor)) return {known.begin(), known.end()};
  const std::string stem = Stem(descriptor);
  std::vector<std::string> matching;
  if (known.contains(stem)) matching.push_back(stem);
  const std::string inner = stem + '.';
  for (auto at = known.lower_bound(inner); at != known.end() && at->starts_with(inner); ++at) {
    matching.push_back(*at);
  }
  return matching;
}

std::string EventNames::Written(const std::string& event) {
  if (Identifier::IsAlmostSound(event)) return event;
  const std::string clean = Identifier::Clean(event, 'E');
  return clean.empty() ? "Event" : clean;
}

}  // namespace morvane
