#include "bench/code/MachineChart.h"

#include <sstream>

#include "model/ModelProperties.h"
#include "model/ModelStream.h"

namespace morvane {

namespace {

constexpr int kInner = 10;
constexpr int kSide = 10;

std::string Id(int id) { return std::to_string(id); }

std::string Block(const std::string& text) {
  std::ostringstream out;
  WriteTextBlock(out, text, "TEXTBEGIN", "TEXTEND");
  return out.str();
}

std::string Head(const std::string& keyword, int id, int layer) {
  return "BEGIN " + keyword + ' ' + Id(id) + '\n' + Id(id) + ' ' + Id(layer) + '\n';
}

std::string Box(int left, int top, int width, int height) {
  return Id(left) + ' ' + Id(top) + ' ' + Id(left + width) + ' ' + Id(top + height) + "\n1\n";
}

std::string State(int id, const std::string& box) {
  return Head("GenericState", id, 10) + box + "State" + Id(id) + "\n0 16777215 0\n" +
         Block("enter();") + Block("leave();");
}

std::string Mark(int id, int left, int top) {
  return Head("InitialState", id, 10) + Box(left, top, 4, 4) + "InitialState\n";
}

std::string Arrow(int id, int source, int target) {
  return Head("Transition", id, 40) + "0 0 0 0\n" + Id(source) + ' ' + Id(target) +
         "\n1 1 1 1\n2 0 0 0 1 \n3 0 1 0 2 \n";
}

std::string Message(int id, int transition, const std::string& event) {
  return Head("Mesg", id, 20) + Box(0, 0, 10, 6) + "0 0 0 0\n" + Id(transition) + '\n' + event +
         "\n\n" + Block("act();");
}

/// A composite, with its inner states in a row and their transitions.
class Group {
 public:
  Group(int index, int states) : first(index * kInner), states(states) {}

  std::string Text(int& lastId) const {
    const int top = first / kInner * 2 * kSide;
    std::string text = State(IdOf(first), Box(1, top, kInner * 2 * kSide + kSide, 2 * kSide - 2));
    const int mark = ++lastId;
    text += Mark(mark, 2, top + 8);
    text += Arrow(++lastId, mark, IdOf(first + 1));
    for (int i = 1; i < kInner; ++i) {
      text += State(IdOf(first + i), Box(i * 2 * kSide, top + 4, kSide, kSide));
    }
    for (int i = 0; i < kInner; ++i) {
      text += Transition(lastId, first + i, (first + i + 1) % states, "Next");
      text += Transition(lastId, first + i, (first + i * 7 + 3) % states, "Other" + Id(i));
    }
    return text;
  }

  static int IdOf(int state) { return state + 1; }

 private:
  static std::string Transition(int& lastId, int source, int target, const std::string& event) {
    const int arrow = ++lastId;
    return Arrow(arrow, IdOf(source), IdOf(target)) + Message(++lastId, arrow, event);
  }

  int first;
  int states;
};

}  // namespace

std::string MachineChart(int states) {
  std::string text = "9999 4 1\n6\nBEGIN DATA\n";
  int lastId = states + 1;
  const int mark = ++lastId;
  text += Mark(mark, 1, states / kInner * 2 * kSide + kSide);
  text += Arrow(++lastId, mark, Group::IdOf(0));
  for (int i = 0; i < states / kInner; ++i) text += Group(i, states).Text(lastId);
  std::ostringstream out;
  ModelStream stream(out);
  ModelProperties().Write(stream);
  return text + "END DATA\n" + out.str();
}

}  // namespace morvane
