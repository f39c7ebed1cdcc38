#include "tests/generators/rig/Teller.h"

#include <map>
#include <string_view>

#include "machine/Interpreter.h"
#include "machine/Machine.h"

namespace morvane {

namespace {

// What the texts of made-up charts mean.
const std::map<std::string_view, bool (*)(int n, int m)> kGuards = {
    {"n % 2 == 0", [](int n, int) { return n % 2 == 0; }},
    {"n % 3 == 1", [](int n, int) { return n % 3 == 1; }},
    {"n > 20 && m < 3", [](int n, int m) { return n > 20 && m < 3; }},
    {"n < 50 || m == 1", [](int n, int m) { return n < 50 || m == 1; }},
    {"!(n % 4 == 0)", [](int n, int) { return n % 4 != 0; }},
    {"(n + m) % 5 != 2", [](int n, int m) { return (n + m) % 5 != 2; }},
    {"n >= 10", [](int n, int) { return n >= 10; }},
    {"m < 1", [](int, int m) { return m < 1; }},
    {"m < 2", [](int, int m) { return m < 2; }},
    {"m < 3", [](int, int m) { return m < 3; }},
    {"m < 4", [](int, int m) { return m < 4; }}};
const std::map<std::string_view, void (*)(int& n, int& m)> kStatements = {
    {"", [](int&, int&) {}},
    {"n = 1; m = 0;", [](int& n, int& m) { n = 1, m = 0; }},
    {"n = (n + 1) % 1000;", [](int& n, int&) { n = (n + 1) % 1000; }},
    {"n = (n * 5 + 3) % 1000;", [](int& n, int&) { n = (n * 5 + 3) % 1000; }},
    {"n = n + 7 * m;\nn = n % 1000;", [](int& n, int& m) { n = (n + 7 * m) % 1000; }},
    {"if (n > 500) { n = 3; }", [](int& n, int&) { n = n > 500 ? 3 : n; }},
    {"n = (n + 11) % 1000; // \"text\"", [](int& n, int&) { n = (n + 11) % 1000; }},
    {"m = 0;", [](int&, int& m) { m = 0; }},
    {"m = m + 1;", [](int&, int& m) { ++m; }}};

/// The trace of the machine itself, without code.
class Teller : public Interpreter::Actor {
 public:
  bool Holds(const MachineTransition& transition) override {
    return kGuards.at(transition.guard.text)(n, m);
  }
  void Act(const MachineText& code) override { kStatements.at(code.text)(n, m); }
  void Trace(std::string_view kind, std::string_view name) override {
    trace += std::string(kind) + ' ' + std::string(name) + '\n';
  }

  std::string trace;

 private:
  int n = 0;
  int m = 0;
};

}  // namespace

std::string Interpreted(const Machine& machine, const std::vector<int>& events) {
  Teller teller;
  Interpreter interpreter(machine, teller);
  interpreter.Start();
  for (const int event : events) interpreter.Dispatch(event);
  return teller.trace;
}

}  // namespace morvane
