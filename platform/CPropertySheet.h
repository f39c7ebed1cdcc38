#pragma once

#include <string>
#include <vector>

#include "platform/CDialog.h"

/// The part of a sheet that one tab shows.
class CPropertyPage {
 public:
  explicit CPropertyPage(std::string title) : title(std::move(title)) {}
  virtual ~CPropertyPage() = default;
  CPropertyPage(const CPropertyPage&) = delete;
  CPropertyPage& operator=(const CPropertyPage&) = delete;

  const std::string& Title() const { return title; }
  /// Adds the controls below the container `page`, under ids that no other page uses.
  virtual void AddControls(CDialog& sheet, int page) = 0;
  virtual void DoDataExchange(DataExchange& exchange) = 0;

 private:
  std::string title;
};

/// A dialog of pages on tabs. The first page that is added is shown first.
class CPropertySheet : public CDialog {
 public:
  explicit CPropertySheet(std::string caption);
  /// The page isn't owned. Pages come before the buttons.
  void AddPage(CPropertyPage& page);

 protected:
  void DoDataExchange(DataExchange& exchange) override;

 private:
  std::vector<CPropertyPage*> pages;
};
