#include "shell/qt/ObjectBrowserPane.h"

#include <utility>

#include "drawing/qt/QtText.h"
#include "platform/qt/QtTreeCtrl.h"
#include "resources/Texts.h"
#include "shell/qt/DockTitle.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

constexpr int kWidth = 150;

}  // namespace

ObjectBrowserPane::ObjectBrowserPane(LayoutMgr* chart, QWidget* parent)
    : QDockWidget(ToQString(LoadText(IDS_OBJECT_BROWSER)), parent),
      window(new QtTreeCtrl(tree, kWidth)),
      chart(chart) {
  setObjectName("objectBrowser");
  window->setAccessibleName(windowTitle());
  window->setRootIsDecorated(false);
  setWidget(window);
  KeepTitleWhole(*this);
  if (chart != nullptr) chart->SetObjectTree(&tree);
}

ObjectBrowserPane::~ObjectBrowserPane() {
  Detach();
  delete window;
}

void ObjectBrowserPane::Detach() {
  if (LayoutMgr* former = std::exchange(chart, nullptr)) former->SetObjectTree(nullptr);
  tree.Detach();
}

}  // namespace morvane
