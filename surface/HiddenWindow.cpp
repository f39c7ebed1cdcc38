#include "surface/HiddenWindow.h"

#include <memory>
#include <utility>

#include "model/ModelMgr.h"
#include "surface/LayoutMgr.h"
#include "surface/ObjectCommands.h"
#include "surface/ObjectMenus.h"
#include "surface/Pasting.h"

namespace morvane {

void HiddenWindow::ShowMenu(Shape* shape, POINT screen) {
  const std::span<const MenuEntry> menu = MenuOf(shape);
  if (menu.empty()) return;
  // The chart may be another one when the menu closes.
  const std::shared_ptr<ModelMgr> held = view->HoldModel();
  const Pasting::MenuPlace place(view->GetPasting(), screen);
  const unsigned chosen =
      TrackContextMenu(menu, screen, [this](unsigned id) { return OnUpdateCommand(id); });
  if (chosen != 0 && view->GetModel().Holds(target)) OnCommand(chosen);
}

CommandState HiddenWindow::OnUpdateCommand(unsigned id) const {
  const auto* row = ObjectCommands().Find(id);
  if (row == nullptr || target == nullptr) return view->OnUpdateCommand(id);
  return row->state(*target, id);
}

void HiddenWindow::OnCommand(unsigned id) {
  const auto* row = ObjectCommands().Find(id);
  if (row == nullptr) {
    view->OnCommand(id);
    return;
  }
  if (target == nullptr) return;
  LayoutMgr& chart = *view;
  const std::shared_ptr<ModelMgr> held = chart.HoldModel();
  row->run(*std::exchange(target, nullptr), id);
  chart.TakeSnapshot();
}

}  // namespace morvane
