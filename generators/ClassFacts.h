#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "machine/Machine.h"

namespace morvane {

/// What `ClassEmitter` has to know of a language to write a class in it.
struct ClassFacts {
  std::string_view language;  ///< as messages name it

  // What the model says for this language
  std::string ModelProperties::*className;
  std::string ModelProperties::*package;
  std::string ModelProperties::*declarations;
  int Machine::PropertyLines::*declarationsLine;
  std::string_view packageWord;  ///< how a user calls it

  // Shape
  bool hasHeader;      ///< declarations in a file of their own, and a preprocessor
  bool bracesOnLines;  ///< an opening brace stands on a line of its own
  bool lowerMethods;   ///< operations begin in lower case
  bool bareLabels;     ///< `case LISTEN:` rather than `case State.LISTEN:`
  bool hasFinally;     ///< a text may throw
  bool hasAbstract;    ///< a class with an abstract member has to say so
  bool asciiOnly;      ///< comments can't rely on the encoding of the file
  std::string_view fileEnding;
  std::string_view scope;  ///< between an enumeration and its constant, and between packages
  std::string_view publicWord;
  std::string_view privateWord;
  std::string_view hookWords;  ///< in front of an operation that subclasses may replace

  // Types and words
  std::string_view boolean;
  std::string_view text;
  std::string_view count;
  std::string_view fixed;  ///< in front of the type of a local constant
  std::string_view enumWords;
  std::array<std::string_view, 3> enumTypes;  ///< for 8, 16 and 32 bits; empty: it has none
  std::string_view eventVariable;
  std::string_view queueSize;     ///< the constant that users may set
  std::string_view queueSlots;    ///< the array's length: a constant, or behind its name
  std::string_view constantName;  ///< the call that gives a constant's own name; empty: none
  std::array<std::string_view, 3> assertion;  ///< around a condition and a text
  std::string_view print;                     ///< a line of `kind` and `name`; empty: by a macro

  // Comments
  std::string_view docBegin;
  std::string_view docLine;
  std::string_view docEnd;

  // Line directives, where there are any
  bool hasLines;
  bool escapedPaths;
  std::string_view lineBack;  ///< empty: number and name of the generated file

  std::span<const std::string_view> words;      ///< what no identifier may be
  std::span<const std::string_view> typeWords;  ///< what a class may not be called besides
};

const ClassFacts& CppFacts();
const ClassFacts& CSharpFacts();
const ClassFacts& JavaFacts();

}  // namespace morvane
