#include "tests/support/TestSystem.h"

#include <windows.h>
// Its declarations stand on those of the one above.
#include <tlhelp32.h>

namespace morvane {

std::string DeathBy(int number) { return "0xC000000" + std::to_string(number); }

std::string FullDevice() { return {}; }

bool HasPageReaders() {
  return SearchPathW(nullptr, L"pdftoppm", L".exe", 0, nullptr, nullptr) != 0 &&
         SearchPathW(nullptr, L"pdftotext", L".exe", 0, nullptr, nullptr) != 0;
}

bool HasToolkitPrintDialog() { return false; }

bool HasThaiWords() { return false; }

bool HasFontconfig() { return false; }

bool HasChildren() {
  const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32W process{};
  process.dwSize = sizeof(process);
  bool has = false;
  for (BOOL found = Process32FirstW(all, &process); found != 0;
       found = Process32NextW(all, &process)) {
    has = has || process.th32ParentProcessID == GetCurrentProcessId();
  }
  CloseHandle(all);
  return has;
}

}  // namespace morvane
