#pragma once

class QPrinter;

namespace morvane {

/// What is kept of a printer for the next time: which one, its paper, orientation and margins, and
/// whether pages go to a file.
class PrinterSettings {
 public:
  /// Sets a printer up as it was; what is no longer there stays as it is.
  static void Restore(QPrinter& printer);
  static void Store(const QPrinter& printer);
};

}  // namespace morvane
