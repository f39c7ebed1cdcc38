#pragma once

#include <utility>

namespace morvane {

/// A handle of the system, which is closed with the object. Its type is the one of the system's
/// header, which would bring its macros along.
class SystemHandle {
 public:
  SystemHandle() = default;
  /// Takes an open handle; none for those two values with which calls tell of a failure.
  explicit SystemHandle(void* handle) : handle(IsNone(handle) ? nullptr : handle) {}
  ~SystemHandle() { Close(); }
  SystemHandle(SystemHandle&& other) noexcept : handle(std::exchange(other.handle, nullptr)) {}
  SystemHandle& operator=(SystemHandle&& other) noexcept;

  void* Get() const { return handle; }
  bool IsOpen() const { return handle != nullptr; }
  /// False if the system tells of a failure, also then it is closed.
  bool Close();

 private:
  static bool IsNone(void* handle);

  void* handle = nullptr;
};

}  // namespace morvane
