#include "codegen/DialogGenerators.h"

#include <array>
#include <memory>

#include "codegen/CCodegenSheet.h"
#include "codegen/CGenerateCppDlg.h"
#include "codegen/ChartPlaces.h"
#include "codegen/GeneratorKind.h"
#include "model/CodeLanguage.h"
#include "model/ModelProperties.h"
#include "persistence/CDocument.h"
#include "platform/WaitCursor.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

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

bool DialogGenerators::EditProperties(ModelProperties& properties) {
  CCodegenSheet sheet;
  const auto fields = PageFields(sheet);
  for (const PageField& each : fields) *each.box = properties.*each.field;
  if (!sheet.DoModal()) return false;
  for (const auto& [field, box] : fields) {
    properties.*field = box->empty() ? ModelProperties::DefaultOf(field) : *box;
  }
  return true;
}

void DialogGenerators::Run(unsigned command, LayoutMgr& chart) {
  const ChartPlaces places(chart);
  const GeneratorKind kind = GeneratorTraits::KindOf(command);
  CodeLanguage::NoteUsed(GeneratorTraits::Of(kind).syntax);
  auto dialog = std::make_unique<CGenerateCppDlg>(kind, &places);
  dialog->SetDesignFile(chart.GetDocument()->GetPathName());
  dialog->DoModal();
  // The end of the tool takes its time.
  const WaitCursor wait;
  dialog.reset();
}

}  // namespace morvane
