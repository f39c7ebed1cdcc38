#include "codegen/ModelProperties.h"

#include <array>
#include <istream>
#include <ostream>

#include "codegen/CCodegenSheet.h"
#include "dialogs/LayoutMgrPropDlg.h"
#include "model/ModelStream.h"
#include "resources/Texts.h"

namespace {

constexpr const char* kDefaultClass = "Context";
constexpr const char* kDefaultInclude = "Context.h";

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

void ReplaceEmpty(std::string& text, const std::string& by) {
  if (text.empty()) text = by;
}

/// A field of the block, and the box of a page that edits it.
struct PageField {
  std::string ModelProperties::*field;
  std::string* box;
};

std::array<PageField, 13> PageFields(CCodegenSheet& sheet) {
  using P = ModelProperties;
  return {{{&P::CppClassName, &sheet.pageCpp.className},
           {&P::CppIncludeFile, &sheet.pageCpp.includeFile},
           {&P::CppNamespace, &sheet.pageCpp.nameSpace},
           {&P::CppIncludes, &sheet.pageCpp.includes},
           {&P::CppDeclarations, &sheet.pageCpp.declarations},
           {&P::CIncludes, &sheet.pageC.includes},
           {&P::CDeclarations, &sheet.pageC.declarations},
           {&P::JavaClassName, &sheet.pageJava.className},
           {&P::JavaPackage, &sheet.pageJava.package},
           {&P::JavaDeclarations, &sheet.pageJava.declarations},
           {&P::CSharpClassName, &sheet.pageCSharp.className},
           {&P::CSharpPackage, &sheet.pageCSharp.package},
           {&P::CSharpDeclarations, &sheet.pageCSharp.declarations}}};
}

}  // namespace

ModelProperties::ModelProperties()
    : ModelName(LoadText(IDS_UNTITLED)),
      Author(LoadText(IDS_UNTITLED)),
      CppClassName(kDefaultClass),
      CppIncludeFile(kDefaultInclude),
      JavaClassName(CppClassName),
      CSharpClassName(CppClassName) {}

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

void ModelProperties::EditModelProperties() {
  LayoutMgrPropDlg dialog;
  dialog.author = Author;
  dialog.description = Description;
  dialog.modelName = ModelName;
  if (!dialog.DoModal()) return;
  ModelName = dialog.modelName;
  Author = dialog.author;
  Description = dialog.description;
  ReplaceEmpty(ModelName, LoadText(IDS_UNTITLED));
  ReplaceEmpty(Author, LoadText(IDS_UNTITLED));
  ReplaceEmpty(Description, " ");
}

void ModelProperties::EditCodegenProperties() {
  CCodegenSheet sheet;
  const auto fields = PageFields(sheet);
  for (const PageField& each : fields) *each.box = this->*each.field;
  if (!sheet.DoModal()) return;
  for (const PageField& each : fields) this->*each.field = *each.box;
  ReplaceEmpty(CppClassName, kDefaultClass);
  ReplaceEmpty(CppIncludeFile, kDefaultInclude);
  ReplaceEmpty(JavaClassName, kDefaultClass);
  ReplaceEmpty(CSharpClassName, kDefaultClass);
}
