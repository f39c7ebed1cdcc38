#include "generators/ClassWriter.h"

#include "generators/ClassFacts.h"
#include "generators/Emitter.h"
#include "generators/UserCode.h"

namespace morvane {

namespace {

/// A path between quotes, for a line directive.
std::string Quoted(std::string_view path, bool escaped) {
  std::string quoted = "\"";
  for (const char c : path) {
    const bool special = c == '"' || c == '\\';
    if (static_cast<unsigned char>(c) < ' ' || (c == '"' && !escaped)) continue;
    if (special && escaped) quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

ClassWriter::ClassWriter(const ClassFacts& facts, const EmitOptions& options, std::string fileName)
    : facts(facts), options(options), fileName(std::move(fileName)) {}

void ClassWriter::Block(const std::string& head) {
  if (facts.bracesOnLines) {
    Line(head);
    code.Open("{");
  } else {
    code.Open(head + " {");
  }
}

void ClassWriter::End(std::string_view behind) { code.Close('}' + std::string(behind)); }

void ClassWriter::EndAndBlock(const std::string& head) {
  if (facts.bracesOnLines) {
    End();
    Block(head);
  } else {
    code.Reopen("} " + head + " {");
  }
}

void ClassWriter::Doc(const std::vector<std::string>& lines) {
  if (lines.empty()) return;
  // What stands alone needs no lines of its own for the ends.
  const bool brief = lines.size() == 1 && !facts.docEnd.empty();
  if (brief) {
    const bool isTag = facts.docBegin.ends_with('>');
    const std::string blank = isTag ? "" : " ";
    const std::string_view end = facts.docEnd.substr(facts.docEnd.find_first_of("<*"));
    Line(std::string(facts.docBegin) + blank + lines[0] + blank + std::string(end));
    return;
  }
  if (!facts.docBegin.empty()) Line(facts.docBegin);
  for (const std::string& line : lines) {
    const std::string text = std::string(facts.docLine) + line;
    Line(std::string_view(text).substr(0, text.find_last_not_of(' ') + 1));
  }
  if (!facts.docEnd.empty()) Line(facts.docEnd);
}

void ClassWriter::Doc(std::string_view line) {
  if (!line.empty()) Doc(std::vector<std::string>{std::string(line)});
}

void ClassWriter::LineOfModel(int line) {
  if (!options.debug || !facts.hasLines || line <= 0) return;
  code.Verbatim("#line " + std::to_string(line) + ' ' +
                Quoted(options.modelFile, facts.escapedPaths));
}

void ClassWriter::LineOfCode(int line) {
  if (!options.debug || !facts.hasLines || line <= 0) return;
  if (!facts.lineBack.empty()) {
    code.Verbatim(facts.lineBack);
  } else {
    code.Verbatim("#line " + std::to_string(code.NextLine() + 1) + ' ' +
                  Quoted(fileName, facts.escapedPaths));
  }
}

void ClassWriter::UserText(std::string_view text, int line) {
  LineOfModel(line);
  if (KeepsItsColumns(text)) {
    code.Verbatim(text);
  } else {
    code.Lines(text);
  }
  // It must not draw the next line into its own.
  const std::size_t last = text.find_last_not_of(" \t\r\n");
  if (last != std::string_view::npos && text[last] == '\\') Line();
  LineOfCode(line);
}

void ClassWriter::UserResult(std::string_view text, int line) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  const std::size_t last = text.find_last_not_of(" \t\r\n");
  const std::string_view bare =
      first == std::string_view::npos ? text : text.substr(first, last + 1 - first);
  const bool isPlain = bare.find('\n') == std::string_view::npos &&
                       bare.find("//") == std::string_view::npos && !bare.ends_with('\\');
  const bool hasLines = options.debug && facts.hasLines && line > 0;
  if (isPlain && !hasLines) {
    Line("return " + std::string(bare) + ';');
    return;
  }
  Line("return");
  Indent();
  UserText(text, line);
  Line(";");
  Outdent();
}

}  // namespace morvane
