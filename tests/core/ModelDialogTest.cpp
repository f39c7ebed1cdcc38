#include "codegen/CCodegenSheet.h"
#include "dialogs/LayoutMgrPropDlg.h"
#include "dialogs/PrinterSetup.h"
#include "tests/support/DialogTest.h"
#include "tests/support/ScriptedPrinting.h"

// The dialogs of the texts of a whole chart.

namespace {

using P = ModelProperties;

class ModelDialog : public DialogTest {
 protected:
  ModelDialog() : DialogTest(SmallChart()) {}
};

TEST_F(ModelDialog, SavesTheTextsAndTellsTheBrowser) {
  using Dlg = LayoutMgrPropDlg;
  const P& properties = chart->GetProperties();
  for (const unsigned command : {ID_MODEL_PROPERTIES, ID_OBJECT_PROPERTIES}) {
    const std::string name = "Model " + std::to_string(command);
    host.Expect("Model Properties", [&](CDialog& dialog) {
      EXPECT_EQ(dialog.Control(Dlg::IDC_AUTHOR).text, "Untitled");
      Typing({{Dlg::IDC_MODEL_NAME, name}, {Dlg::IDC_DESCRIPTION, "a\r\nb"}})(dialog);
    });
    EXPECT_TRUE(chart->OnCommand(command));
    EXPECT_EQ(properties.ModelName, name);
    EXPECT_EQ(browser.root, name);
  }
  EXPECT_EQ(properties.Description, "a\r\nb");
  EXPECT_TRUE(CanUndo());
  host.Expect(
      "Model Properties",
      Typing({{Dlg::IDC_MODEL_NAME, ""}, {Dlg::IDC_AUTHOR, ""}, {Dlg::IDC_DESCRIPTION, ""}}));
  chart->OnCommand(ID_MODEL_PROPERTIES);
  EXPECT_EQ(properties.ModelName + "|" + properties.Author + "|" + properties.Description,
            "Untitled|Untitled| ");
}

TEST_F(ModelDialog, CancelKeepsTheTextsButTakesASnapshot) {
  chart->GetProperties().Author = "Somebody";
  const std::string before = chart->ModelText();
  host.Expect("Model Properties", Typing({{LayoutMgrPropDlg::IDC_MODEL_NAME, "Other"}}, IDCANCEL));
  chart->OnCommand(ID_MODEL_PROPERTIES);
  EXPECT_EQ(chart->ModelText(), before);
  EXPECT_TRUE(CanUndo()) << "of what had changed before";
}

TEST_F(ModelDialog, EveryBoxOfTheSheetEditsItsField) {
  const std::tuple<int, std::string P::*, const char*> cases[] = {
      {CCodegenCPP::IDC_CLASS_NAME, &P::CppClassName, "Context"},
      {CCodegenCPP::IDC_INCLUDE_FILE, &P::CppIncludeFile, "Context.h"},
      {CCodegenCPP::IDC_NAMESPACE, &P::CppNamespace, ""},
      {CCodegenCPP::IDC_INCLUDES, &P::CppIncludes, ""},
      {CCodegenCPP::IDC_DECLARATIONS, &P::CppDeclarations, ""},
      {CCodegenC::IDC_INCLUDES, &P::CIncludes, ""},
      {CCodegenC::IDC_DECLARATIONS, &P::CDeclarations, ""},
      {CCodegenJava::IDC_CLASS_NAME, &P::JavaClassName, "Context"},
      {CCodegenJava::IDC_PACKAGE, &P::JavaPackage, ""},
      {CCodegenJava::IDC_DECLARATIONS, &P::JavaDeclarations, ""},
      {CCodegenCSharp::IDC_CLASS_NAME, &P::CSharpClassName, "Context"},
      {CCodegenCSharp::IDC_PACKAGE, &P::CSharpPackage, ""},
      {CCodegenCSharp::IDC_DECLARATIONS, &P::CSharpDeclarations, ""}};
  P& properties = chart->GetProperties();
  for (const auto& [box, field, whenEmpty] : cases)
    properties.*field = "old " + std::to_string(box);
  for (const auto& [box, field, whenEmpty] : cases) {
    P expected = properties;
    for (const std::string& typed : {"new " + std::to_string(box), std::string()}) {
      expected.*field = typed.empty() ? whenEmpty : typed;
      host.Expect("Code Generation Properties", Typing({{box, typed}}));
      EXPECT_TRUE(chart->OnCommand(ID_CODEGEN_PROPERTIES));
      for (const auto& [other, otherField, otherEmpty] : cases) {
        EXPECT_EQ(properties.*otherField, expected.*otherField) << box << ' ' << other;
      }
    }
  }
}

TEST_F(ModelDialog, SheetShowsItsPagesInOrder) {
  host.Expect("Code Generation Properties", [](CDialog& dialog) {
    std::string titles;
    for (const DialogControl& control : dialog.Controls()) {
      if (control.kind == DialogControl::Kind::Page) titles += control.label + "|";
    }
    EXPECT_EQ(titles, "C++|ANSI C|Java|C# (.Net)|");
    Host::Press(dialog, IDCANCEL);
  });
  EXPECT_TRUE(chart->OnCommand(ID_CODEGEN_PROPERTIES));
  EXPECT_FALSE(CanUndo());
}

TEST_F(ModelDialog, PrintSetupIsOfTheViewAndNotOfTheChart) {
  ScriptedPrinting desktop;
  const std::string before = chart->ModelText();
  for (const bool ok : {false, true}) {
    host.Expect("Print Setup", [ok](CDialog& dialog) {
      EXPECT_FALSE(dialog.Control(PrinterSetup::IDC_PRINT_TO_FIT).checked);
      Host::Toggle(dialog, PrinterSetup::IDC_PRINT_TO_FIT);
      Host::Press(dialog, PrinterSetup::IDC_PRINTER);
      EXPECT_TRUE(dialog.IsOpen());
      Host::Press(dialog, ok ? IDOK : IDCANCEL);
    });
    EXPECT_TRUE(chart->OnCommand(ID_FILE_PRINT_SETUP));
    EXPECT_EQ(chart->IsPrintedToFit(), ok);
  }
  EXPECT_EQ(desktop.setups, 2);
  EXPECT_EQ(chart->ModelText(), before);
  EXPECT_FALSE(CanUndo());
}

}  // namespace
