#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "fuzz/StepBook.h"
#include "model/Shape.h"
#include "persistence/CMorvaneDoc.h"
#include "shell/CObjectTree.h"
#include "surface/LayoutMgr.h"
#include "tests/support/FakeWindow.h"

namespace morvane {

class Connectable;

/// A hand that does anything at all with a chart without a screen, and never lets it grow far.
/// Every choice comes from one function, so that the same choices make the same chart.
class ChartHand {
 public:
  /// Gives a number from 0 to below `limit`.
  using Choose = std::function<int(int limit)>;

  explicit ChartHand(Choose choose);

  void DoAnything();
  /// The same and more: double clicks, menus, the tree, and all commands, with their dialogs.
  void DoEverything();
  /// What is wrong with the chart, or was with a gesture; empty if nothing is.
  std::string Fault() const;
  std::string TextFault() const;
  std::string HistoryFault();
  /// How many steps that can be undone the moves made up to now.
  std::size_t StepCount() const { return stepCount; }

  std::size_t Feedback() const { return window.Feedback(); }
  void LeaveWindow() { chart.OnMouseLeave(); }
  std::size_t ObjectCount() const;

 private:
  /// Tells of each text that the view shows it.
  class Document : public CMorvaneDoc {
   public:
    explicit Document(ChartHand& hand) : hand(hand) {}
    void OnTextChanged(const SharedText& text) override;

   private:
    ChartHand& hand;
  };

  int Below(int limit) { return choose(limit); }
  POINT AnyPoint();
  Shape* AnyObject();
  template <class Wanted>
  Wanted* Any() {
    constexpr int attempts = 8;
    for (int attempt = 0; attempt < attempts; ++attempt) {
      if (auto* found = dynamic_cast<Wanted*>(AnyObject())) return found;
    }
    return nullptr;
  }
  POINT AnchorOf(const Connectable& shape);

  void Hover(POINT p);
  void Drag(POINT from, POINT to, unsigned flags);
  void Click(POINT p, unsigned flags);
  void PlaceTool();
  void DragFromAnchor();
  void DragObject();
  void PressArrow();
  void DragLinkHandle();
  void DragCorner();
  void ObjectCommand();
  void CopyAndPaste();
  void CancelledDrag();
  void Command(unsigned id);
  void DoubleClick();
  void OpenMenu();
  void UseTree();
  void FindAndEdit();
  void AnyCommand();
  void NoteSteps();

  Choose choose;
  std::string fault;
  mutable CObjectTree tree;  ///< it brings itself up to date when it is looked at
  StepBook book;
  std::size_t stepCount = 0;
  std::size_t arrow = 0;   ///< the one that was pressed last
  bool inHistory = false;  ///< a text that comes is that of an undo or a redo
  Document document{*this};
  LayoutMgr& chart;
  FakeWindow window{chart};
};

}  // namespace morvane
