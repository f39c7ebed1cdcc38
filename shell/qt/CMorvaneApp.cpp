#include "shell/qt/CMorvaneApp.h"

#include <QThread>

#include "persistence/CMorvaneDoc.h"
#include "platform/MessageBox.h"
#include "platform/qt/QtTranslations.h"
#include "resources/Language.h"
#include "resources/Texts.h"
#include "shell/qt/CMainFrame.h"
#include "shell/qt/CSplashDlg.h"
#include "shell/qt/FrameState.h"
#include "surface/LayoutMgr.h"

namespace {

/// Gives the splash the time to come up before the work of the start goes on.
constexpr unsigned long kSplashLead = 100;

}  // namespace

CMorvaneApp::CMorvaneApp() = default;
CMorvaneApp::~CMorvaneApp() = default;

bool CMorvaneApp::InitInstance(const std::string& file) {
  LoadLanguage();
  LoadToolkitTexts();
  if (!ShowSplash()) {
    ShowMessage(LoadText(IDS_SPLASH_FAILED));
    return false;
  }
  QThread::msleep(kSplashLead);
  frame = std::make_unique<CMainFrame>(
      CMainFrame::Factories{[] { return std::make_unique<CMorvaneDoc>(); },
                            [] { return std::make_unique<LayoutMgr>(); }});
  if (!FrameState::Restore(*frame)) frame->showMaximized();
  return ProcessShellCommand(file);
}

bool CMorvaneApp::ShowSplash() {
  auto splash = std::make_unique<CSplashDlg>(false);
  if (!splash->IsLoaded()) return false;
  splash->setAttribute(Qt::WA_DeleteOnClose);
  splash->show();
  splash->repaint();
  static_cast<void>(splash.release());  // it deletes itself when its time is up
  return true;
}

bool CMorvaneApp::ProcessShellCommand(const std::string& file) {
  CDocManager& manager = frame->Manager();
  return (file.empty() ? manager.NewDocument() : manager.OpenDocumentFile(file)) != nullptr;
}
