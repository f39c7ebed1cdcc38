#pragma once

namespace morvane {

/// The one place from which the program reaches a service of the desktop, so that a test can put
/// its own in. `T` declares `static T& Default()`, which serves until another one is set.
template <class T>
class Service {
 public:
  static T& Get() { return Slot() != nullptr ? *Slot() : T::Default(); }
  /// Sets the service, which has to outlive its use; null goes back to the default. Gives the
  /// former one.
  static T* Set(T* service) {
    T* former = Slot();
    Slot() = service;
    return former;
  }

 private:
  static T*& Slot() {
    static T* slot = nullptr;
    return slot;
  }
};

}  // namespace morvane
