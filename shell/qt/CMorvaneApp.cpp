#include "shell/qt/CMorvaneApp.h"

#include <QThread>

#include "persistence/CMorvaneDoc.h"
#include "persistence/DocumentManager.h"
#include "platform/CrashReport.h"
#include "platform/MessageBox.h"
#include "platform/qt/QtTranslations.h"
#include "recovery/RecoveryStore.h"
#include "resources/TextSource.h"
#include "resources/Texts.h"
#include "resources/Version.h"
#include "shell/ChartSession.h"
#include "shell/Language.h"
#include "shell/RecoveryList.h"
#include "shell/SessionSettings.h"
#include "shell/qt/CChildFrame.h"
#include "shell/qt/CSplashDlg.h"
#include "shell/qt/FrameState.h"
#include "shell/qt/RecoveryWindow.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

/// Gives the splash the time to come up before the work of the start goes on.
constexpr unsigned long kSplashLead = 100;

}  // namespace

CMorvaneApp::CMorvaneApp() = default;

CMorvaneApp::~CMorvaneApp() {
  // An end in order, also of a start that failed, is no crash; unsaved work stays where it is.
  if (frame != nullptr && !ended) CMorvaneApp::OnClosing();
  if (frame != nullptr) frame->SetListener(nullptr);
}

bool CMorvaneApp::InitInstance(const std::string& file) {
  LoadLanguage();
  LoadToolkitTexts(TextSource::Current().Locale());
  if (!ShowSplash()) {
    ShowMessage(LoadText(IDS_SPLASH_FAILED));
    return false;
  }
  QThread::msleep(kSplashLead);
  store = std::make_unique<RecoveryStore>(RecoveryStore::DefaultFolder());
  CrashReport::Install(store->CrashReportPath(), kProductVersion);
  frame = std::make_unique<CMainFrame>(
      CMainFrame::Factories{[this] { return std::make_unique<CMorvaneDoc>(store.get()); },
                            [] { return std::make_unique<LayoutMgr>(); }});
  if (!FrameState::Restore(*frame)) frame->showMaximized();
  BringBack();
  frame->SetListener(this);
  const bool started = ProcessShellCommand(file);
  OnWindowsChanged();
  return started;
}

/// Unsaved work first: its charts are open then, and come back no second time.
void CMorvaneApp::BringBack() {
  std::vector<RecoveryOffer> offers = store->TakeOffers();
  if (!offers.empty()) {
    RecoveryList list(std::move(offers), [this](RecoveryOffer& offer) {
      return RecoverChart(frame->Manager(), offer);
    });
    RecoveryWindow(list, frame.get()).exec();
  }
  SessionRecord windows = store->TakeCrashedWindows();
  switch (SessionSettings::Read()) {
    case Reopen::Never: return;
    case Reopen::AfterCrash: break;
    case Reopen::Always: windows.Merge(store->LastWindows()); break;
  }
  ReopenWindows(frame->Manager(), windows);
}

void CMorvaneApp::OnWindowsChanged() {
  const CChildFrame* child = frame->ActiveChild();
  store->RememberWindows(
      WindowsOf(frame->Manager(), child != nullptr ? child->Document() : nullptr));
}

void CMorvaneApp::OnClosing() {
  ended = true;
  const CChildFrame* child = frame->ActiveChild();
  store->EndSession(WindowsOf(frame->Manager(), child != nullptr ? child->Document() : nullptr));
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
  DocumentManager& manager = frame->Manager();
  if (!file.empty()) {
    manager.OpenDocumentFile(file);
  } else if (manager.Documents().empty()) {
    manager.NewDocument();
  }
  return !manager.Documents().empty();
}

}  // namespace morvane
