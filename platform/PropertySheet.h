#pragma once

#include <string>
#include <vector>

#include "platform/Dialog.h"

namespace morvane {

/// The part of a sheet that one tab shows.
class PropertyPage {
 public:
  explicit PropertyPage(std::string title) : title(std::move(title)) {}
  virtual ~PropertyPage() = default;
  PropertyPage(const PropertyPage&) = delete;
  PropertyPage& operator=(const PropertyPage&) = delete;

  const std::string& Title() const { return title; }
  /// Adds the controls below the container `page`, under ids that no other page uses.
  virtual void AddControls(Dialog& sheet, int page) = 0;
  virtual void ExchangeFields(FieldExchange& exchange) = 0;

 private:
  std::string title;
};

/// A dialog of pages on tabs. The first page that is added is shown first.
class PropertySheet : public Dialog {
 public:
  explicit PropertySheet(std::string caption);
  /// The page isn't owned. Pages come before the buttons.
  void AddPage(PropertyPage& page);

 protected:
  void ExchangeFields(FieldExchange& exchange) override;

 private:
  std::vector<PropertyPage*> pages;
};

}  // namespace morvane
