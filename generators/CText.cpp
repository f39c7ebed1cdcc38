#include "generators/CText.h"

#include <sstream>

#include "generators/CodeWriter.h"
#include "generators/CommentText.h"
#include "generators/Emitter.h"
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

std::string IncludeLine(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t\r");
  if (first == std::string::npos) return {};
  const std::string text = line.substr(first, line.find_last_not_of(" \t\r") + 1 - first);
  if (text.front() == '<' || text.front() == '"') return "#include " + text;
  const bool isName =
      text.find_first_of(" \t;(){}#/*") == std::string::npos && text.find('.') != std::string::npos;
  return isName ? "#include \"" + text + '"' : line;
}

}  // namespace

void CText::Comment(std::string_view text) {
  const std::vector<std::string> lines = CommentLines(text);
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
  if (!CommentLine(about.Description).empty()) text += '\n' + about.Description + '\n';
  if (!CommentLine(about.Author).empty()) text += "\nAuthor: " + CommentLine(about.Author) + '\n';
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

void CText::Includes(std::string_view list, int line) {
  std::string lines;
  std::istringstream in{std::string(list)};
  for (std::string text; std::getline(in, text);) lines += IncludeLine(text) + '\n';
  CodeOutside(lines, line);
}

}  // namespace morvane
