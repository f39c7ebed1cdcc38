#pragma once

namespace morvane {

class ModelStream;

/// The first line of a model text: a magic number and the version.
class ModelHeader {
 public:
  static void Write(ModelStream& stream);
  /// Sets both versions of the stream. Throws a text for the user when the text is no model or of
  /// a version that is too new.
  static void Read(ModelStream& stream);
};

}  // namespace morvane
