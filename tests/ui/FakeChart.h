#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "drawing/CDC.h"
#include "persistence/CDocument.h"
#include "platform/CScrollView.h"
#include "resources/CommandIds.h"

namespace morvane {

/// A view that notes what happens to it, and does in a test what the test says.
class FakeView : public CScrollView {
 public:
  int paints = 0;
  int asked = 0;  ///< how often, for the state of a command
  std::vector<std::string> log;
  std::vector<unsigned> commands;
  CDocument* document = nullptr;
  std::vector<unsigned> disabled;
  std::function<void()> onPress;

  void OnDraw(CDC& dc) override {
    ++paints;
    dc.FillSolidRect({-10000, -10000, 10000, 10000}, 0x0000FF);
  }
  void OnScroll(ScrollBar bar, ScrollCode code, int target) override {
    std::ostringstream text;
    text << (bar == ScrollBar::Horizontal ? 'h' : 'v') << static_cast<int>(code) << ':' << target;
    log.push_back(text.str());
    CScrollView::OnScroll(bar, code, target);
  }
  void OnLButtonDown(unsigned flags, POINT p) override {
    Note("down", flags, p);
    if (onPress) onPress();
  }
  void OnLButtonUp(unsigned flags, POINT p) override { Note("up", flags, p); }
  void OnLButtonDblClk(unsigned flags, POINT p) override { Note("double", flags, p); }
  void OnMouseMove(unsigned flags, POINT p) override { Note("move", flags, p); }
  void OnMouseLeave() override { log.push_back("leave"); }
  void OnSetCursor() override { log.push_back("cursor"); }
  void OnContextMenu(POINT screen) override { Note("menu", 0, ScreenToClient(screen)); }
  bool OnKeyDown(VirtualKey key, unsigned) override {
    std::ostringstream text;
    text << "key" << static_cast<int>(key);
    log.push_back(text.str());
    return key != VirtualKey::Other;
  }
  CommandState OnUpdateCommand(unsigned id) override {
    ++asked;
    if (id == ID_ZOOM_IN || id == ID_ZOOM_OUT || id == ID_EDIT_UNDO || id == ID_REFRESH ||
        id == ID_FILE_SAVE) {
      return CommandState::Enabled(std::find(disabled.begin(), disabled.end(), id) ==
                                   disabled.end());
    }
    return {};
  }
  void OnZoom(int steps, POINT) override { log.push_back("z" + std::to_string(steps)); }
  bool OnCommand(unsigned id) override {
    if (!OnUpdateCommand(id).enabled) return false;
    commands.push_back(id);
    if (id == ID_FILE_SAVE) document->DoFileSave();
    return true;
  }

 private:
  void Note(const char* what, unsigned flags, POINT p) {
    std::ostringstream text;
    text << what << ' ' << p.x << ',' << p.y;
    if (flags != 0) text << " f" << flags;
    log.push_back(text.str());
  }
};

/// A document whose files are names alone. A path with "bad" in it can't be opened.
class FakeDocument : public CDocument {
 public:
  bool OnNewDocument() override {
    Meet();
    return CDocument::OnNewDocument();
  }
  bool OnOpenDocument(const std::string& path) override {
    Meet();
    return path.find("bad") == std::string::npos;
  }
  bool OnSaveDocument(const std::string&) override {
    SetModifiedFlag(false);
    return true;
  }
  bool HasUnsavedMark() const override { return marked; }
  std::string StatusText() const override { return status; }
  /// Shows itself with or without unsaved changes, and a status text.
  void Show(bool mark, const std::string& text = "") {
    marked = mark;
    status = text;
    ShowTitle();
  }

 private:
  void Meet() {
    if (auto* fake = dynamic_cast<FakeView*>(GetView())) fake->document = this;
  }

  bool marked = false;
  std::string status;
};

}  // namespace morvane
