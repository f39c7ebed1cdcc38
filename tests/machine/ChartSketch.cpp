#include "tests/machine/ChartSketch.h"

#include <sstream>
#include <vector>

namespace morvane {

namespace {

struct Object {
  std::string word;
  std::size_t depth = 0;
  std::string id;
  std::string rest;
  std::string rect;
  std::string history = "0";
  std::string entry;
  std::string exit;
};

/// With the line breaks of a text block.
std::string Unescaped(std::string text) {
  for (std::size_t at = text.find("\\n"); at != std::string::npos; at = text.find("\\n", at)) {
    text.replace(at, 2, "\r\n");
  }
  return text;
}

std::string Block(const std::string& text) {
  std::string lines = text;
  std::erase(lines, '\r');
  return std::to_string(text.size()) + "\nTEXTBEGIN\n" + lines + "\nTEXTEND\n";
}

std::vector<std::string> Parts(std::string text) {
  std::vector<std::string> parts;
  constexpr std::string_view bar = " | ";
  for (std::size_t at = text.find(bar); at != std::string::npos; at = text.find(bar)) {
    parts.push_back(text.substr(0, at));
    text.erase(0, at + bar.size());
  }
  parts.push_back(text);
  parts.resize(3);
  return parts;
}

std::string RestOf(std::istream& in) {
  std::string rest;
  std::getline(in >> std::ws, rest);
  return rest;
}

void TakeLine(const std::string& line, std::vector<Object>& objects) {
  const std::size_t blanks = line.find_first_not_of(' ');
  if (blanks == std::string::npos) return;
  std::istringstream in(line);
  Object object;
  in >> object.word;
  if (object.word == "history") {
    objects.back().history = "1";
  } else if (object.word == "entry") {
    objects.back().entry = Unescaped(RestOf(in));
  } else if (object.word == "exit") {
    objects.back().exit = Unescaped(RestOf(in));
  } else if (object.word == "at") {
    objects.back().rect = RestOf(in);
  } else {
    object.depth = blanks / 2;
    in >> object.id;
    object.rest = RestOf(in);
    objects.push_back(object);
  }
}

bool IsBox(const Object& object) {
  return object.word == "state" || object.word == "initial" || object.word == "final";
}

/// One below the other, each as wide as its depth allows.
void LayOut(std::vector<Object>& objects) {
  struct Open {
    Object* object;
    int top;
  };
  std::vector<Open> open;
  int y = 10;
  const auto closeTo = [&open, &y](std::size_t depth) {
    for (; !open.empty() && open.back().object->depth >= depth; open.pop_back()) {
      ++y;
      Object& object = *open.back().object;
      if (!object.rect.empty()) continue;
      std::ostringstream rect;
      rect << 10 + object.depth << ' ' << open.back().top << ' ' << 500 - object.depth << ' ' << y;
      object.rect = rect.str();
    }
  };
  for (Object& object : objects) {
    if (!IsBox(object)) continue;
    closeTo(object.depth);
    open.push_back({&object, ++y});
  }
  closeTo(0);
}

std::string Record(const Object& object) {
  const auto begin = [&object](const std::string& keyword, const char* layer) {
    return "BEGIN " + keyword + ' ' + object.id + '\n' + object.id + ' ' + layer + '\n';
  };
  const std::string box = (object.rect.empty() ? "1 1 5 5" : object.rect) + "\n1\n";
  if (object.word == "initial") return begin("InitialState", "10") + box + "InitialState\n";
  if (object.word == "final") return begin("FinalState", "10") + box + "FinalState\n";
  if (object.word == "note") return begin("Note", "50") + box + "0 0 0 0\n" + Block("");
  if (object.word == "arrow") {
    return begin("Transition", "40") + "1 1 1 9\n" + object.rest +
           "\n1 1 1 1\n2 1 1 1 2 \n0 1 2 1 8 \n3 1 8 1 9 \n";
  }
  if (object.word == "message") {
    const std::size_t blank = object.rest.find(' ');
    const bool hasTexts = blank != std::string::npos;
    const auto parts = Parts(hasTexts ? object.rest.substr(blank + 1) : "");
    return begin("Mesg", "20") + box + "0 0 0 0\n" + object.rest.substr(0, blank) + '\n' +
           parts[0] + '\n' + parts[1] + '\n' + Block(Unescaped(parts[2]));
  }
  return begin("GenericState", "10") + box + object.rest + '\n' + object.history + " 0 0\n" +
         Block(object.entry) + Block(object.exit);
}

}  // namespace

std::string ChartSketch(std::string_view sketch, const std::string& header) {
  std::istringstream in{std::string(sketch)};
  std::vector<Object> objects;
  for (std::string line; std::getline(in, line);) TakeLine(line, objects);
  LayOut(objects);
  std::string text = header + "\n6\nBEGIN DATA\n";
  for (const Object& object : objects) text += Record(object);
  return text + "END DATA\n" + SketchProperties();
}

std::string SketchProperties() {
  return "Sketch\nSketch\nSketch.h\n\n"
         "0\nINCLUDE BEGIN\n\nINCLUDE END\n0\nDECL BEGIN\n\nDECL END\n"
         "Morvane\n0\nDESC BEGIN\n\nDESC END\n"
         "0\nINCLUDE BEGIN\n\nINCLUDE END\n0\nDECL BEGIN\n\nDECL END\n"
         "Sketch\n\n0\nDECL BEGIN\n\nDECL END\n"
         "Sketch\n\n0\nDECL BEGIN\n\nDECL END\n";
}

std::string LineOfText(const std::string& text, int number) {
  std::istringstream in(text);
  std::string line;
  for (int i = 0; i < number; ++i) std::getline(in, line);
  return line;
}

}  // namespace morvane
