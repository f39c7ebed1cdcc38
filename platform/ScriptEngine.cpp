#include "platform/ScriptEngine.h"

namespace morvane {

namespace {

class NoScriptEngines : public ScriptEngines {
 public:
  std::unique_ptr<ScriptEngine> Start() override { return nullptr; }
};

}  // namespace

ScriptEngines& ScriptEngines::Default() {
  static NoScriptEngines none;
  return none;
}

}  // namespace morvane
