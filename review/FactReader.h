#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <string>

#include "review/DescribedObject.h"

namespace morvane {

/// Reads the records of objects as facts, by the fixed order of the format. What it is given comes
/// out of the objects themselves, in the present version, and is sound.
class FactReader {
 public:
  /// The name of the object with that id.
  using NameOf = std::function<std::string(std::int32_t id)>;

  /// The stream has to outlive the reader.
  FactReader(std::istream& in, NameOf nameOf) : in(in), nameOf(std::move(nameOf)) {}

  /// Adds the facts of the record that begins where the stream stands; false for a class that it
  /// doesn't know.
  bool Read(DescribedObject& object, std::int32_t parentId);

 private:
  void ReadState(DescribedObject& object);
  void ReadMark(DescribedObject& object);
  void ReadTransition(DescribedObject& object);
  void ReadMessage(DescribedObject& object);
  void ReadNote(DescribedObject& object);
  void ReadLine(DescribedObject& object);

  void ReadBox(DescribedObject& object);
  void ReadBoxLook(DescribedObject& object);
  void ReadEnds(DescribedObject& object);
  std::string ReadRoute(DescribedObject& object);
  POINT ReadPoint();
  std::int64_t Number();
  std::string Line();
  std::string Block(const char* beginTag, const char* endTag);
  Fact Reference(const char* label, std::int64_t id) const;

  std::istream& in;
  NameOf nameOf;
  std::int32_t parent = 0;
};

}  // namespace morvane
