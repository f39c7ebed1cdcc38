#include "connectors/MetafileStamp.h"

#include "drawing/CDC.h"

void MetafileStamp::Show(POINT point, CDC& dc) {
  if (active && point == position) return;
  if (active) Play(position, dc);
  active = true;
  Play(point, dc);
  position = point;
}

void MetafileStamp::End(CDC& dc) {
  Play(position, dc);
  metafile.reset();
  active = false;
  position = {-1, -1};
}

/// Inverts the picture at a place; a second time restores what was there.
void MetafileStamp::Play(POINT point, CDC& dc) const {
  if (!metafile) return;
  const POINT origin = dc.GetViewportOrg();
  dc.SetViewportOrg(origin + point);
  const RasterOp oldRop = dc.SetROP2(RasterOp::NotXorPen);
  dc.PlayMetaFile(*metafile);
  dc.SetROP2(oldRop);
  dc.SetViewportOrg(origin);
}
