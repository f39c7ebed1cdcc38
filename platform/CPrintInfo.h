#pragma once

#include <string>
#include <vector>

namespace morvane {

/// What a run of printing, or a preview, knows of its pages. Pages count from 1.
class CPrintInfo {
 public:
  static constexpr int kAllPages = 0x7FFFFFFF;

  bool preview = false;  ///< the pages go to the screen: no printer is asked for
  bool direct = false;   ///< without the print dialog where a printer is known
  int curPage = 1;       ///< the page that is being printed
  int fromPage = 1;      ///< what the user chose
  int toPage = kAllPages;
  int copies = 1;        ///< that nobody else makes of what is printed
  bool collate = true;   ///< one whole copy after the other, not page by page
  bool reverse = false;  ///< from the last page to the first
  std::string path;      ///< of the file whose chart is printed; empty if there is none

  /// The pages to print, of `count`, in their order; none if the chart hasn't those chosen.
  std::vector<int> Sequence(int count) const;
  void SetMaxPage(int page) { maxPage = page; }
  int GetMaxPage() const { return maxPage; }

 private:
  int maxPage = 1;
};

}  // namespace morvane
