#pragma once

#include <random>
#include <string>
#include <vector>

namespace morvane {

/// Damages the text of a chart as a disk, a merge or a careless editor does: flipped bytes, a cut,
/// swapped, repeated and lost lines, numbers at the limits. The same seed does the same.
class Mutation {
 public:
  explicit Mutation(unsigned seed) : random(seed) {}

  std::string Damage(std::string text);

 private:
  std::size_t Below(std::size_t limit);
  void Once(std::string& text);
  void FlipBytes(std::string& text);
  void InsertBytes(std::string& text);
  void MoveLines(std::string& text);
  void PutExtremeNumber(std::string& text);

  std::mt19937 random;
};

/// Checks the text of an input, and then what some damages make of it.
template <class Check>
void CheckWithDamages(const std::string& text, const Check& check) {
  constexpr unsigned damages = 20;
  check(text);
  for (unsigned seed = 1; seed <= damages; ++seed) check(Mutation(seed).Damage(text));
}

}  // namespace morvane
