#pragma once

#include "platform/Syntax.h"

namespace morvane {

class ModelProperties;

/// The language that the texts of a chart are written in, as far as it can be told.
class CodeLanguage {
 public:
  /// The one whose properties the user has filled in; else that of the generator that was used
  /// last, with any chart, and else C++. Null stands for no chart.
  static Syntax Of(const ModelProperties* chart);
  /// The user wants code in that language.
  static void NoteUsed(Syntax syntax);
};

}  // namespace morvane
