#include "generators/CText.h"

#include "generators/CodeWriter.h"
#include "generators/CommentText.h"
#include "generators/Emitter.h"
#include "generators/UserCode.h"
#include "machine/Machine.h"
#include "platform/Files.h"

namespace morvane {

namespace {

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

void CText::Comment(std::string_view text) {
  const std::vector<std::string> lines = CommentLines(text, CommentStyle::Block);
  if (lines.size() == 1) {
    out.Line("/** " + lines.front() + " */");
    return;
  }
  out.Line("/**");
  for (const std::string& line : lines) out.Line(line.empty() ? " *" : " * " + line);
  out.Line(" */");
}

void CText::FileComment(const Machine& machine) {
  const ModelProperties& about = machine.properties;
  std::string text = "@file\n" + about.ModelName + '\n';
  if (!CommentLine(about.Description, CommentStyle::Block).empty())
    text += '\n' + about.Description + '\n';
  if (!CommentLine(about.Author, CommentStyle::Block).empty())
    text += "\nAuthor: " + CommentLine(about.Author, CommentStyle::Block) + '\n';
  text += "\nMade from " + FileNameOf(options.modelFile) +
          ". Change the chart and generate this file again: changes made here are lost.\n";
  Comment(text);
}

void CText::LineOfModel(int line) {
  if (options.debug && line > 0) {
    out.Verbatim("#line " + std::to_string(line) + ' ' + Quoted(options.modelFile));
  }
}

void CText::LineOfFile() {
  if (options.debug) {
    out.Verbatim("#line " + std::to_string(out.NextLine() + 1) + ' ' + Quoted(file));
  }
}

void CText::Code(const MachineText& code) {
  LineOfModel(code.line);
  out.Lines(code.text);
  LineOfFile();
}

void CText::CodeOutside(std::string_view code, int line) {
  if (MachineText{std::string(code)}.IsEmpty()) return;
  out.Gap();
  LineOfModel(line);
  out.Verbatim(code);
  LineOfFile();
  out.Gap();
}

void CText::Includes(std::string_view list, int line) { CodeOutside(IncludeLines(list), line); }

}  // namespace morvane
