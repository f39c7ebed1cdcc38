#pragma once

#include <functional>
#include <string>
#include <vector>

#include "generators/ClassMember.h"

namespace morvane {

struct ClassFacts;
struct ClassNames;
struct ClassPlan;
struct EmitOptions;
struct Machine;

/// Makes the operations of a generated class. They use it, and what it is given, when they are
/// written.
class ClassMembers {
 public:
  ClassMembers(const Machine& machine, const ClassNames& names, const ClassPlan& plan,
               const ClassFacts& facts, const EmitOptions& options)
      : machine(machine), names(names), plan(plan), facts(facts), options(options) {}

  /// All of them, in the order in which they stand in the class.
  std::vector<ClassMember> Make();

 private:
  using Body = std::function<void(ClassWriter&)>;

  void Public();
  void Debug();
  void Steps();
  void Reactions();
  void Settling();
  void Landing();
  void Leaving();
  void Texts();

  void Add(std::string doc, std::string type, std::string name, Body body);
  void AddOn(const char* type, const std::string& variable);

  void StartBody(ClassWriter& out) const;
  void DispatchBody(ClassWriter& out) const;
  void FinishedBody(ClassWriter& out) const;
  void IsInBody(ClassWriter& out) const;
  void HandleBody(ClassWriter& out) const;
  void HandleWaitingBody(ClassWriter& out) const;
  void EnqueueBody(ClassWriter& out) const;
  void ReactBody(ClassWriter& out) const;
  void RowsBody(ClassWriter& out, int state) const;
  void SettleBody(ClassWriter& out) const;
  void WithoutEventBody(ClassWriter& out) const;
  void TakeBody(ClassWriter& out, int transition) const;
  void ResumeBody(ClassWriter& out, int state) const;
  void LeaveUpToBody(ClassWriter& out) const;
  void LeaveStateBody(ClassWriter& out) const;
  void ParentOfBody(ClassWriter& out) const;
  void NameBody(ClassWriter& out, const std::string& type, const std::string& variable) const;

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
  std::string Route(int transition) const;

  const Machine& machine;
  const ClassNames& names;
  const ClassPlan& plan;
  const ClassFacts& facts;
  const EmitOptions& options;
  std::vector<ClassMember> members;
};

}  // namespace morvane
