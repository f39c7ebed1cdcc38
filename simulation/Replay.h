#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "machine/Interpreter.h"
#include "simulation/Run.h"

namespace morvane {

/// A run that was written down: the trace of generated code is followed on the chart, and compared
/// with what the chart would do. Guards are taken as the trace has them. What stands between the
/// lines of the trace, as other output of the program, is passed over.
class Replay : public Run, private Interpreter::Actor {
 public:
  /// The machine has to outlive it.
  explicit Replay(const Machine& machine);

  /// Takes over the next part of a trace, which may end within a line.
  void Feed(std::string_view part);
  /// Nothing more comes for a while: what is known is followed to its end.
  void CatchUp();
  /// Nothing more comes: the last line counts though it has no end.
  void Finish();

  /// Where chart and trace part.
  struct Parting {
    std::size_t textLine = 0;  ///< of the trace, counted from 1
    std::size_t place = 0;     ///< in the run: the line behind it is the first that differs
    std::string found;         ///< in the trace; empty at its end
    std::string expected{};    ///< by the chart; empty for nothing
    bool isUnknown = false;    ///< what was found is no state, transition or event of the chart
  };
  const std::optional<Parting>& Where() const { return parting; }
  /// "line 12: "take 115", but the chart has "take 112""
  std::string PartingText() const;
  std::size_t TextLines() const { return textLine; }

 private:
  struct Wanted {
    TraceLine line;
    std::size_t textLine = 0;
  };

  /// Where chart and trace part.
  bool IsNotable(std::size_t at) const override { return parting && parting->place == at; }
  bool Holds(const MachineTransition& transition) override;
  void Act(const MachineText& /*code*/) override {}
  void Trace(std::string_view kind, std::string_view name) override;

  void TakeLine(std::string_view text);
  void Take(const TraceLine& line);
  void Follow(const Wanted* next);
  void Part(std::size_t at, std::string found, std::string expected);
  bool IsStart(const TraceLine& line) const;

  Interpreter interpreter;
  std::string rest;            ///< a line that has not come to its end
  std::vector<Wanted> wanted;  ///< the lines of the step at hand, as the trace has them
  std::size_t followed = 0;    ///< so many of them the chart has done
  bool isBeyond = false;       ///< the trace doesn't tell, as yet, what the chart does next
  std::size_t textLine = 0;
  std::optional<Parting> parting;
  Interpreter::Position before;  ///< where the step at hand began
  std::size_t linesBefore = 0;
  const Wanted* following = nullptr;  ///< what the trace has behind the step; null for nothing yet
  bool isDropped = false;             ///< the line at hand is too long to be one of a trace
};

}  // namespace morvane
