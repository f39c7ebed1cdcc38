#pragma once

#include <string>

#include "generators/CText.h"
#include "generators/CodeWriter.h"

namespace morvane {

class CNames;
class CodePlan;

/// Writes the header of C code: events, states, the struct and the functions that work on it.
class CHeaderWriter {
 public:
  CHeaderWriter(const Machine& machine, const CodePlan& plan, const CNames& names,
                const EmitOptions& options, const std::string& file);
  std::string Write();

 private:
  void WriteSettings();
  void WriteEnums();
  void WriteStruct();
  void WriteFunctions();

  const Machine& machine;
  const CodePlan& plan;
  const CNames& names;
  const EmitOptions& options;
  CodeWriter out;
  CText text;
};

}  // namespace morvane
