#include "simulation/ChartScript.h"

#include <exception>
#include <nlohmann/json.hpp>

#include "drawing/TextCodec.h"
#include "machine/Machine.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Json = nlohmann::json;
using How = ScriptResult::How;

/// What every program finds. `test` and `act` give an object with the variables behind them.
constexpr const char* kPrelude = R"script(
var self = this;
var Event = {};
var Dispatch, dispatch;
var __morvane = (function (global) {
  var sent = [];
  var run = eval;
  Dispatch = dispatch = function () {
    sent.push(String(arguments[arguments.length - 1]));
    return true;
  };
  var known = { __morvane: true };
  Object.getOwnPropertyNames(global).forEach(function (name) { known[name] = true; });
  function names() {
    return Object.getOwnPropertyNames(global).filter(function (name) {
      return known[name] !== true && typeof global[name] !== 'function';
    });
  }
  function variables() {
    var all = {};
    names().forEach(function (name) {
      var value = global[name];
      try { if (JSON.stringify(value) !== undefined) all[name] = value; }
      catch (e) { all[name] = String(value); }
    });
    return all;
  }
  // Stands for what only the real program has: whatever is asked of it is nothing again.
  var nothing = new Proxy(function () {}, {
    get: function (target, key) { return typeof key === 'string' ? nothing : undefined; },
    apply: function () {},
    has: function () { return true; }
  });
  return {
    test: function (text) {
      var holds = !!run('(' + text + '\n)');
      return JSON.stringify({ holds: holds, variables: variables() });
    },
    act: function (text, called) {
      sent = [];
      global.__stubs = {};
      known.__stubs = true;
      var left = [];
      for (var name in called) {
        if (typeof global[name] !== 'undefined') continue;
        left.push(called[name]);
        global.__stubs[name] = nothing;
      }
      run(left.length > 0 ? 'with (__stubs) {' + text + '\n}' : text);
      return JSON.stringify({ sent: sent, left: left, variables: variables() });
    },
    assign: function (name, text) {
      global[name] = run('(' + text + '\n)');
      return JSON.stringify({ variables: variables() });
    },
    restore: function (all) {
      names().forEach(function (name) { if (!(name in all)) delete global[name]; });
      for (var name in all) global[name] = all[name];
      return JSON.stringify({ variables: variables() });
    }
  };
})(this);
)script";

std::string Quoted(const std::string& text) {
  return Json(text).dump(-1, ' ', true, Json::error_handler_t::replace);
}

std::string UpperCase(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

/// The events as the texts name them: as in C, C++ and C#, and as in Java.
std::string EventTable(const Machine& machine) {
  std::string table;
  for (const MachineEvent& event : machine.events) {
    const std::string name = Quoted(event.name);
    for (const std::string& key : {event.name, UpperCase(event.name)}) {
      table += "Event[" + Quoted(key) + "] = " + name + ";\n";
    }
  }
  return table;
}

/// The texts of a list; whatever else a script has made of the answer is passed over.
std::vector<std::string> NamesIn(const Json& answer, const char* key) {
  std::vector<std::string> names;
  if (!answer.contains(key) || !answer[key].is_array()) return names;
  for (const Json& name : answer[key]) {
    if (name.is_string()) names.push_back(name.get<std::string>());
  }
  return names;
}

/// All texts that are run: entries, exits and effects, or else the guards.
template <class Visit>
void ForEachText(const Machine& machine, Visit visit) {
  for (const MachineState& state : machine.states) {
    visit(state.entry);
    visit(state.exit);
  }
  for (const MachineTransition& transition : machine.transitions) {
    visit(transition.guard);
    visit(transition.effect);
  }
}

}  // namespace

ChartScript::ChartScript(const Machine& machine, std::unique_ptr<ScriptEngine> engine)
    : machine(machine), engine(std::move(engine)) {
  CollectNames();
}

ChartScript::~ChartScript() = default;

