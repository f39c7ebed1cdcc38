#include "platform/CRectTracker.h"

#include <array>

#include "platform/CDC.h"
#include "platform/CWnd.h"

RECT CRectTracker::GetHandleRect(int handle) const {
  const RECT r = GetTrueRect();
  const std::int32_t size = handleSize;
  const std::int32_t middleX = SubSat(Middle(r.left, r.right), size / 2);
  const std::int32_t middleY = SubSat(Middle(r.top, r.bottom), size / 2);
  const std::int32_t rightX = SubSat(r.right, size);
  const std::int32_t bottomY = SubSat(r.bottom, size);
  const std::array<POINT, kHandleCount> corners{POINT{r.left, r.top},    POINT{rightX, r.top},
                                                POINT{rightX, bottomY},  POINT{r.left, bottomY},
                                                POINT{middleX, r.top},   POINT{rightX, middleY},
                                                POINT{middleX, bottomY}, POINT{r.left, middleY}};
  const POINT p = corners[static_cast<std::size_t>(handle)];
  return {p.x, p.y, AddSat(p.x, size), AddSat(p.y, size)};
}

void CRectTracker::Draw(CDC& dc) const {
  const unsigned mask = GetHandleMask();
  for (int handle = 0; handle < kHandleCount; ++handle) {
    if ((mask & (1U << handle)) != 0) dc.FillSolidRect(GetHandleRect(handle), 0x000000);
  }
}

int CRectTracker::HitTest(POINT p) const {
  const RECT r = GetTrueRect();
  if (!PtInRect(r, p)) return kNothing;
  const unsigned mask = GetHandleMask();
  for (int handle = 0; handle < kHandleCount; ++handle) {
    if ((mask & (1U << handle)) != 0 && PtInRect(GetHandleRect(handle), p)) return handle;
  }
  return kInside;
}

bool CRectTracker::SetCursor(CWnd& window, POINT p) const {
  constexpr std::array<Cursor, kInside + 1> cursors{
      Cursor::SizeNWSE, Cursor::SizeNESW, Cursor::SizeNWSE, Cursor::SizeNESW, Cursor::SizeNS,
      Cursor::SizeWE,   Cursor::SizeNS,   Cursor::SizeWE,   Cursor::SizeAll};
  const int hit = HitTest(p);
  if (hit == kNothing) return false;
  window.SetCursor(cursors[static_cast<std::size_t>(hit)]);
  return true;
}
