#pragma once

#include <string>
#include <vector>

#include "generators/CActions.h"
#include "generators/CText.h"
#include "generators/CodeWriter.h"

namespace morvane {

class CNames;
class CodePlan;
struct MachineState;

/// Writes the source of C code. Each text of the chart is a function of its own, each transition
/// another one that leaves, acts and enters, and each state that reacts to events a switch over
/// them, which goes on to the state around it.
class CSourceWriter {
 public:
  CSourceWriter(const Machine& machine, const CodePlan& plan, const CNames& names,
                const EmitOptions& options, const std::string& header, const std::string& file);
  std::string Write();

 private:
  /// Where control goes from a list of transitions that are tried.
  struct Ways {
    const char* taken;     ///< behind one that was taken
    const char* notTaken;  ///< when none was
  };

  /// What parameters and variables are called, so that they hide nothing that the user declares.
  struct Locals {
    explicit Locals(const Machine& machine);

    std::string event = "event";
    std::string state = "state";
    std::string scope = "scope";
    std::string rounds = "rounds";
    std::string context = "context";
  };

  void WriteBeginning();
  void WriteTrace();
  void WriteNameFunction(const std::string& head, const std::vector<std::string>& constants,
                         const std::vector<std::string>& words);
  void WriteTexts();
  void WriteText(const std::string& head, const MachineText& code);
  void WriteGuard(int transition);
  void WriteTransitions();
  void WriteLeave();
  void WriteLand(int state);
  void WriteTake(int transition);
  void WriteReaction(int state);
  void WriteAttempts(const std::vector<int>& transitions, const Ways& ways);
  void WriteSettle();
  void WriteHandle();
  void WriteStep();
  void WriteQueue();
  void WriteStart();
  void WriteDispatch();
  void WriteQueries();
  void WriteIsIn();
  std::string EndCondition() const;
  bool HasHandlers() const;
  std::string Self() const;

  const Machine& machine;
  const CodePlan& plan;
  const CNames& names;
  const EmitOptions& options;
  std::string header;
  Locals locals;
  CodeWriter out;
  CText text;
  CActions actions;
};

}  // namespace morvane
