#pragma once

#include <string>
#include <vector>

#include "platform/Dialog.h"

namespace morvane {

/// Where a connection is to go: the names of the objects, of which one or several are chosen.
class ConnectDlg : public Dialog {
 public:
  enum ControlId : int { kTargetsId = 100 };

  /// From an object of that name.
  ConnectDlg(const std::string& source, const std::vector<std::string>& names);

  std::vector<int> chosen;  ///< in rising order

 protected:
  void OnFilled() override;
  void OnClicked(int id) override;
  bool OnOk() override;

 private:
  std::string source;
};

}  // namespace morvane
