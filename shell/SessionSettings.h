#pragma once

namespace morvane {

/// What the program opens again of an earlier run when it starts.
enum class Reopen { Never, AfterCrash, Always };

/// The user's settings for the start, in the profile.
class SessionSettings {
 public:
  /// What reopens; after a crash only where the profile says nothing that is known.
  static Reopen Read();
  static void Write(Reopen reopen);
};

}  // namespace morvane
