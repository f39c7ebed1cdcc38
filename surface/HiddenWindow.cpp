#include "surface/HiddenWindow.h"

#include <memory>
#include <utility>

#include "connectors/Mesg.h"
#include "connectors/Transition.h"
#include "model/ConnectableRectShape.h"
#include "model/ModelMgr.h"
#include "platform/PopupMenus.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "surface/LayoutMgr.h"
#include "surface/ObjectMenus.h"

void HiddenWindow::ShowMenu(Shape* shape, POINT screen) {
  std::vector<PopupMenus::Item> items;
  for (const ObjectMenuEntry& entry : MenuOf(shape)) {
    items.push_back({entry.id, Translate(entry.text), OnUpdateCommand(entry.id)});
  }
  if (items.empty()) return;
  // The chart may be another one when the menu closes.
  const std::shared_ptr<ModelMgr> held = view->HoldModel();
  const unsigned chosen = TrackMenu(items, screen);
  if (chosen != 0 && view->GetModel().Holds(target)) OnCommand(chosen);
}

CommandState HiddenWindow::OnUpdateCommand(unsigned id) const {
  const auto* transition = dynamic_cast<const Transition*>(target);
  const Mesg* mesg = transition != nullptr ? transition->GetMesg() : nullptr;
  switch (id) {
    case ID_TRANSITION_ADD_MESG: return CommandState::Enabled(mesg == nullptr);
    case ID_TRANSITION_DELETE_MESG: return CommandState::Enabled(mesg != nullptr);
    case ID_TRANSITION_ALIGN_MESG:
      return CommandState::Enabled(mesg != nullptr && !mesg->IsAligned());
    case ID_MESG_ALIGN: {
      const auto* box = dynamic_cast<const Mesg*>(target);
      return CommandState::Enabled(box != nullptr && !box->IsAligned());
    }
    case ID_SHOW_ANCHORS: {
      const auto* shape = dynamic_cast<const ConnectableRectShape*>(target);
      return CommandState::Checked(shape != nullptr && shape->AreAnchorsShown());
    }
    default: return CommandState::Enabled(true);
  }
}

void HiddenWindow::OnCommand(unsigned id) {
  if (id == ID_BRING_TO_FRONT || id == ID_SEND_TO_BACK) {
    view->OnCommand(id);
    return;
  }
  if (target == nullptr) return;
  LayoutMgr& chart = *view;
  const std::shared_ptr<ModelMgr> held = chart.HoldModel();
  std::exchange(target, nullptr)->OnCommand(id);
  chart.TakeSnapshot();
}
