#include "simulation/TestReport.h"

#include "drawing/TextCodec.h"

namespace morvane {

namespace {

std::string OneLine(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  }
  return ToUtf8(text);
}

/// "#" would begin a directive.
std::string TapName(const std::string& text) {
  std::string name;
  for (const char c : OneLine(text)) {
    if (c == '#' || c == '\\') name += '\\';
    name += c;
  }
  return name;
}

/// Within single quotation marks.
std::string YamlText(const std::string& text) {
  std::string quoted;
  for (const char c : OneLine(text)) {
    quoted += c;
    if (c == '\'') quoted += c;
  }
  return '\'' + quoted + '\'';
}

std::string XmlText(const std::string& text) {
  std::string escaped;
  for (const char c : OneLine(text)) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '"': escaped += "&quot;"; break;
      default: escaped += c;
    }
  }
  return escaped;
}

std::string Place(const std::string& file, const TestVerdict& verdict) {
  return file + ':' + std::to_string(verdict.line);
}

}  // namespace

void TestReport::Add(const std::string& file, const std::string& chart,
                     const std::vector<TestVerdict>& verdicts) {
  for (const TestVerdict& verdict : verdicts) {
    entries.push_back({file, chart, verdict});
    if (!verdict.passed) ++failures;
  }
}

std::string TestReport::Text() const { return form == Form::Tap ? Tap() : JUnit(); }

std::string TestReport::Tap() const {
  std::string text = "TAP version 13\n1.." + std::to_string(entries.size()) + '\n';
  int number = 0;
  for (const Entry& entry : entries) {
    text += (entry.verdict.passed ? "ok " : "not ok ") + std::to_string(++number) + " - " +
            TapName(entry.chart + ": " + entry.verdict.name) + '\n';
    if (entry.verdict.passed) continue;
    text += "  ---\n  message: " + YamlText(entry.verdict.reason) +
            "\n  at: " + YamlText(Place(entry.file, entry.verdict)) + "\n  ...\n";
  }
  return text;
}

std::string TestReport::JUnit() const {
  const std::string counts = " tests=\"" + std::to_string(entries.size()) + "\" failures=\"" +
                             std::to_string(failures) + "\"";
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuite name=\"morvane\"" + counts + ">\n";
  for (const Entry& entry : entries) {
    text += "  <testcase classname=\"" + XmlText(entry.chart) + "\" name=\"" +
            XmlText(entry.verdict.name) + '"';
    if (entry.verdict.passed) {
      text += "/>\n";
      continue;
    }
    text += ">\n    <failure message=\"" + XmlText(entry.verdict.reason) + "\">" +
            XmlText(Place(entry.file, entry.verdict)) + "</failure>\n  </testcase>\n";
  }
  return text + "</testsuite>\n";
}

}  // namespace morvane
