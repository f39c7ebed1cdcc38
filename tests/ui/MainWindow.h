#pragma once

#include "shell/qt/CChildFrame.h"
#include "shell/qt/CMainFrame.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

/// A shown main window over charts of a kind, with settings of its own.
template <class Document, class View>
class MainWindow : public testing::Test {
 protected:
  MainWindow() { Start(); }
  ~MainWindow() override {
    frame->Manager().CloseAllDocuments();
    frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  static std::unique_ptr<CMainFrame> MakeFrame() {
    return std::make_unique<CMainFrame>(CMainFrame::Factories{
        [] { return std::make_unique<Document>(); }, [] { return std::make_unique<View>(); }});
  }
  void Start() {
    frame = MakeFrame();
    frame->show();
    QApplication::setActiveWindow(frame.get());
    QApplication::processEvents();
  }
  /// A chart from a file, or a new one.
  Document& Open(const std::string& path = "") {
    DocumentManager& manager = frame->Manager();
    auto* document = path.empty() ? manager.NewDocument() : manager.OpenDocumentFile(path);
    QApplication::processEvents();
    return dynamic_cast<Document&>(*document);
  }
  static View& ViewOf(CDocument& document) { return dynamic_cast<View&>(*document.GetView()); }
  /// What stands in the title bar.
  std::string Title() const { return frame->windowHandle()->title().toStdString(); }
  bool IsChecked(unsigned id) const { return frame->StateOf(id).checked; }

  ScriptedMessageBoxes boxes;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  std::unique_ptr<CMainFrame> frame;
};

}  // namespace morvane
