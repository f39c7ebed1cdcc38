#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "recovery/RecoveryOffer.h"

/// The unsaved work that an earlier run left behind, as the user goes through it. What is done is
/// off the list; what is left when the list goes stays in the store for the next start.
class RecoveryList {
 public:
  /// Opens the chart of an offer; false, after a message, when that can't be done.
  using Opener = std::function<bool(RecoveryOffer& offer)>;

  RecoveryList(std::vector<RecoveryOffer> offers, Opener open);

  const std::vector<RecoveryOffer>& Offers() const { return offers; }
  /// The path of the latest crash report; empty if there is none.
  std::string CrashReport() const;

  // What the user decides for an offer; true when it is off the list then.
  bool Recover(std::size_t index);
  /// Asks for a path and writes the chart there.
  bool SaveAs(std::size_t index);
  /// Takes the work away for good, after a question.
  bool Discard(std::size_t index);

  /// The name of the chart, and the folder of its file or an empty text.
  static std::string NameOf(const RecoveryOffer& offer);
  static std::string PlaceOf(const RecoveryOffer& offer);
  /// The picture of the chart as SVG; empty where the text can't be read, shows nothing, or would
  /// take long to draw.
  static std::string PictureOf(const RecoveryOffer& offer);

 private:
  bool TakeOff(std::size_t index);

  std::vector<RecoveryOffer> offers;
  Opener open;
};
