#include "platform/PropertySheet.h"

namespace morvane {

namespace {

constexpr int kTabs = -2;
/// The ids of the pages go down from here.
constexpr int kFirstPage = -3;

}  // namespace

PropertySheet::PropertySheet(std::string caption) : Dialog(std::move(caption)) {
  Add(DialogControl::Kind::Tabs, kTabs, "");
}

void PropertySheet::AddPage(PropertyPage& page) {
  const int id = kFirstPage - static_cast<int>(pages.size());
  Add(DialogControl::Kind::Page, id, page.Title(), kTabs);
  page.AddControls(*this, id);
  pages.push_back(&page);
}

void PropertySheet::ExchangeFields(FieldExchange& exchange) {
  for (PropertyPage* page : pages) page->ExchangeFields(exchange);
}

}  // namespace morvane
