#include "platform/NameBeside.h"

#include <random>
#include <string_view>

namespace morvane {

std::string NameBeside() {
  constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
  constexpr int count = 8;
  std::random_device source;
  std::uniform_int_distribution<std::size_t> any(0, letters.size() - 1);
  std::string name = ".mrv-";
  for (int i = 0; i < count; ++i) name += letters[any(source)];
  return name;
}

}  // namespace morvane
