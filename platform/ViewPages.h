#pragma once

#include "platform/CPrintInfo.h"
#include "platform/Printing.h"

namespace morvane {

class CScrollView;

/// The pages of a view, made by the view's own operations in the order of every run of printing:
/// `OnPreparePrinting`, `OnBeginPrinting`, `OnPrint` for each page, `OnEndPrinting`.
class ViewPages : public PrintedPages {
 public:
  /// More pages than this nobody means to print.
  static constexpr int kMaxPages = 999;

  /// The view has to outlive its pages.
  explicit ViewPages(CScrollView& view) : view(view) {}

  /// Prints what the user chooses. Whatever goes wrong is shown in a message box.
  void RunPrint(bool direct);
  void RunPreview();

  std::string Title() const override;
  int Begin(CDC& dc, std::string& problem) override;
  void Paint(CDC& dc, int page) override;
  void End(CDC& dc) override;
  void Print() override;
  void SetUp() override;

 private:
  /// The reason of a failure; empty when everything was printed or the user ended it.
  std::string PrintAll();
  std::string PrintOn(PrintJob& job);

  CScrollView& view;
  CPrintInfo info;
};

}  // namespace morvane
