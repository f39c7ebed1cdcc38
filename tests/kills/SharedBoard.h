#pragma once

#include <cstddef>
#include <new>
#include <sys/mman.h>

namespace morvane {

/// A value that a process and the child that it kills both see; what the child wrote stays.
template <class T>
class SharedBoard {
 public:
  SharedBoard()
      : value(new (mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1,
                        0)) T()) {}
  ~SharedBoard() { munmap(value, sizeof(T)); }
  SharedBoard(const SharedBoard&) = delete;
  SharedBoard& operator=(const SharedBoard&) = delete;

  T* operator->() const { return value; }
  T& operator*() const { return *value; }

 private:
  T* value;
};

}  // namespace morvane
