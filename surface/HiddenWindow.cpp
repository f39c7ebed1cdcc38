#include "surface/HiddenWindow.h"

#include "model/Shape.h"
#include "surface/LayoutMgr.h"

void HiddenWindow::OnCommand(unsigned id) {
  if (target == nullptr) return;
  target->OnCommand(id);
  target = nullptr;
  view->TakeSnapshot();
}
