#include "model/ModelProperties.h"

#include <istream>
#include <ostream>

#include "model/ModelStream.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// One field as the model text holds it: a whole line, or a block between tags.
struct Field {
  std::string ModelProperties::*text;
  const char* tag;  ///< null for a line; a block stands between `tag` BEGIN and `tag` END
  float sinceVersion;
};

constexpr float kAlways = 0.0F;
constexpr float kSinceJava = 3.0F;
constexpr float kSinceCSharp = 3.1F;

constexpr Field kFields[] = {
    {&ModelProperties::ModelName, nullptr, kAlways},
    {&ModelProperties::CppClassName, nullptr, kAlways},
    {&ModelProperties::CppIncludeFile, nullptr, kAlways},
    {&ModelProperties::CppNamespace, nullptr, kAlways},
    {&ModelProperties::CppIncludes, "INCLUDE", kAlways},
    {&ModelProperties::CppDeclarations, "DECL", kAlways},
    {&ModelProperties::Author, nullptr, kAlways},
    {&ModelProperties::Description, "DESC", kAlways},
    {&ModelProperties::CIncludes, "INCLUDE", kSinceJava},
    {&ModelProperties::CDeclarations, "DECL", kSinceJava},
    {&ModelProperties::JavaClassName, nullptr, kSinceJava},
    {&ModelProperties::JavaPackage, nullptr, kSinceJava},
    {&ModelProperties::JavaDeclarations, "DECL", kSinceJava},
    {&ModelProperties::CSharpClassName, nullptr, kSinceCSharp},
    {&ModelProperties::CSharpPackage, nullptr, kSinceCSharp},
    {&ModelProperties::CSharpDeclarations, "DECL", kSinceCSharp},
};

std::string BeginTag(const Field& field) { return std::string(field.tag) + " BEGIN"; }
std::string EndTag(const Field& field) { return std::string(field.tag) + " END"; }

}  // namespace

ModelProperties::ModelProperties()
    : ModelName(LoadText(IDS_UNTITLED)),
      Author(LoadText(IDS_UNTITLED)),
      CppClassName(kDefaultClass),
      CppIncludeFile(kDefaultInclude),
      JavaClassName(CppClassName),
      CSharpClassName(CppClassName) {}

std::string ModelProperties::DefaultOf(std::string ModelProperties::*field) {
  if (field == &ModelProperties::ModelName || field == &ModelProperties::Author) {
    return LoadText(IDS_UNTITLED);
  }
  if (field == &ModelProperties::Description) return " ";
  if (field == &ModelProperties::CppIncludeFile) return kDefaultInclude;
  for (const auto className : {&ModelProperties::CppClassName, &ModelProperties::JavaClassName,
                               &ModelProperties::CSharpClassName}) {
    if (field == className) return kDefaultClass;
  }
  return {};
}

std::vector<std::string*> ModelProperties::Texts() {
  return {&ModelName,        &CppClassName,    &CppIncludeFile, &CppNamespace,
          &CppIncludes,      &CppDeclarations, &Author,         &Description,
          &CIncludes,        &CDeclarations,   &JavaClassName,  &JavaPackage,
          &JavaDeclarations, &CSharpClassName, &CSharpPackage,  &CSharpDeclarations};
}

void ModelProperties::Write(ModelStream& stream) const {
  for (const Field& field : kFields) {
    const std::string& text = this->*field.text;
    if (field.tag == nullptr) {
      stream << text << '\n';
    } else {
      WriteTextBlock(stream.Out(), text, BeginTag(field), EndTag(field));
    }
  }
}

void ModelProperties::Read(ModelStream& stream) {
  for (const Field& field : kFields) {
    if (stream.fileVersion < field.sinceVersion) continue;
    std::string& text = this->*field.text;
    if (field.tag == nullptr) {
      text = ReadLine(stream.In());
    } else {
      ReadTextBlock(stream.In(), text, BeginTag(field), EndTag(field));
    }
  }
}

}  // namespace morvane