const ScriptText& ChartScript::Of(const MachineText& code) {
  const auto found = texts.find(code.text);
  if (found != texts.end()) return found->second;
  return texts.emplace(code.text, ScriptText(ToUtf8(code.text))).first->second;
}

void ChartScript::CollectNames() {
  const ModelProperties& about = machine.properties;
  for (const std::string& declarations : {about.CppDeclarations, about.CDeclarations,
                                          about.JavaDeclarations, about.CSharpDeclarations}) {
    for (const ScriptText::Declared& variable : ScriptText::DeclaredIn(ToUtf8(declarations))) {
      initial.emplace(variable.name, variable.value.empty() ? "0" : variable.value);
    }
  }
  ForEachText(machine, [this](const MachineText& text) {
    for (const std::string& name : Of(text).Assigned()) initial.emplace(name, "0");
  });
  ForEachText(machine, [this](const MachineText& text) {
    for (const std::string& name : Of(text).Read()) {
      if (!initial.contains(name)) inputs.insert(name);
    }
  });
}

void ChartScript::Begin() {
  isSetUp = false;
  variables = "{}";
  if (engine == nullptr || !SetUp()) return;
  for (const auto& [name, value] : initial) {
    // One that has no such beginning, as an object of another language, is left unset.
    Assign(name, value);
  }
}

bool ChartScript::SetUp() {
  if (isSetUp) return true;
  if (engine->Run(std::string(kPrelude) + EventTable(machine)).how != How::Value) return false;
  isSetUp = true;
  return Call("restore", variables).how == How::Value;
}

/// Runs a function of the prelude and takes over what the variables are behind it.
ScriptResult ChartScript::Call(const std::string& function, const std::string& arguments) {
  if (engine == nullptr) return {How::Gone, Said("nothing here can run it")};
  const std::string program = "__morvane." + function + '(' + arguments + ')';
  if (givenUp.contains(program)) return {How::Late, Said("took too long before")};
  if (!SetUp()) return {How::Gone, Said("the script engine can't be started")};
  ScriptResult result = engine->Run(program);
  if (result.how == How::Late || result.how == How::Gone) givenUp.insert(program);
  if (result.how == How::Gone) isSetUp = false;
  if (result.how != How::Value) return result;
  const Json answer = Json::parse(result.text, nullptr, false);
  if (!answer.is_object() || !answer.contains("variables")) return {How::Fault, Said("no answer")};
  variables = answer["variables"].dump(-1, ' ', false, Json::error_handler_t::replace);
  return result;
}

std::optional<bool> ChartScript::Test(const MachineText& guard, std::string& fault) {
  const ScriptResult result = Call("test", Quoted(Of(guard).Program()));
  if (result.how != How::Value) {
    fault = result.text;
    return std::nullopt;
  }
  const Json answer = Json::parse(result.text);
  return answer.contains("holds") && answer["holds"] == true;
}

ChartScript::Outcome ChartScript::Act(const MachineText& code) {
  const ScriptText& text = Of(code);
  const ScriptResult result =
      Call("act", Quoted(text.Program()) + ", " + Json(text.Called()).dump());
  if (result.how != How::Value) return {Said("not run: %1", {result.text}), {}};
  const Json answer = Json::parse(result.text);
  Outcome outcome;
  std::string left;
  for (const std::string& name : NamesIn(answer, "left")) {
    left += (left.empty() ? "" : ", ") + name + "()";
  }
  if (!left.empty()) outcome.note = Said("left out: %1", {left});
  outcome.sent = NamesIn(answer, "sent");
  return outcome;
}

void ChartScript::SetVariables(const std::string& json) {
  if (variables == json) return;
  variables = json;
  if (engine != nullptr && isSetUp) Call("restore", json);
}

std::string ChartScript::Assign(const std::string& name, const std::string& expression) {
  const ScriptResult result = Call("assign", Quoted(name) + ", " + Quoted(expression));
  return result.how == How::Value ? std::string() : result.text;
}

}  // namespace morvane
