#pragma once

#include <optional>
#include <string>

#include "platform/Dialogs.h"
#include "platform/UseService.h"
#include "tests/support/NestedLoop.h"

namespace morvane {

/// Answers each dialog for saving with a path, or with Cancel where that is empty, and the others
/// with Cancel.
class SaveDialogs : public Dialogs {
 public:
  std::optional<std::string> AskOpenPath(const FileFilter&) override { return {}; }
  std::optional<std::string> AskSavePath(const FileFilter&, const std::string& start) override {
    suggestion = start;
    NestedLoop::Run();
    return path.empty() ? std::nullopt : std::optional(path);
  }
  std::optional<ExportAnswer> AskExport(const ExportRequest&) override { return {}; }
  std::optional<COLORREF> AskColour(COLORREF) override { return {}; }
  std::optional<FontChoice> AskFont(const FontChoice&) override { return {}; }

  std::string path;
  std::string suggestion;

 private:
  const UseService<Dialogs> use{*this};
};

}  // namespace morvane
