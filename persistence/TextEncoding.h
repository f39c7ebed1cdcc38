#pragma once

namespace morvane {

/// The encoding of the texts that a chart stores. A chart with nothing but ASCII counts as UTF-8.
enum class TextEncoding { Utf8, Windows1252, Mixed };

/// What was done so that the texts of a chart stay in one encoding.
enum class EncodingChange {
  None,
  KeptWindows1252,  ///< a new text was put into the encoding of the others
  MadeUtf8          ///< a new text could not be, and all became UTF-8
};

}  // namespace morvane
