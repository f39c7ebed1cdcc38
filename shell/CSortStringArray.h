#pragma once

#include <string>
#include <vector>

namespace morvane {

/// Texts that can be put in order without regard to case.
class CSortStringArray {
 public:
  void Add(std::string text) { strings.push_back(std::move(text)); }
  /// Texts that differ in nothing but their case stand in the order of their bytes.
  void SortStrings();
  const std::vector<std::string>& Strings() const { return strings; }

 private:
  std::vector<std::string> strings;
};

}  // namespace morvane
