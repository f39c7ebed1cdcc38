#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace morvane {

struct SearchedChart;
class Shape;

/// Which texts of a chart are searched; any number but 0 means yes.
struct LookIn {
  std::int32_t states = 1;  ///< what they do on entry and on exit
  std::int32_t messages = 1;
  std::int32_t names = 0;  ///< of states
  std::int32_t notes = 0;
  std::int32_t properties = 0;
};

/// A piece of a chart with texts that can be searched, a row of what is found. It lives no longer
/// than the chart.
class SearchPlace {
 public:
  SearchPlace() = default;
  virtual ~SearchPlace() = default;
  SearchPlace(const SearchPlace&) = delete;
  SearchPlace& operator=(const SearchPlace&) = delete;

  /// What kind of piece it is, and which one, in the language of the user.
  virtual std::string Kind() const = 0;
  virtual std::string Detail() const = 0;
  /// Who changes a text calls `OnReplaced`.
  virtual std::vector<std::string*> Texts() = 0;
  virtual void OnReplaced() = 0;
  /// Lets the user edit the texts; true if they were taken over.
  virtual bool Edit() = 0;
  /// What shows the texts on the chart; null for what only belongs to it.
  virtual Shape* Object() const { return nullptr; }

  /// All pieces to look in, in the order of the model, the chart's own properties first.
  static std::vector<std::unique_ptr<SearchPlace>> Of(const SearchedChart& chart,
                                                      const LookIn& lookIn);
};

}  // namespace morvane
