#include "surface/ChartHistory.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

#include "drawing/TextCodec.h"
#include "persistence/CDocument.h"
#include "platform/MessageBox.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

/// All of a model text behind the line of the zoom, which is the second one.
std::string_view BehindZoom(std::string_view text) {
  for (int line = 0; line < 2; ++line)
    text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
  return text;
}

}  // namespace

void ChartHistory::Keep() {
  // A click behind a zoom is no step either, and what can be redone stays.
  KeepZoom();
  std::string text = view.ModelText();
  const EncodingChange change = Unify(text);
  if (std::exchange(goesOn, false) && history.CanUndo() && !history.CanRedo()) {
    history.Amend(std::move(text));
  } else {
    history.Push(std::move(text));
  }
  snapshotZoom = view.GetStoredZoom();
  Tell(history.Current());
  if (change != EncodingChange::None && view.GetDocument() != nullptr) {
    view.GetDocument()->OnEncodingChanged(change);
  }
}

/// A chart that was edited is stored in the encoding that it had; one that was only read stays as
/// it is.
EncodingChange ChartHistory::Unify(std::string& text) {
  const SharedText snapshot = history.Current();
  if (std::exchange(isAsRead, false) || snapshot == nullptr ||
      BehindZoom(text) == BehindZoom(*snapshot)) {
    return EncodingChange::None;
  }
  const bool wasUtf8 = IsValidUtf8(*snapshot);
  if (wasUtf8 && IsValidUtf8(text)) return EncodingChange::None;
  const EncodingChange change =
      view.UnifyEncoding(wasUtf8 ? TextEncoding::Utf8 : TextEncoding::Windows1252);
  text = view.ModelText();
  return change;
}

void ChartHistory::OnZoomChanged() { Tell(std::make_shared<const std::string>(view.ModelText())); }

/// A zoom since the present snapshot becomes a part of it, if nothing else has changed.
void ChartHistory::KeepZoom() {
  const SharedText snapshot = history.Current();
  if (view.GetStoredZoom() == snapshotZoom || snapshot == nullptr) return;
  std::string text = view.ModelText();
  if (BehindZoom(text) == BehindZoom(*snapshot)) history.Amend(std::move(text));
}

void ChartHistory::Undo() {
  if (!history.CanUndo()) return;
  KeepZoom();
  StepTo(history.Previous(), &UndoHistory::StepBack);
}

void ChartHistory::Redo() {
  if (!history.CanRedo()) return;
  KeepZoom();
  StepTo(history.Next(), &UndoHistory::StepForward);
}

void ChartHistory::StepTo(const SharedText& snapshot, void (UndoHistory::*step)()) {
  std::string reason;
  if (!view.Restore(*snapshot, reason)) {
    // A snapshot is this program's own text; there may be no memory for another chart.
    ShowMessage(reason, MB_ICONHAND);
    return;
  }
  (history.*step)();
  snapshotZoom = view.GetStoredZoom();
  Tell(history.Current());
}

void ChartHistory::Tell(const SharedText& text) {
  view.TellText(text);
  if (view.GetDocument() != nullptr) view.GetDocument()->OnTextChanged(text);
}

}  // namespace morvane
