#include "generators/ClassFile.h"

#include <string_view>

#include "generators/ClassFacts.h"
#include "generators/ClassNames.h"
#include "generators/ClassPlan.h"
#include "generators/ClassWriter.h"
#include "generators/CommentText.h"
#include "generators/Emitter.h"
#include "generators/NamePool.h"
#include "generators/UserCode.h"

namespace morvane {

namespace {

constexpr const char* kQueueDoc =
    "How many events may wait that are sent from within an action; 0 is allowed.";
constexpr const char* kQueueSize = "8";
constexpr const char* kMostTaken = "1000";

void Append(std::vector<std::string>& lines, const std::vector<std::string>& more) {
  if (!lines.empty() && !more.empty()) lines.emplace_back();
  lines.insert(lines.end(), more.begin(), more.end());
}

void PlainComment(ClassWriter& out, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) out.Line(line.empty() ? "//" : "// " + line);
  out.Gap();
}

}  // namespace

std::vector<std::string> ClassFile::About() const {
  const CommentStyle style = facts.asciiOnly   ? CommentStyle::Html
                             : facts.hasHeader ? CommentStyle::Line
                                               : CommentStyle::Xml;
  const ModelProperties& properties = machine.properties;
  std::vector<std::string> lines = CommentLines(properties.ModelName, style);
  const std::vector<std::string> author = CommentLines(properties.Author, style);
  if (!author.empty()) lines.push_back("Author: " + author[0]);
  Append(lines, CommentLines(properties.Description, style));
  std::vector<std::string> chart = CommentLines(options.stem, style);
  const std::string from = chart.empty() ? "a chart" : "the chart " + chart[0];
  Append(lines, {"Generated from " + from + "; change that rather than this file."});
  return lines;
}

std::string ClassFile::Package() const {
  std::string package;
  for (const std::string& part : names.package) {
    if (!package.empty()) package += facts.scope;
    package += part;
  }
  return package;
}

std::string ClassFile::Header(const std::string& fileName) const {
  ClassWriter out(facts, options, fileName);
  PlainComment(out, About());
  std::string guard;
  for (const std::string& part : names.package) guard += MacroName(part) + '_';
  guard += names.macro + "_H";
  out.Line("#ifndef " + guard);
  out.Line("#define " + guard);
  out.Gap();
  out.Line("#include <cstddef>");
  out.Line("#include <cstdint>");
  out.Gap();
  const std::string& includes = machine.properties.CppIncludes;
  if (includes.find_first_not_of(" \t\r\n") != std::string::npos) {
    out.UserText(IncludeLines(includes), machine.propertyLines.cppIncludes);
    out.Gap();
  }
  out.Doc(kQueueDoc);
  out.Line("#ifndef " + names.macro + "_QUEUE_SIZE");
  out.Line("#define " + names.macro + "_QUEUE_SIZE " + kQueueSize);
  out.Line("#endif");
  out.Gap();
  const std::string package = Package();
  if (!package.empty()) {
    out.Line("namespace " + package + " {");
    out.Gap();
  }
  out.Doc("The state machine. It allocates nothing and throws nothing.");
  out.Block("class " + names.className);
  out.Outdent();
  out.Line("public:");
  out.Indent();
  Enumerations(out);
  QueueSize(out);
  Declare(out, ClassMember::Access::Public);
  UserMembers(out);
  out.Outdent();
  out.Gap();
  out.Line("private:");
  out.Indent();
  out.Line("// Inline, as the source file alone calls them.");
  Declare(out, ClassMember::Access::Private);
  out.Gap();
  Fields(out);
  out.End(";");
  if (!package.empty()) {
    out.Gap();
    out.Line("}  // namespace " + package);
  }
  out.Gap();
  out.Line("#endif");
  return out.Text();
}

std::string ClassFile::Source(const std::string& fileName, const std::string& headerName) const {
  ClassWriter out(facts, options, fileName);
  PlainComment(out, About());
  out.Line("#include \"" + headerName + '"');
  out.Gap();
  if (plan.settles) out.Line("#include <cassert>");
  if (options.debug) {
    const std::string macro = names.trace;
    if (plan.settles) out.Gap();
    out.Doc(
        "Tells what the machine does: event, exit, take, enter or ignored, and what it is about.");
    out.Line("#ifndef " + macro);
    out.Line("#include <cstdio>");
    out.Line("#define " + macro + "(kind, name) std::printf(\"%s %s\\n\", kind, name)");
    out.Line("#endif");
  }
  out.Gap();
  const std::string package = Package();
  if (!package.empty()) {
    out.Line("namespace " + package + " {");
    out.Gap();
  }
  DefineAll(out, ClassMember::Access::Public);
  DefineAll(out, ClassMember::Access::Private);
  if (!package.empty()) {
    out.Gap();
    out.Line("}  // namespace " + package);
  }
  return out.Text();
}

std::string ClassFile::Whole(const std::string& fileName) const {
  ClassWriter out(facts, options, fileName);
  const std::string package = Package();
  const std::string& declarations = machine.properties.*facts.declarations;
  if (!package.empty() && facts.hasAbstract) {
    out.Line("package " + package + ';');
    out.Gap();
  }
  if (!package.empty() && !facts.hasAbstract) out.Block("namespace " + package);
  out.Doc(About());
  const std::string kind = !facts.hasAbstract                ? "partial class "
                           : HasAbstractMember(declarations) ? "abstract class "
                                                             : "class ";
  out.Block(std::string(facts.publicWord) + kind + names.className);
  Enumerations(out);
  QueueSize(out);
  DefineAll(out, ClassMember::Access::Public);
  UserMembers(out);
  out.Gap();
  Fields(out);
  DefineAll(out, ClassMember::Access::Hook);
  DefineAll(out, ClassMember::Access::Private);
  out.End();
  if (!package.empty() && !facts.hasAbstract) out.End();
  return out.Text();
}

