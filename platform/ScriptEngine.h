#pragma once

#include <memory>
#include <string>

#include "platform/Service.h"

namespace morvane {

/// What became of a piece of script.
struct ScriptResult {
  enum class How {
    Value,  ///< it ran; `text` is what it gave, as JSON, or empty for nothing
    Fault,  ///< it can't be read, or threw; `text` says why
    Late,   ///< it took too long and was ended; what it had changed until then stays changed
    Gone    ///< the engine went down with it, or can't be started; all variables are lost
  };

  How how = How::Gone;
  std::string text;
};

/// Runs pieces of ECMAScript, one behind the other, in one global scope. They reach neither files
/// nor a network, and have little time and memory: whatever they do, the program goes on.
class ScriptEngine {
 public:
  virtual ~ScriptEngine() = default;
  /// Waits for the end of the piece. One that is `Gone` starts anew with the next piece.
  virtual ScriptResult Run(const std::string& program) = 0;
};

/// Gives engines. The default service has none.
class ScriptEngines {
 public:
  virtual ~ScriptEngines() = default;
  /// Null where there are none.
  virtual std::unique_ptr<ScriptEngine> Start() = 0;
  static ScriptEngines& Default();
};

}  // namespace morvane
