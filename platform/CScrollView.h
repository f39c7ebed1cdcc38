#pragma once

#include <string>

#include "platform/CWnd.h"

namespace morvane {

class CDC;
class CPrintInfo;
class Mapping;

/// A window onto a larger surface, scrolled in device pixels.
class CScrollView : public CWnd {
 public:
  /// The size of the whole surface and of the least page step, device pixels. A page is what the
  /// window shows, but for a little that is seen before and behind it.
  void SetScrollSizes(SIZE total, SIZE page);
  SIZE GetTotalSize() const { return total; }
  int GetScrollPos(ScrollBar bar) const;
  POINT GetScrollPosition() const { return position; }
  /// Takes a position as it is, without repainting.
  void SetScrollPos(ScrollBar bar, int value);
  /// The greatest position of a bar: the surface less what the window shows, raised to a multiple
  /// of the scroll step.
  int GetScrollLimit(ScrollBar bar) const;

  /// The first showing of the document, after it was made or read.
  virtual void OnInitialUpdate() {}
  /// Sets the origin of a context that `OnDraw` is to paint on.
  virtual void OnPrepareDC(CDC& dc);
  /// The mapping of a context that paints in client points, of the beginning of a gesture if one
  /// runs.
  Mapping ClientMapping() const;
  /// Paints the surface.
  virtual void OnDraw(CDC& dc) = 0;
  /// Scrolls by a distance in device pixels, limited to the surface; gives true if it moved.
  virtual bool OnScrollBy(SIZE distance);
  /// While a gesture runs, the points that it knows stay what they are, however far the surface
  /// goes on: the scroll position is that of its beginning. Behind it the surface stays where it
  /// went.
  class Gesture {
   public:
    explicit Gesture(CScrollView& view);
    ~Gesture();
    Gesture(const Gesture&) = delete;
    Gesture& operator=(const Gesture&) = delete;

   private:
    CScrollView& view;
  };
  /// A turn of the wheel by eighths of a degree, towards the beginning of the bar if positive. What
  /// is too little for a step counts for the next turn.
  void OnWheel(ScrollBar bar, int angle);
  /// Scrolls so that the surface shows from a position on, as near as its steps allow.
  void ScrollTo(POINT place);
  /// Where the surface stands now, also under a gesture.
  POINT ShownPosition() const { return position + GetDrift(); }
  /// A step of a scroll bar or of a key.
  virtual void OnScroll(ScrollBar bar, ScrollCode code, int target = 0);
  /// Steps of the wheel that ask for a larger picture, or for a smaller one if negative. What lies
  /// at a client point is to stay there.
  virtual void OnZoom(int /*steps*/, POINT /*client*/) {}
  /// Another document is worked on now.
  virtual void OnDeactivate() {}
  /// What the pages of the surface are called.
  virtual std::string GetTitle() const { return {}; }
  /// Takes over what the user is just typing: the document is about to be asked for its text.
  virtual void FinishTyping() {}
  /// The wish to close the window; true lets it close.
  virtual bool OnClose() { return true; }

  // Printing calls these in their order; see ViewPages.
  /// Chooses the printer and the pages; false on Cancel.
  virtual bool OnPreparePrinting(CPrintInfo& info) { return DoPreparePrinting(info); }
  /// Divides the surface into pages of the context and sets their number in `info`.
  virtual void OnBeginPrinting(CDC& /*dc*/, CPrintInfo& /*info*/) {}
  /// Paints the page `info.curPage`.
  virtual void OnPrint(CDC& dc, CPrintInfo& /*info*/) { OnDraw(dc); }
  virtual void OnEndPrinting(CDC& /*dc*/, CPrintInfo& /*info*/) {}
  /// Lets the user choose how the surface is put on paper.
  virtual void OnFilePrintSetup() {}
  /// Prints, after the print dialog unless `direct`, or shows the pages in a window.
  void OnFilePrint(bool direct);
  void OnFilePrintPreview();

  void OnSize() override;

 protected:
  /// The print dialog, unless the pages are for the screen.
  bool DoPreparePrinting(CPrintInfo& info);
  /// The smallest distance that the surface scrolls by.
  virtual int ScrollStep() const { return 1; }
  void UpdateBars();

 private:
  int PageStep(ScrollBar bar) const;
  int DistanceOf(ScrollBar bar, ScrollCode code, int target) const;

  SIZE total;
  SIZE page;
  POINT position;
  POINT wheelRest;  ///< what the wheel has turned too little for a step, in parts of a pixel
  int gestures = 0;
};

}  // namespace morvane
