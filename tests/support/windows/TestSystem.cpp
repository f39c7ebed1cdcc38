#include "tests/support/TestSystem.h"

#include <windows.h>

namespace morvane {

int DeathBy(int number) {
  constexpr unsigned exception = 0xC0000000;
  return static_cast<int>(exception | static_cast<unsigned>(number));
}

std::string FullDevice() { return {}; }

bool HasPageReaders() {
  return SearchPathW(nullptr, L"pdftoppm", L".exe", 0, nullptr, nullptr) != 0 &&
         SearchPathW(nullptr, L"pdftotext", L".exe", 0, nullptr, nullptr) != 0;
}

bool HasToolkitPrintDialog() { return false; }

bool HasThaiWords() { return false; }

bool HasFontconfig() { return false; }

}  // namespace morvane
