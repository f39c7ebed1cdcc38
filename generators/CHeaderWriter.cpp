#include "generators/CHeaderWriter.h"

#include "generators/CNames.h"
#include "generators/CodePlan.h"
#include "generators/Emitter.h"
#include "machine/Machine.h"

namespace morvane {

namespace {

/// The smallest type that holds so many values and 0.
const char* TypeFor(std::size_t count) { return count < 256 ? "uint8_t" : "uint16_t"; }

}  // namespace

CHeaderWriter::CHeaderWriter(const Machine& machine, const CodePlan& plan, const CNames& names,
                             const EmitOptions& options, const std::string& file)
    : machine(machine), plan(plan), names(names), options(options), text(out, options, file) {}

std::string CHeaderWriter::Write() {
  const std::string guard = names.Macro() + "_H";
  text.FileComment(machine);
  out.Line("#ifndef " + guard);
  out.Line("#define " + guard);
  out.Gap();
  out.Line("#include <stdbool.h>");
  out.Line("#include <stdint.h>");
  text.Includes(machine.properties.CIncludes, machine.propertyLines.cIncludes);
  out.Gap();
  WriteSettings();
  out.Line("#ifdef __cplusplus");
  out.Line("extern \"C\" {");
  out.Line("#endif");
  out.Gap();
  WriteEnums();
  WriteStruct();
  WriteFunctions();
  out.Gap();
  out.Line("#ifdef __cplusplus");
  out.Line("}");
  out.Line("#endif");
  out.Gap();
  out.Line("#endif");
  return out.Text();
}

void CHeaderWriter::WriteSettings() {
  const std::string context = names.Macro() + "_CONTEXT";
  text.Comment("The type of what the code of the chart works on, as self->context.");
  out.Line("#ifndef " + context);
  out.Line("#define " + context + " void");
  out.Line("#endif");
  out.Gap();
  const std::string size = names.Macro() + "_QUEUE_SIZE";
  text.Comment("How many events can wait that the code of the chart sends itself, 0 to 255.");
  out.Line("#ifndef " + size);
  out.Line("#define " + size + " 8");
  out.Line("#endif");
  out.Gap();
}

void CHeaderWriter::WriteEnums() {
  out.Open("typedef enum " + names.Type("Event") + " {");
  for (std::size_t i = 0; i < machine.events.size(); ++i) {
    const bool last = i + 1 == machine.events.size();
    out.Line(names.EventConstant(static_cast<int>(i)) + (last ? "" : ","));
  }
  if (machine.events.empty()) out.Line(names.Type("Event_None"));
  out.Close("} " + names.Type("Event") + ";");
  out.Gap();
  text.Comment("The states, each in front of those inside it.");
  out.Open("typedef enum " + names.Type("State") + " {");
  const int count = static_cast<int>(machine.states.size());
  out.Line(names.StateConstant(MachineState::kChart) + (count > 0 ? "," : ""));
  for (int i = 0; i < count; ++i) out.Line(names.StateConstant(i) + (i + 1 < count ? "," : ""));
  out.Close("} " + names.Type("State") + ";");
  out.Gap();
}

void CHeaderWriter::WriteStruct() {
  const char* state = TypeFor(machine.states.size() + 1);
  text.Comment("A machine. Its members but for the context are its own.");
  out.Open("typedef struct " + names.Prefix() + " {");
  out.Line(names.Macro() + "_CONTEXT *context;");
  out.Line(std::string(state) + " state;");
  for (int i = 0; i < static_cast<int>(machine.states.size()); ++i) {
    if (plan.Remembers(i)) out.Line(std::string(state) + ' ' + names.Memory(i) + ';');
  }
  if (plan.HasCompletion()) out.Line("bool completed;");
  out.Line("bool busy;");
  out.Verbatim("#if " + names.Macro() + "_QUEUE_SIZE > 0");
  out.Line("uint8_t first;");
  out.Line("uint8_t count;");
  out.Line(std::string(TypeFor(machine.events.size())) + " queue[" + names.Macro() +
           "_QUEUE_SIZE];");
  out.Verbatim("#endif");
  out.Close("} " + names.Prefix() + ";");
  out.Gap();
}

void CHeaderWriter::WriteFunctions() {
  const std::string self = names.Prefix() + " *self";
  const std::string constSelf = "const " + self;
  text.Comment("Makes a machine ready to start. The context, which may be null, is not owned.");
  out.Line("void " + names.Function("Init") + '(' + self + ", " + names.Macro() +
           "_CONTEXT *context);");
  out.Gap();
  text.Comment("Enters the initial state. A machine that runs or has ended starts anew.");
  out.Line("void " + names.Function("Start") + '(' + self + ");");
  out.Gap();
  text.Comment(
      "Handles an event. From within the code of the chart it waits until the step at hand is\n"
      "done. False if it is refused: the machine doesn't run, or no more events can wait.");
  out.Line("bool " + names.Function("Dispatch") + '(' + self + ", " + names.Type("Event") +
           " event);");
  out.Gap();
  text.Comment("The innermost active state.");
  out.Line(names.Type("State") + ' ' + names.Function("CurrentState") + '(' + constSelf + ");");
  out.Gap();
  text.Comment("True if the state is active, or one inside it.");
  out.Line("bool " + names.Function("IsIn") + '(' + constSelf + ", " + names.Type("State") +
           " state);");
  out.Gap();
  text.Comment("True once the machine has come to its end.");
  out.Line("bool " + names.Function("IsFinished") + '(' + constSelf + ");");
  if (options.debug) {
    out.Gap();
    text.Comment("The name of a state, as the trace prints it.");
    out.Line("const char *" + names.Function("StateName") + '(' + names.Type("State") + " state);");
  }
}

}  // namespace morvane
