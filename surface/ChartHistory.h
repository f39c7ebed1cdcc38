#pragma once

#include <cstdint>
#include <string>

#include "model/ChartView.h"
#include "persistence/TextEncoding.h"
#include "persistence/UndoHistory.h"
#include "platform/SharedText.h"

namespace morvane {

class LayoutMgr;

/// The steps of a chart that can be undone. It tells the document of each text that the chart takes
/// on.
class ChartHistory {
 public:
  explicit ChartHistory(LayoutMgr& view) : view(view) {}

  bool CanUndo() const { return history.CanUndo(); }
  bool CanRedo() const { return history.CanRedo(); }
  /// The present snapshot.
  SharedText Current() const { return history.Current(); }

  /// Makes a step of the present model text, if it has changed.
  void Keep();
  /// What `Keep` finds next is no step of its own but goes on with the present one.
  void GoOnWithStep() { goesOn = true; }
  /// What `Keep` finds next was read or converted as a whole and keeps the bytes of its texts.
  void TakeAsRead() { isAsRead = true; }
  /// Tells the document of a change of the zoom, which is a part of the text and yet no step.
  void OnZoomChanged();
  void Undo();
  void Redo();

 private:
  void KeepZoom();
  EncodingChange Unify(std::string& text);
  void StepTo(const SharedText& snapshot, void (UndoHistory::*step)());
  void Tell(const SharedText& text);

  LayoutMgr& view;
  UndoHistory history;
  bool goesOn = false;
  bool isAsRead = false;
  std::int16_t snapshotZoom = ChartView::kNormalZoom;  ///< of the present snapshot
};

}  // namespace morvane
