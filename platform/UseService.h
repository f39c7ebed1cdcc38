#pragma once

#include "platform/Service.h"

namespace morvane {

/// Has a service in use for as long as it lives, and then the former one again.
template <class T>
class UseService {
 public:
  explicit UseService(T& service) : former(Service<T>::Set(&service)) {}
  ~UseService() { Service<T>::Set(former); }
  UseService(const UseService&) = delete;
  UseService& operator=(const UseService&) = delete;

 private:
  T* former;
};

}  // namespace morvane