void ClassFile::Enumerations(ClassWriter& out) const {
  const auto head = [this](const char* name, std::size_t count) {
    const std::size_t size = count <= 0x100 ? 0 : count <= 0x10000 ? 1 : 2;
    std::string line = std::string(facts.enumWords) + ' ' + name;
    if (!facts.enumTypes[size].empty()) line += " : " + std::string(facts.enumTypes[size]);
    return line;
  };
  const std::string_view end = facts.hasHeader ? ";" : "";
  out.Doc("What the machine reacts to.");
  out.Block(head("Event", names.events.size()));
  for (const std::string& name : names.events) out.Line(name + ',');
  out.End(end);
  out.Gap();
  out.Doc("Where the machine may be.");
  out.Block(head("State", names.states.size() + 1));
  out.Doc("Before the start.");
  out.Line(names.noState + ',');
  for (const std::string& name : names.states) out.Line(name + ',');
  out.End(end);
}

void ClassFile::QueueSize(ClassWriter& out) const {
  const std::string name(facts.queueSize);
  if (facts.hasHeader) {
    out.Gap();
    out.Doc(kQueueDoc);
    out.Line("static constexpr std::size_t " + name + " = " + names.macro + "_QUEUE_SIZE;");
    return;
  }
  NamePool declared;
  declared.ReserveFrom(machine.properties.*facts.declarations);
  if (declared.IsTaken(name)) return;
  out.Gap();
  out.Doc(std::vector<std::string>{
      kQueueDoc, "A constant of this name in the declarations of the chart replaces it."});
  out.Line((facts.hasAbstract ? "public static final int " : "public const int ") + name + " = " +
           kQueueSize + ';');
}

void ClassFile::Field(ClassWriter& out, const std::string& type, const std::string& name,
                      const std::string& value) const {
  out.Line(std::string(facts.privateWord) + type + ' ' + name + " = " + value + ';');
}

void ClassFile::Fields(ClassWriter& out) const {
  const std::string none = "State" + std::string(facts.scope) + names.noState;
  const std::string count(facts.count);
  const std::string size(facts.queueSize);
  if (plan.settles) {
    const std::string constant = facts.hasHeader     ? "static constexpr int"
                                 : facts.hasAbstract ? "static final int"
                                                     : "const int";
    out.Line("// More transitions without an event in a row mean that the chart goes in circles.");
    Field(out, constant, names.mostTaken, kMostTaken);
    out.Gap();
  }
  Field(out, "State", names.activeState, none);
  for (std::size_t i = 0; i < machine.states.size(); ++i) {
    if (plan.keepsHistory[i]) Field(out, "State", names.history[i], none);
  }
  const std::string boolean(facts.boolean);
  if (plan.anyCompletes) Field(out, boolean, names.completionPending, "false");
  Field(out, boolean, names.inStep, "false");
  if (facts.hasHeader) {
    out.Line("static constexpr std::size_t " + names.slots + " = " + size + " > 0 ? " + size +
             " : 1;");
    out.Line("Event " + names.queue + '[' + names.slots + "] = {};");
  } else {
    Field(out, facts.hasAbstract ? "final Event[]" : "readonly Event[]", names.queue,
          "new Event[" + size + ']');
  }
  Field(out, count, names.queueHead, "0");
  Field(out, count, names.queueLength, "0");
}

void ClassFile::UserMembers(ClassWriter& out) const {
  const std::string& text = machine.properties.*facts.declarations;
  if (text.find_first_not_of(" \t\r\n") == std::string::npos) return;
  out.Gap();
  if (facts.hasHeader) {
    out.Outdent();
    out.Line("public:");
    out.Indent();
  }
  out.Line("// Declared in the chart");
  out.UserText(text, machine.propertyLines.*facts.declarationsLine);
}

std::string ClassFile::Signature(const ClassMember& member, bool isDeclaration) const {
  std::string line;
  if (facts.hasHeader) {
    const bool isNested = member.type == "State";
    if (isDeclaration && member.isStatic) line = "static ";
    if (isDeclaration && member.access == ClassMember::Access::Private) line += "inline ";
    line += !isDeclaration && isNested ? names.className + "::State" : member.type;
    line += isDeclaration ? " " : ' ' + names.className + "::";
  } else {
    using Access = ClassMember::Access;
    line = member.access == Access::Hook     ? facts.hookWords
           : member.access == Access::Public ? facts.publicWord
                                             : facts.privateWord;
    if (member.isStatic) line += "static ";
    line += member.type + ' ';
  }
  line += member.name + '(' + member.parameterType;
  const std::string& parameter =
      member.parameter.empty() && !facts.hasHeader && !member.parameterType.empty()
          ? names.event
          : member.parameter;
  if (!member.parameterType.empty() && !parameter.empty()) line += ' ';
  line += parameter + ')';
  return member.isConst && facts.hasHeader ? line + " const" : line;
}

void ClassFile::Declare(ClassWriter& out, ClassMember::Access access) const {
  for (const ClassMember& member : members) {
    if (member.access != access) continue;
    if (access == ClassMember::Access::Public) out.Gap();
    out.Doc(member.doc);
    out.Line(Signature(member, true) + ';');
  }
}

void ClassFile::Define(ClassWriter& out, const ClassMember& member) const {
  out.Gap();
  if (!facts.hasHeader) out.Doc(member.doc);
  out.Block(Signature(member, false));
  member.body(out);
  out.End();
}

void ClassFile::DefineAll(ClassWriter& out, ClassMember::Access access) const {
  for (const ClassMember& member : members) {
    if (member.access == access) Define(out, member);
  }
}

}  // namespace morvane
