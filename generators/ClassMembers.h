#pragma once

#include <functional>
#include <string>
#include <vector>

#include "generators/ClassBodies.h"
#include "generators/ClassMember.h"

namespace morvane {

/// Makes the operations of a generated class. They use it, and what it is given, when they are
/// written.
class ClassMembers {
 public:
  ClassMembers(const Machine& machine, const ClassNames& names, const ClassPlan& plan,
               const ClassFacts& facts, const EmitOptions& options)
      : machine(machine),
        names(names),
        plan(plan),
        facts(facts),
        options(options),
        bodies(machine, names, plan, facts, options) {}

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
  std::string Route(int transition) const;

  const Machine& machine;
  const ClassNames& names;
  const ClassPlan& plan;
  const ClassFacts& facts;
  const EmitOptions& options;
  ClassBodies bodies;
  std::vector<ClassMember> members;
};

}  // namespace morvane
