#include "platform/Feedback.h"

#include <utility>

#include "drawing/CDC.h"
#include "drawing/Metafile.h"
#include "platform/CWnd.h"

namespace morvane {

namespace {

/// On a fine screen a thin stroke reaches so far beyond its points, device pixels.
constexpr std::int32_t kStrokeReach = 2;

/// The box of all that a drawing can touch.
RECT BoxOf(const Metafile& drawing) {
  RECT box;
  for (const Metafile::Record& record : drawing.records) {
    const std::int32_t reach = AddSat(record.pen.width, kStrokeReach);
    if (!IsRectEmpty(record.rect)) box = UnionRect(box, InflateRect(record.rect, reach));
    for (const POINT p : record.points) box = UnionRect(box, InflateRect(RectAt(p), reach));
  }
  return box;
}

}  // namespace

struct Feedback::Shown {
  CWnd& window;
  Metafile drawing;
  RECT box;  ///< of the drawing where it was made
  POINT place;
};

Feedback::Feedback() = default;

Feedback::~Feedback() { Hide(); }

void Feedback::Show(CWnd& window, Metafile drawing, POINT place) {
  Hide();
  const RECT box = BoxOf(drawing);
  shown = std::make_unique<Shown>(Shown{window, std::move(drawing), box, place});
  window.AddFeedback(*this);
  Invalidate();
}

void Feedback::MoveTo(POINT place) {
  if (!IsShown() || place == shown->place) return;
  Invalidate();
  shown->place = place;
  Invalidate();
}

void Feedback::Hide() {
  if (!IsShown()) return;
  Invalidate();
  shown->window.RemoveFeedback(*this);
  shown.reset();
}

void Feedback::Invalidate() const { shown->window.InvalidateFeedback(shown->box + shown->place); }

void Feedback::Paint(CDC& dc) const {
  const POINT origin = dc.GetViewportOrg();
  dc.SetViewportOrg(origin + shown->place);
  if (dc.RectVisible(shown->box)) dc.PlayMetaFile(shown->drawing);
  dc.SetViewportOrg(origin);
}

}  // namespace morvane
