#include "connectors/BoxLook.h"

#include "dialogs/MesgPropDlg.h"
#include "model/ModelStream.h"

void BoxLook::Write(ModelStream& stream) const {
  stream << bgTransparent << ' ' << noBorder << ' ' << bgColor << ' ' << borderColor << '\n';
}

void BoxLook::Read(ModelStream& stream) {
  stream >> bgTransparent >> noBorder >> bgColor >> borderColor;
}

bool BoxLook::Edit(MesgPropDlg& dialog, bool& showAnchors) {
  dialog.transparent = bgTransparent;
  dialog.noBorder = noBorder;
  dialog.hidden = showAnchors ? 0 : 1;
  dialog.bgColor = bgColor;
  dialog.borderColor = borderColor;
  if (!dialog.DoModal()) return false;
  bgTransparent = dialog.transparent;
  noBorder = dialog.noBorder;
  showAnchors = dialog.hidden == 0;
  bgColor = dialog.bgColor;
  borderColor = dialog.borderColor;
  return true;
}
