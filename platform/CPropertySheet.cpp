#include "platform/CPropertySheet.h"

namespace {

constexpr int kTabs = -2;
/// The ids of the pages go down from here.
constexpr int kFirstPage = -3;

}  // namespace

CPropertySheet::CPropertySheet(std::string caption) : CDialog(std::move(caption)) {
  Add(DialogControl::Kind::Tabs, kTabs, "");
}

void CPropertySheet::AddPage(CPropertyPage& page) {
  const int id = kFirstPage - static_cast<int>(pages.size());
  Add(DialogControl::Kind::Page, id, page.Title(), kTabs);
  page.AddControls(*this, id);
  pages.push_back(&page);
}

void CPropertySheet::DoDataExchange(DataExchange& exchange) {
  for (CPropertyPage* page : pages) page->DoDataExchange(exchange);
}
