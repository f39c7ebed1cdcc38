#include "shell/qt/ChartBrowserPane.h"

#include <utility>

#include "drawing/qt/QtText.h"
#include "platform/InstallFolder.h"
#include "platform/Profile.h"
#include "platform/qt/QtTreeCtrl.h"
#include "resources/Texts.h"
#include "shell/qt/DockTitle.h"

namespace morvane {

namespace {

constexpr int kWidth = 175;
constexpr const char* kSection = "ToolBars";
constexpr const char* kKey = "BrowseDir";
constexpr const char* kFirstFolder = "Examples/Socket_C++";

}  // namespace

ChartBrowserPane::ChartBrowserPane(std::function<void(const std::string& path)> open,
                                   QWidget* parent)
    : QDockWidget(ToQString(LoadText(IDS_CHART_BROWSER)), parent),
      window(new QtTreeCtrl(tree, kWidth)) {
  setObjectName("chartBrowser");
  window->setAccessibleName(windowTitle());
  setWidget(window);
  KeepTitleWhole(*this);
  window->StartAtLeft();
  tree.InitTree(true);
  tree.OpenCallback = std::move(open);
}

ChartBrowserPane::~ChartBrowserPane() { delete window; }

void ChartBrowserPane::SelectStoredFolder() {
  const std::string first = GetInstallFolder() + kFirstFolder;
  tree.SelectPath(Service<Profile>::Get().GetString(kSection, kKey, first));
}

void ChartBrowserPane::StoreFolder() const {
  const TreeItem* item = tree.Selected();
  if (item == nullptr) return;
  Service<Profile>::Get().WriteString(kSection, kKey, tree.PathOfItem(*item));
}

}  // namespace morvane
