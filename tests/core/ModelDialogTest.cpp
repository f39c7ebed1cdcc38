#include "codegen/CCodegenSheet.h"
#include "dialogs/LayoutMgrPropDlg.h"
#include "dialogs/PrinterSetup.h"
#include "tests/support/ChartTest.h"
#include "tests/support/ScriptedPrinting.h"

// The dialogs of the texts of a whole chart.

namespace {

using Host = ScriptedDialogHost;

class ModelDialog : public testing::Test {
 protected:
  ModelDialog() : chart(LoadChart(SmallChart())) {
    chart->TakeSnapshot();
    chart->SetObjectTree(&browser);
  }
  ~ModelDialog() override { chart->SetObjectTree(nullptr); }
  bool CanUndo() const { return chart->OnUpdateCommand(ID_EDIT_UNDO).enabled; }

  NotingBrowser browser;
  std::unique_ptr<LayoutMgr> chart;
  Host host;
};

TEST_F(ModelDialog, SavesTheTextsAndTellsTheBrowser) {
  for (const unsigned command : {ID_MODEL_PROPERTIES, ID_OBJECT_PROPERTIES}) {
    const std::string name = "Model " + std::to_string(command);
    host.Expect("Model Properties", [&](CDialog& dialog) {
      EXPECT_EQ(dialog.Control(LayoutMgrPropDlg::IDC_AUTHOR).text, "Untitled");
      Host::Type(dialog, LayoutMgrPropDlg::IDC_MODEL_NAME, name);
      Host::Type(dialog, LayoutMgrPropDlg::IDC_DESCRIPTION, "a\r\nb");
      Host::Press(dialog, IDOK);
    });
    EXPECT_TRUE(chart->OnCommand(command));
    EXPECT_EQ(chart->GetProperties().ModelName, name);
    EXPECT_EQ(browser.root, name);
  }
  EXPECT_EQ(chart->GetProperties().Description, "a\r\nb");
  EXPECT_TRUE(CanUndo());
}

TEST_F(ModelDialog, ReplacesEmptyTexts) {
  chart->GetProperties().Author = "Somebody";
  host.Expect("Model Properties", [](CDialog& dialog) {
    for (const int id : {LayoutMgrPropDlg::IDC_MODEL_NAME, LayoutMgrPropDlg::IDC_AUTHOR,
                         LayoutMgrPropDlg::IDC_DESCRIPTION}) {
      Host::Type(dialog, id, "");
    }
    Host::Press(dialog, IDOK);
  });
  chart->GetProperties().EditModelProperties();
  EXPECT_EQ(chart->GetProperties().ModelName, "Untitled");
  EXPECT_EQ(chart->GetProperties().Author, "Untitled");
  EXPECT_EQ(chart->GetProperties().Description, " ");
}

TEST_F(ModelDialog, CancelKeepsTheTextsButTakesASnapshot) {
  chart->GetProperties().Author = "Somebody";
  const std::string before = chart->ModelText();
  host.Expect("Model Properties", [](CDialog& dialog) {
    Host::Type(dialog, LayoutMgrPropDlg::IDC_MODEL_NAME, "Other");
    Host::Press(dialog, IDCANCEL);
  });
  chart->OnCommand(ID_MODEL_PROPERTIES);
  EXPECT_EQ(chart->ModelText(), before);
  EXPECT_TRUE(CanUndo()) << "of what had changed before";
}

TEST_F(ModelDialog, SheetShowsItsPagesInOrder) {
  host.Expect("Code Generation Properties", [](CDialog& dialog) {
    std::vector<std::string> titles;
    for (const DialogControl& control : dialog.Controls()) {
      if (control.kind == DialogControl::Kind::Page) titles.push_back(control.label);
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"C++", "ANSI C", "Java", "C# (.Net)"}));
    Host::Press(dialog, IDCANCEL);
  });
  EXPECT_TRUE(chart->OnCommand(ID_CODEGEN_PROPERTIES));
  EXPECT_FALSE(CanUndo());
}

TEST_F(ModelDialog, EveryBoxOfTheSheetEditsItsField) {
  using P = ModelProperties;
  const struct {
    int box;
    std::string P::*field;
    const char* whenEmpty;
  } cases[] = {{CCodegenCPP::IDC_CLASS_NAME, &P::CppClassName, "Context"},
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
  for (const auto& c : cases) {
    properties.*c.field = "old " + std::to_string(c.box);
  }
  for (const auto& c : cases) {
    const P before = properties;
    for (const std::string& typed : {"new " + std::to_string(c.box), std::string()}) {
      host.Expect("Code Generation Properties", [&](CDialog& dialog) {
        Host::Type(dialog, c.box, typed);
        Host::Press(dialog, IDOK);
      });
      properties.EditCodegenProperties();
      EXPECT_EQ(properties.*c.field, typed.empty() ? c.whenEmpty : typed) << c.box;
      for (const auto& other : cases) {
        if (other.box == c.box) continue;
        EXPECT_EQ(properties.*other.field, before.*other.field) << c.box;
      }
    }
  }
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
