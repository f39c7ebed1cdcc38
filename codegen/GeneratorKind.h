#pragma once

#include "platform/Syntax.h"

namespace morvane {

/// The tools that make code from a model file.
enum class GeneratorKind { Cpp, C, CSharp, Java, Xml };

/// What hangs on the kind of a generator.
struct GeneratorTraits {
  unsigned command;   ///< the id of its command
  unsigned title;     ///< the text id of the dialog's title
  const char* tool;   ///< its part of the command line
  bool hasDebugInfo;  ///< it can be asked for debug information
  Syntax syntax;      ///< what the code in the texts of its charts looks like

  static const GeneratorTraits& Of(GeneratorKind kind);
  /// The kind that a command of the five runs.
  static GeneratorKind KindOf(unsigned command);
};

}  // namespace morvane
