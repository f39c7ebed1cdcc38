#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// Something wrong with a chart, and where.
struct Problem {
  enum class Severity { Error, Warning };
  /// What puts it right, where that is plain.
  enum class Remedy { None, AddInitialState, AttachEnds, MakeNameUnique, DeleteMessage };

  Severity severity = Severity::Error;
  std::int32_t id = 0;  ///< of the object; 0 if it is none of one object
  int line = 0;         ///< of the model file, counted from 1; 0 if unknown
  /// In the language of the user; begins with the object: GenericState 105 "Listen" overlaps ...
  std::string message;
  /// How the message names the object; empty if it is none of one object.
  std::string object{};
  /// What the message says of the object; empty if it is none of one object.
  std::string complaint{};
  Remedy remedy = Remedy::None;

  friend bool operator==(const Problem&, const Problem&) = default;
};

bool HasErrors(const std::vector<Problem>& problems);

/// One line without its end: FILE:LINE: error: MESSAGE. Without a line that part is left out.
std::string FormatProblem(std::string_view file, const Problem& problem);

/// "2 errors, 1 warning"; what there is none of is left out, and without either it is empty.
std::string SummaryOf(const std::vector<Problem>& problems);

}  // namespace morvane
