#pragma once

#include <functional>
#include <list>
#include <string>
#include <vector>

#include "recovery/RecoveryOffer.h"

namespace morvane {

/// What can be recovered at the start of the program, in rows that the user deals with one by one.
/// A row that is done leaves the list; what is left when the list goes stays in the store.
class RecoveryList {
 public:
  struct Row {
    int id = 0;  ///< stays the same while other rows go
    RecoveryOffer offer;

    /// The name of the chart.
    std::string Name() const;
    /// Where its file lies, or that it has none.
    std::string Folder() const;
    /// How much is unsaved.
    std::string Changes() const;
  };
  /// Opens the chart of an offer; false, after a message, when that can't be.
  using Recoverer = std::function<bool(RecoveryOffer& offer)>;

  RecoveryList(std::vector<RecoveryOffer> offers, Recoverer recoverer);

  /// A row stays in its place in memory until it goes.
  const std::list<Row>& Rows() const { return rows; }
  bool Has(int id) const;
  /// What has happened, for the line above the rows.
  const std::string& Heading() const { return heading; }
  /// Where the reports of crashes lie, each path once.
  const std::vector<std::string>& CrashReports() const { return reports; }

  void Recover(int id);
  /// Each row; those that fail stay.
  void RecoverAll();
  /// Writes the chart to a file that the user chooses.
  void SaveAs(int id);
  /// Asks, and lets the unsaved work go.
  void Discard(int id);

 private:
  Row& Find(int id);
  void Remove(int id);

  std::list<Row> rows;
  Recoverer recoverer;
  std::string heading;
  std::vector<std::string> reports;
};

}  // namespace morvane
