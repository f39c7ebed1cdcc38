#include "connectors/BoxLook.h"

#include "model/Editors.h"
#include "model/ModelStream.h"

namespace morvane {

void BoxLook::Write(ModelStream& stream) const {
  stream << bgTransparent << ' ' << noBorder << ' ' << bgColor << ' ' << borderColor << '\n';
}

void BoxLook::Read(ModelStream& stream) {
  stream >> bgTransparent >> noBorder >> bgColor >> borderColor;
}

BoxFields BoxLook::Fields(bool showAnchors) const {
  return {bgTransparent, noBorder, showAnchors ? 0 : 1, bgColor, borderColor};
}

void BoxLook::Take(const BoxFields& fields, bool& showAnchors) {
  bgTransparent = fields.transparent;
  noBorder = fields.noBorder;
  showAnchors = fields.hidden == 0;
  bgColor = fields.bgColor;
  borderColor = fields.borderColor;
}

}  // namespace morvane
