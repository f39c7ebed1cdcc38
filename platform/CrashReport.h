#pragma once

#include <string>

namespace morvane {

/// Writes why the program died, for whoever looks into it: version, signal, and the calls that led
/// there where the system tells. Nothing else is done at that moment: what the user drew stands in
/// the recovery store already.
class CrashReport {
 public:
  /// From now on a fatal signal is reported in the file at `path`, and then does what it always
  /// does. Exceptions that nobody catches end in such a signal.
  static void Install(const std::string& path, const std::string& version);
};

}  // namespace morvane
