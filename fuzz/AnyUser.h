#pragma once

#include "fuzz/ByteSource.h"
#include "platform/Dialog.h"
#include "platform/Dialogs.h"
#include "platform/MessageBox.h"
#include "platform/PopupMenus.h"

namespace morvane {

/// A user whose answers come from an input: does anything that a dialog allows, and answers boxes,
/// menus and the desktop's dialogs in any way. It stands in for their services as long as it lives.
class AnyUser : public DialogHost, public Dialogs, public MessageBoxes, public PopupMenus {
 public:
  /// The source is not owned.
  explicit AnyUser(ByteSource& source);
  ~AnyUser() override;
  AnyUser(const AnyUser&) = delete;
  AnyUser& operator=(const AnyUser&) = delete;

  /// The only path that it opens and saves to; with none it cancels.
  std::optional<std::string> path;
  /// Types words that come up again and again, so that a search finds them, and mostly takes over
  /// what was typed.
  bool typesWords = false;

  void Run(Dialog& dialog) override;
  std::optional<std::string> AskOpenPath(const FileFilter& filter) override;
  std::optional<std::string> AskSavePath(const FileFilter& filter,
                                         const std::string& suggestion) override;
  std::optional<ExportAnswer> AskExport(const ExportRequest& request) override;
  std::optional<COLORREF> AskColour(COLORREF start) override;
  std::optional<FontChoice> AskFont(const FontChoice& start) override;
  MessageAnswer Show(const std::string& text, unsigned flags) override;
  unsigned Track(const std::vector<Item>& items, POINT screen) override;

 private:
  void Use(Dialog& dialog, DialogControl& control);
  std::string Typed(const char* lineBreak);
  /// Finds words and replaces or edits them.
  void Search(Dialog& dialog);

  ByteSource& source;
  DialogHost* formerHost;
  Dialogs* formerDialogs;
  MessageBoxes* formerBoxes;
  PopupMenus* formerMenus;
};

}  // namespace morvane
