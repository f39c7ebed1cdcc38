#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// What a second start of the program asks of the copy that runs already. Each text may hold any
/// bytes.
struct InstanceRequest {
  std::string file;             ///< absolute path of the chart to open; empty for a new one
  std::string startupId;        ///< lets a window come forward in an X session
  std::string activationToken;  ///< lets a window come forward in a Wayland session

  /// For the start of this process: a relative path begins at its working folder, and the tokens
  /// are those that it was started with.
  static InstanceRequest ForThisStart(const std::string& file);

  /// False for a path that means something in this process only, or has no end.
  bool CanBeSent() const;
  /// The bytes for a connection.
  std::string Encode() const;
  bool operator==(const InstanceRequest&) const = default;
};

/// Puts a request together from the bytes of a connection, in whatever pieces they come.
class InstanceRequestReader {
 public:
  enum class State { Partial, Complete, Damaged };

  /// What is damaged stays so, whatever follows.
  State Add(std::string_view piece);
  /// Of a complete request.
  const InstanceRequest& Request() const { return request; }

 private:
  State Read();

  std::string bytes;
  InstanceRequest request;
  bool damaged = false;
};

}  // namespace morvane
