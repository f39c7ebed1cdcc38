#pragma once

#include <string>
#include <vector>

#include "generators/ClassMember.h"

namespace morvane {

class ClassWriter;
struct ClassFacts;
struct ClassNames;
struct ClassPlan;
struct EmitOptions;
struct Machine;

/// Lays the members of a generated class out in files.
class ClassFile {
 public:
  ClassFile(const Machine& machine, const ClassNames& names, const ClassPlan& plan,
            const ClassFacts& facts, const EmitOptions& options,
            const std::vector<ClassMember>& members)
      : machine(machine),
        names(names),
        plan(plan),
        facts(facts),
        options(options),
        members(members) {}

  /// Declarations alone, for a language that has them apart.
  std::string Header(const std::string& fileName) const;
  /// Definitions to the declarations in `headerName`.
  std::string Source(const std::string& fileName, const std::string& headerName) const;
  /// The whole class.
  std::string Whole(const std::string& fileName) const;

 private:
  std::vector<std::string> About() const;
  void Enumerations(ClassWriter& out) const;
  void QueueSize(ClassWriter& out) const;
  void Fields(ClassWriter& out) const;
  void Field(ClassWriter& out, const std::string& type, const std::string& name,
             const std::string& value) const;
  void UserMembers(ClassWriter& out) const;
  void Declare(ClassWriter& out, ClassMember::Access access) const;
  void Define(ClassWriter& out, const ClassMember& member) const;
  void DefineAll(ClassWriter& out, ClassMember::Access access) const;
  std::string Signature(const ClassMember& member, bool isDeclaration) const;
  std::string Package() const;

  const Machine& machine;
  const ClassNames& names;
  const ClassPlan& plan;
  const ClassFacts& facts;
  const EmitOptions& options;
  const std::vector<ClassMember>& members;
};

}  // namespace morvane
