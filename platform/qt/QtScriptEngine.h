#pragma once

#include <memory>
#include <string>

#include "platform/ScriptEngine.h"

class QProcess;

namespace morvane {

/// An engine in a process of its own, the program `morvane_script` beside this one.
class QtScriptEngine : public ScriptEngine {
 public:
  QtScriptEngine();
  ~QtScriptEngine() override;
  ScriptResult Run(const std::string& program) override;

 private:
  bool Start();

  std::unique_ptr<QProcess> process;
};

class QtScriptEngines : public ScriptEngines {
 public:
  std::unique_ptr<ScriptEngine> Start() override { return std::make_unique<QtScriptEngine>(); }
};

}  // namespace morvane
