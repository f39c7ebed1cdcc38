#pragma once

#include <string>
#include <vector>

namespace morvane {

class ModelStream;

/// The sixteen texts of a chart: three describe the model, the others are for the generators. A new
/// block holds the defaults of a new chart.
class ModelProperties {
 public:
  static constexpr const char* kDefaultClass = "Context";
  static constexpr const char* kDefaultInclude = "Context.h";

  ModelProperties();

  /// What comes in the place of a text that the user has emptied; empty if it may be.
  static std::string DefaultOf(std::string ModelProperties::*field);

  /// All of them, in the order in which they are written.
  std::vector<std::string*> Texts();

  void Write(ModelStream& stream) const;
  /// Reads the fields that the version of the text has; the others keep what they hold. Throws a
  /// text for the user.
  void Read(ModelStream& stream);

  std::string ModelName;
  std::string Description;
  std::string Author;
  std::string CppClassName;
  std::string CppIncludeFile;
  std::string CppNamespace;
  std::string CppIncludes;
  std::string CppDeclarations;
  std::string CIncludes;
  std::string CDeclarations;
  std::string JavaClassName;
  std::string JavaPackage;
  std::string JavaDeclarations;
  std::string CSharpClassName;
  std::string CSharpPackage;
  std::string CSharpDeclarations;
};

}  // namespace morvane
