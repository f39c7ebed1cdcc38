#include <iostream>
#include <map>

#include "drawing/NullDC.h"
#include "platform/Clipboard.h"
#include "platform/Dialogs.h"
#include "platform/DragImages.h"
#include "platform/FileWatch.h"
#include "platform/MessageBox.h"
#include "platform/Pictures.h"
#include "platform/PopupMenus.h"
#include "platform/Printing.h"
#include "platform/Profile.h"
#include "platform/ProgressBox.h"
#include "platform/WaitCursor.h"

namespace morvane {

// What stands in for each service of the desktop until a real one is set: they need no display.

namespace {

class ConsoleMessageBoxes : public MessageBoxes {
 public:
  MessageAnswer Show(const std::string& text, unsigned flags) override {
    std::cerr << text << '\n';
    switch (flags & kButtonSetMask) {
      case MB_YESNO: return MessageAnswer::No;
      case MB_OKCANCEL:
      case MB_YESNOCANCEL: return MessageAnswer::Cancel;
      default: return MessageAnswer::Ok;
    }
  }
};

class MemoryClipboard : public Clipboard {
 public:
  ClipboardError Put(const std::vector<Item>& items) override {
    contents.clear();
    for (const Item& item : items) contents[item.format] = item.bytes;
    return ClipboardError::None;
  }
  std::optional<std::string> Get(const std::string& format, ClipboardError& error) override {
    error = ClipboardError::None;
    const auto found = contents.find(format);
    if (found == contents.end()) return std::nullopt;
    return found->second;
  }
  bool IsAvailable(const std::string& format) override { return contents.count(format) != 0; }

 private:
  std::map<std::string, std::string> contents;
};

class NoDialogs : public Dialogs {
 public:
  std::optional<std::string> AskOpenPath(const FileFilter&) override { return std::nullopt; }
  std::optional<std::string> AskSavePath(const FileFilter&, const std::string&) override {
    return std::nullopt;
  }
  std::optional<ExportAnswer> AskExport(const ExportRequest&) override { return std::nullopt; }
  std::optional<COLORREF> AskColour(COLORREF) override { return std::nullopt; }
  std::optional<FontChoice> AskFont(const FontChoice&) override { return std::nullopt; }
};

class NoFileWatch : public FileWatch {
 public:
  std::unique_ptr<Handle> Start(const std::string&, std::function<void()>) override {
    return nullptr;
  }
};

class NoPrinting : public Printing {
 public:
  bool AskPrinter(CPrintInfo&, const std::string&) override { return false; }
  void SetUpPrinter() override {}
  std::unique_ptr<PrintJob> StartJob(const std::string&) override { return nullptr; }
  void ShowPreview(PrintedPages&) override {}
};

class NoPopupMenus : public PopupMenus {
 public:
  unsigned Track(const std::vector<Item>&, POINT) override { return 0; }
};

class NoPictures : public Pictures {
 public:
  std::unique_ptr<CDC> ReferenceDC() override { return std::make_unique<NullDC>(); }
  std::optional<std::string> MakePng(SIZE, const PngForm&, const Paint&) override {
    return std::nullopt;
  }
  std::optional<std::string> MakePdf(SIZE, const PictureInfo&, const Paint&) override {
    return std::nullopt;
  }
};

class NoProgressBoxes : public ProgressBoxes {
  class Box : public ProgressBox {
    bool Show(double) override { return true; }
  };

 public:
  std::unique_ptr<ProgressBox> Open(const std::string&) override { return std::make_unique<Box>(); }
};

}  // namespace

ProgressBoxes& ProgressBoxes::Default() {
  static NoProgressBoxes service;
  return service;
}

MessageBoxes& MessageBoxes::Default() {
  static ConsoleMessageBoxes service;
  return service;
}

Clipboard& Clipboard::Default() {
  static MemoryClipboard service;
  return service;
}

Profile& Profile::Default() {
  static MemoryProfile service;
  return service;
}

Dialogs& Dialogs::Default() {
  static NoDialogs service;
  return service;
}

PopupMenus& PopupMenus::Default() {
  static NoPopupMenus service;
  return service;
}

DragImages& DragImages::Default() {
  static DragImages service;
  return service;
}

WaitCursors& WaitCursors::Default() {
  static WaitCursors service;
  return service;
}

Pictures& Pictures::Default() {
  static NoPictures service;
  return service;
}

Printing& Printing::Default() {
  static NoPrinting service;
  return service;
}

FileWatch& FileWatch::Default() {
  static NoFileWatch service;
  return service;
}

}  // namespace morvane
