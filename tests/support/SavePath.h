#pragma once

#include "platform/Dialogs.h"
#include "platform/UseService.h"

/// A user who answers the question where to save, and cancels every other dialog of the desktop.
class SavePath : public Dialogs {
 public:
  std::optional<std::string> answer;

  std::optional<std::string> AskOpenPath(const FileFilter&) override { return std::nullopt; }
  std::optional<std::string> AskSavePath(const FileFilter&, const std::string&) override {
    return answer;
  }
  std::optional<ExportAnswer> AskExport(const ExportRequest&) override { return std::nullopt; }
  std::optional<COLORREF> AskColor(COLORREF) override { return std::nullopt; }
  std::optional<FontChoice> AskFont(const FontChoice&) override { return std::nullopt; }

 private:
  const UseService<Dialogs> use{*this};
};
