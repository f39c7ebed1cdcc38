#pragma once

#include <functional>
#include <string>
#include <vector>

namespace morvane {

class ClassWriter;
struct ClassFacts;
struct ClassNames;
struct ClassPlan;
struct EmitOptions;
struct Machine;

/// Writes what stands between the braces of a generated class's operations.
class ClassBodies {
 public:
  ClassBodies(const Machine& machine, const ClassNames& names, const ClassPlan& plan,
              const ClassFacts& facts, const EmitOptions& options)
      : machine(machine), names(names), plan(plan), facts(facts), options(options) {}

  // What users call
  void Start(ClassWriter& out) const;
  void Dispatch(ClassWriter& out) const;
  void IsIn(ClassWriter& out) const;
  void IsFinished(ClassWriter& out) const;
  /// Of the type `State` or `Event`.
  void NameOf(ClassWriter& out, const std::string& type, const std::string& variable) const;

  // Events: one with all that follows, those in the ring, and what the active state makes of one
  void Handle(ClassWriter& out) const;
  void HandleWaiting(ClassWriter& out) const;
  void Enqueue(ClassWriter& out) const;
  void ReactTo(ClassWriter& out) const;
  void React(ClassWriter& out, int state) const;

  // Transitions without an event
  void SettleAll(ClassWriter& out) const;
  void TakeWithoutEvent(ClassWriter& out) const;
  void TryEventless(ClassWriter& out, int state) const;

  // Leaving and entering
  void Take(ClassWriter& out, int transition) const;
  void Resume(ClassWriter& out, int state) const;
  void LeaveUpTo(ClassWriter& out) const;
  void LeaveState(ClassWriter& out) const;
  void ParentOf(ClassWriter& out) const;

 private:
  using Body = std::function<void(ClassWriter&)>;

  /// Everything between the start of a step and its end; what throws doesn't leave it open.
  void Step(ClassWriter& out, const Body& body) const;
  void Row(ClassWriter& out, const std::vector<int>& transitions) const;
  void Land(ClassWriter& out, int state) const;
  void EnterState(ClassWriter& out, int state, bool isLast) const;
  void LeaveOne(ClassWriter& out, int state) const;
  void Trace(ClassWriter& out, const char* kind, const std::string& expression) const;
  void Labels(ClassWriter& out, const char* type, const std::vector<std::string>& constants) const;
  void Default(ClassWriter& out, const std::string& statement) const;
  std::string State(int state) const;
  std::string NoState() const;
  std::string Constant(const char* type, const std::string& name) const;

  const Machine& machine;
  const ClassNames& names;
  const ClassPlan& plan;
  const ClassFacts& facts;
  const EmitOptions& options;
};

}  // namespace morvane
