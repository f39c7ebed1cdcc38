#pragma once

#include <chrono>

#include <QString>

namespace morvane {

/// Where the starts of a program by one user on one display find each other.
struct InstancePlace {
  QString folder;  ///< open to the user alone; empty where there is none
  QString name;
  /// A copy that runs answers at once, in a dialog too; one that doesn't in this time hangs.
  std::chrono::milliseconds answerTime = std::chrono::seconds(2);

  /// A folder of the user's own, as the system has it for such things.
  static InstancePlace Default();
};

// A link in that place leads to the server of the copy that runs, which has a name of its own.

/// The name of the server; empty if there is no link.
QString LinkTarget(const QString& link);
/// Turns the link to another server in one step.
bool TurnLink(const QString& link, const QString& target);
/// A new name for a server of this process.
QString OwnServer(const QString& link);

}  // namespace morvane
