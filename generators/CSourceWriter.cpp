#include "generators/CSourceWriter.h"

#include <algorithm>

#include "generators/CNames.h"
#include "generators/CodePlan.h"
#include "generators/Emitter.h"
#include "generators/NamePool.h"
#include "machine/Machine.h"

namespace morvane {

namespace {

std::size_t Index(int of) { return static_cast<std::size_t>(of); }

/// The word stands in the code by itself.
bool Mentions(std::string_view code, std::string_view word) {
  const auto isPart = [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
  };
  for (std::size_t at = code.find(word); at != std::string_view::npos;
       at = code.find(word, at + 1)) {
    const std::size_t end = at + word.size();
    if ((at == 0 || !isPart(code[at - 1])) && (end == code.size() || !isPart(code[end]))) {
      return true;
    }
  }
  return false;
}

/// "Listen to SynReceived on Syn, Ack if [guard]"
std::string About(const Machine& machine, int transition) {
  const MachineTransition& about = machine.transitions[Index(transition)];
  const std::string target = machine.states[Index(about.target)].name;
  if (about.isInitial) return "The beginning: " + target;
  std::string text = machine.states[Index(about.source)].name + " to " + target;
  for (std::size_t i = 0; i < about.events.size(); ++i) {
    text += (i == 0 ? " on " : ", ") + machine.events[Index(about.events[i])].name;
  }
  return text;
}

}  // namespace

CSourceWriter::CSourceWriter(const Machine& machine, const CodePlan& plan, const CNames& names,
                             const EmitOptions& options, const std::string& header,
                             const std::string& file)
    : machine(machine),
      plan(plan),
      names(names),
      options(options),
      header(header),
      locals(machine),
      text(out, options, file),
      actions(machine, plan, names, options, out) {}

CSourceWriter::Locals::Locals(const Machine& machine) {
  NamePool pool;
  pool.ReserveFrom(machine.properties.CIncludes);
  pool.ReserveFrom(machine.properties.CDeclarations);
  for (std::string* name : {&event, &state, &scope, &rounds, &context}) *name = pool.Add(*name);
}

std::string CSourceWriter::Self() const { return names.Prefix() + " *self"; }

std::string CSourceWriter::Write() {
  WriteBeginning();
  WriteTrace();
  WriteTexts();
  WriteTransitions();
  for (int i = 0; i < static_cast<int>(machine.states.size()); ++i) {
    if (plan.Handler(i) == i) WriteReaction(i);
  }
  WriteSettle();
  WriteHandle();
  WriteStep();
  WriteQueue();
  WriteStart();
  WriteDispatch();
  WriteQueries();
  return out.Text();
}

void CSourceWriter::WriteBeginning() {
  text.FileComment(machine);
  out.Line("#include \"" + header + '"');
  const bool bounded = plan.HasEventless() || plan.HasCompletion();
  if (bounded || options.debug) out.Gap();
  if (bounded) out.Line("#include <assert.h>");
  if (options.debug) out.Line("#include <stdio.h>");
  text.CodeOutside(machine.properties.CDeclarations, machine.propertyLines.cDeclarations);
  out.Gap();
}

void CSourceWriter::WriteTrace() {
  if (!options.debug) return;
  const std::string trace = names.Macro() + "_TRACE";
  text.Comment("Hears of all that happens.");
  out.Line("#ifndef " + trace);
  out.Line("#define " + trace + "(kind, name) (void)printf(\"%s %s\\n\", (kind), (name))");
  out.Verbatim("#endif");
  out.Gap();
  std::vector<std::string> constants;
  std::vector<std::string> words;
  for (int i = 0; i < static_cast<int>(machine.events.size()); ++i) {
    constants.push_back(names.EventConstant(i));
    words.push_back(machine.events[Index(i)].name);
  }
  WriteNameFunction(
      "static const char *event_name(" + names.Type("Event") + ' ' + locals.event + ')', constants,
      words);
  constants.clear();
  words.clear();
  for (int i = 0; i < static_cast<int>(machine.states.size()); ++i) {
    constants.push_back(names.StateConstant(i));
    words.push_back(machine.states[Index(i)].name);
  }
  WriteNameFunction("const char *" + names.Function("StateName") + '(' + names.Type("State") + ' ' +
                        locals.state + ')',
                    constants, words);
}

void CSourceWriter::WriteNameFunction(const std::string& head,
                                      const std::vector<std::string>& constants,
                                      const std::vector<std::string>& words) {
  const std::size_t blank = head.rfind(' ');
  out.Line(head);
  out.Open("{");
  out.Open("switch (" + head.substr(blank + 1, head.size() - blank - 2) + ") {");
  for (std::size_t i = 0; i < constants.size(); ++i) {
    out.Line("case " + constants[i] + ": return \"" + words[i] + "\";");
  }
  out.Line("default: return \"\";");
  out.Close("}");
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteTexts() {
  for (int i = 0; i < static_cast<int>(machine.states.size()); ++i) {
    const MachineState& state = machine.states[Index(i)];
    if (plan.IsEntered(i)) WriteText(names.Of("entry", i), state.entry);
    if (plan.IsLeft(i)) WriteText(names.Of("exit", i), state.exit);
  }
  for (int i = 0; i < static_cast<int>(machine.transitions.size()); ++i) {
    if (!plan.IsTaken(i)) continue;
    WriteGuard(i);
    WriteText(names.OfTransition("effect", i), machine.transitions[Index(i)].effect);
  }
}

void CSourceWriter::WriteText(const std::string& head, const MachineText& code) {
  if (code.IsEmpty()) return;
  out.Line("static void " + head + '(' + Self() + ')');
  out.Open("{");
  if (!Mentions(code.text, "self")) out.Line("(void)self;");
  text.Code(code);
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteGuard(int transition) {
  const MachineText& guard = machine.transitions[Index(transition)].guard;
  if (guard.IsEmpty()) return;
  out.Line("static bool " + names.OfTransition("guard", transition) + '(' + Self() + ')');
  out.Open("{");
  if (!Mentions(guard.text, "self")) out.Line("(void)self;");
  // A comment may end the line.
  const bool comment = guard.text.find("//") != std::string::npos;
  text.Code({"return (" + guard.text + (comment ? "\n);" : ");"), guard.line});
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteTransitions() {
  WriteLeave();
  for (int i = static_cast<int>(machine.states.size()); i-- > 0;) {
    if (plan.IsLanded(i)) WriteLand(i);
  }
  for (int i = 0; i < static_cast<int>(machine.transitions.size()); ++i) {
    if (plan.IsTaken(i) && !machine.transitions[Index(i)].isInitial) WriteTake(i);
  }
}

void CSourceWriter::WriteLeave() {
  std::vector<int> left;
  for (int i = 0; i < static_cast<int>(machine.states.size()); ++i) {
    if (plan.IsLeftByLoop(i)) left.push_back(i);
  }
  if (left.empty()) return;
  out.Line("/* Leaves what is active inside a scope, the innermost state first. */");
  out.Line("static void machine_leave_to(" + Self() + ", " + names.Type("State") + ' ' +
           locals.scope + ')');
  out.Open("{");
  out.Open("while ((" + names.Type("State") + ")self->state != " + locals.scope + ") {");
  out.Line("switch (self->state) {");
  for (const int state : left) {
    out.Open("case " + names.StateConstant(state) + ':');
    actions.Begin(state);
    actions.Leave(state);
    actions.Sync();
    out.Line("break;");
    out.Outdent();
  }
  out.Open("default:");
  out.Line("return;");
  out.Close("}");
  out.Close("}");
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteLand(int state) {
  const MachineState& composite = machine.states[Index(state)];
  const auto begin = [&] {
    actions.Begin(state);
    if (composite.initial == MachineState::kNone) return;
    actions.Act(composite.initial);
    const MachineTransition& first = machine.transitions[Index(composite.initial)];
    actions.EnterAll(first.entered);
    actions.Land(first.target);
  };
  out.Line("static void " + names.Of("land_in", state) + '(' + Self() + ')');
  out.Open("{");
  if (plan.Remembers(state)) {
    out.Line("switch (self->" + names.Memory(state) + ") {");
    for (const int child : composite.children) {
      out.Open("case " + names.StateConstant(child) + ':');
      actions.Begin(state);
      actions.Enter(child);
      actions.Land(child);
      out.Line("break;");
      out.Outdent();
    }
    out.Open("default:");
    begin();
    out.Line("break;");
    out.Close("}");
  } else {
    begin();
  }
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteTake(int transition) {
  const MachineTransition& taken = machine.transitions[Index(transition)];
  out.Line("/* " + About(machine, transition) + " */");
  out.Line("static void " + names.OfTransition("take", transition) + '(' + Self() + ')');
  out.Open("{");
  const std::size_t begin = out.Text().size();
  if (plan.LeavesByLoop(transition)) {
    actions.LeaveTo(taken.scope);
  } else {
    actions.Begin(taken.source);
    for (const int state : plan.Exits(transition)) actions.Leave(state);
  }
  actions.Act(transition);
  actions.EnterAll(taken.entered);
  actions.Land(taken.target);
  if (!Mentions(std::string_view(out.Text()).substr(begin), "self")) out.Line("(void)self;");
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteAttempts(const std::vector<int>& transitions, const Ways& ways) {
  for (const int transition : transitions) {
    const bool guarded = !machine.transitions[Index(transition)].guard.IsEmpty();
    if (guarded) out.Open("if (" + names.OfTransition("guard", transition) + "(self)) {");
    out.Line(names.OfTransition("take", transition) + "(self);");
    out.Line(ways.taken);
    if (!guarded) return;
    out.Close("}");
  }
  out.Line(ways.notTaken);
}

void CSourceWriter::WriteReaction(int state) {
  const int parent = machine.states[Index(state)].parent;
  const int outer = parent == MachineState::kChart ? parent : plan.Handler(parent);
  out.Line("static bool " + names.Of("react_in", state) + '(' + Self() + ", " +
           names.Type("Event") + ' ' + locals.event + ')');
  out.Open("{");
  out.Line("switch (" + locals.event + ") {");
  for (const CodePlan::Reaction& reaction : plan.Reactions(state)) {
    for (const int event : reaction.events) out.Line("case " + names.EventConstant(event) + ':');
    out.Indent();
    WriteAttempts(reaction.transitions, {"return true;", "break;"});
    out.Outdent();
  }
  out.Open("default:");
  out.Line("break;");
  out.Close("}");
  out.Line(outer == MachineState::kChart
               ? "return false;"
               : "return " + names.Of("react_in", outer) + "(self, " + locals.event + ");");
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteSettle() {
  if (!plan.HasEventless() && !plan.HasCompletion()) return;
  out.Line("/* Takes transitions without an event until none is left. */");
  out.Line("static void machine_settle(" + Self() + ')');
  out.Open("{");
  out.Line("int " + locals.rounds + ';');
  const std::string& rounds = locals.rounds;
  out.Open("for (" + rounds + " = 0; " + rounds + " < 1000; " + rounds + "++) {");
  out.Line("switch (self->state) {");
  for (int i = 0; i < static_cast<int>(machine.states.size()); ++i) {
    const bool completes = plan.Completes(i);
    if (!completes && machine.states[Index(i)].kind != MachineState::Kind::Simple) continue;
    const std::vector<int> tried = plan.Eventless(completes ? machine.states[Index(i)].parent : i);
    if (tried.empty()) continue;
    out.Open("case " + names.StateConstant(i) + ':');
    if (completes) {
      out.Open("if (!self->completed) {");
      out.Line("return;");
      out.Close("}");
      out.Line("self->completed = false;");
    }
    WriteAttempts(tried, {"break;", "return;"});
    out.Outdent();
  }
  out.Open("default:");
  out.Line("return;");
  out.Close("}");
  out.Close("}");
  out.Line("assert(0 && \"the chart does not come to rest\");");
  out.Close("}");
  out.Gap();
}

bool CSourceWriter::HasHandlers() const {
  for (int i = 0; i < static_cast<int>(machine.states.size()); ++i) {
    if (plan.Handler(i) != MachineState::kChart) return true;
  }
  return false;
}

void CSourceWriter::WriteHandle() {
  if (!HasHandlers()) return;
  out.Line("static bool machine_handle(" + Self() + ", " + names.Type("Event") + ' ' +
           locals.event + ')');
  out.Open("{");
  out.Line("switch (self->state) {");
  std::vector<std::vector<int>> byHandler(machine.states.size());
  for (int i = 0; i < static_cast<int>(machine.states.size()); ++i) {
    if (machine.states[Index(i)].kind == MachineState::Kind::Composite) continue;
    const int handler = plan.Handler(i);
    if (handler != MachineState::kChart) byHandler[Index(handler)].push_back(i);
  }
  for (int handler = 0; handler < static_cast<int>(byHandler.size()); ++handler) {
    const std::vector<int>& handled = byHandler[Index(handler)];
    for (const int state : handled) out.Line("case " + names.StateConstant(state) + ':');
    if (handled.empty()) continue;
    out.Indent();
    out.Line("return " + names.Of("react_in", handler) + "(self, " + locals.event + ");");
    out.Outdent();
  }
  out.Open("default:");
  out.Line("return false;");
  out.Close("}");
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteStep() {
  const std::string trace = names.Macro() + "_TRACE";
  out.Line("static void machine_step(" + Self() + ", " + names.Type("Event") + ' ' + locals.event +
           ')');
  out.Open("{");
  if (options.debug) out.Line(trace + "(\"event\", event_name(" + locals.event + "));");
  if (!HasHandlers()) {
    out.Line("(void)self;");
    out.Line(options.debug ? trace + "(\"ignored\", event_name(" + locals.event + "));"
                           : "(void)" + locals.event + ';');
  } else if (options.debug) {
    out.Open("if (!machine_handle(self, " + locals.event + ")) {");
    out.Line(trace + "(\"ignored\", event_name(" + locals.event + "));");
    out.Close("}");
  } else {
    out.Line("(void)machine_handle(self, " + locals.event + ");");
  }
  if (plan.HasEventless() || plan.HasCompletion()) out.Line("machine_settle(self);");
  out.Close("}");
  out.Gap();
}

std::string CSourceWriter::EndCondition() const {
  std::string condition;
  for (const int state : machine.outermost) {
    if (!plan.IsEnd(state)) continue;
    if (!condition.empty()) condition += " || ";
    condition += "self->state == " + names.StateConstant(state);
  }
  return condition;
}

void CSourceWriter::WriteQueue() {
  const std::string size = names.Macro() + "_QUEUE_SIZE";
  const std::string event = names.Type("Event");
  out.Line("static bool machine_wait(" + Self() + ", " + event + ' ' + locals.event + ')');
  out.Open("{");
  out.Verbatim("#if " + size + " > 0");
  out.Open("if (self->count < " + size + ") {");
  out.Line("self->queue[(self->first + self->count) % " + size + "] = (" +
           (machine.events.size() < 256 ? "uint8_t" : "uint16_t") + ')' + locals.event + ';');
  out.Line("self->count++;");
  out.Line("return true;");
  out.Close("}");
  out.Verbatim("#else");
  out.Line("(void)self;");
  out.Line("(void)" + locals.event + ';');
  out.Verbatim("#endif");
  out.Line("return false;");
  out.Close("}");
  out.Gap();
  out.Line("static void machine_handle_waiting(" + Self() + ')');
  out.Open("{");
  out.Verbatim("#if " + size + " > 0");
  out.Open("while (self->count > 0" +
           (plan.HasEnd() ? " && !" + names.Function("IsFinished") + "(self)" : std::string()) +
           ") {");
  out.Line(event + ' ' + locals.event + " = (" + event + ")self->queue[self->first];");
  out.Line("self->first = (uint8_t)((self->first + 1) % " + size + ");");
  out.Line("self->count--;");
  out.Line("machine_step(self, " + locals.event + ");");
  out.Close("}");
  // What waits when the machine ends is dropped.
  if (plan.HasEnd()) out.Line("self->count = 0;");
  out.Verbatim("#else");
  out.Line("(void)self;");
  out.Verbatim("#endif");
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteStart() {
  const std::string none = names.StateConstant(MachineState::kChart);
  out.Line("void " + names.Function("Init") + '(' + Self() + ", " + names.Macro() + "_CONTEXT *" +
           locals.context + ')');
  out.Open("{");
  out.Line("self->context = " + locals.context + ';');
  out.Line("self->state = " + none + ';');
  out.Line("self->busy = false;");
  out.Close("}");
  out.Gap();
  out.Line("void " + names.Function("Start") + '(' + Self() + ')');
  out.Open("{");
  out.Open("if (self->busy) {");
  out.Line("return;");
  out.Close("}");
  out.Line("self->busy = true;");
  out.Line("self->state = " + none + ';');
  if (plan.HasCompletion()) out.Line("self->completed = false;");
  for (int i = 0; i < static_cast<int>(machine.states.size()); ++i) {
    if (plan.Remembers(i)) out.Line("self->" + names.Memory(i) + " = " + none + ';');
  }
  out.Verbatim("#if " + names.Macro() + "_QUEUE_SIZE > 0");
  out.Line("self->first = 0;");
  out.Line("self->count = 0;");
  out.Verbatim("#endif");
  actions.Begin(MachineState::kChart);
  if (machine.initial != MachineState::kNone) {
    const MachineTransition& first = machine.transitions[Index(machine.initial)];
    actions.Act(machine.initial);
    actions.EnterAll(first.entered);
    actions.Land(first.target);
  }
  if (plan.HasEventless() || plan.HasCompletion()) out.Line("machine_settle(self);");
  out.Line("machine_handle_waiting(self);");
  out.Line("self->busy = false;");
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteDispatch() {
  const std::string trace = names.Macro() + "_TRACE";
  out.Line("bool " + names.Function("Dispatch") + '(' + Self() + ", " + names.Type("Event") + ' ' +
           locals.event + ')');
  out.Open("{");
  out.Open("if (self->busy) {");
  out.Line("return machine_wait(self, " + locals.event + ");");
  out.Close("}");
  std::string refused = "self->state == " + names.StateConstant(MachineState::kChart);
  if (plan.HasEnd()) refused += " || " + names.Function("IsFinished") + "(self)";
  out.Open("if (" + refused + ") {");
  if (options.debug) {
    out.Line(trace + "(\"event\", event_name(" + locals.event + "));");
    out.Line(trace + "(\"ignored\", event_name(" + locals.event + "));");
  }
  out.Line("return false;");
  out.Close("}");
  out.Line("self->busy = true;");
  out.Line("machine_step(self, " + locals.event + ");");
  out.Line("machine_handle_waiting(self);");
  out.Line("self->busy = false;");
  out.Line("return true;");
  out.Close("}");
  out.Gap();
}

void CSourceWriter::WriteQueries() {
  const std::string constSelf = "const " + Self();
  const std::string state = names.Type("State");
  out.Line(state + ' ' + names.Function("CurrentState") + '(' + constSelf + ')');
  out.Open("{");
  out.Line("return (" + state + ")self->state;");
  out.Close("}");
  out.Gap();
  WriteIsIn();
  out.Line("bool " + names.Function("IsFinished") + '(' + constSelf + ')');
  out.Open("{");
  if (!plan.HasEnd()) {
    out.Line("(void)self;");
    out.Line("return false;");
  } else {
    out.Line("return " + EndCondition() + ';');
  }
  out.Close("}");
}

void CSourceWriter::WriteIsIn() {
  const std::string state = names.Type("State");
  out.Line("bool " + names.Function("IsIn") + "(const " + Self() + ", " + state + ' ' +
           locals.state + ')');
  out.Open("{");
  out.Line("switch (" + locals.state + ") {");
  for (int i = 0; i < static_cast<int>(machine.states.size()); ++i) {
    if (plan.LastInside(i) == i) continue;
    out.Open("case " + names.StateConstant(i) + ':');
    out.Line("return self->state >= " + names.StateConstant(i) +
             " && self->state <= " + names.StateConstant(plan.LastInside(i)) + ';');
    out.Outdent();
  }
  out.Open("default:");
  out.Line("return (" + state + ")self->state == " + locals.state + ';');
  out.Close("}");
  out.Close("}");
  out.Gap();
}

}  // namespace morvane
