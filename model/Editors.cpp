#include "model/Editors.h"

namespace morvane {

namespace {

class NoEditors : public Editors {
 public:
  bool EditState(StateFields& /*fields*/) override { return false; }
  bool EditEntryExit(const std::string& /*name*/, std::string& /*entry*/,
                     std::string& /*exit*/) override {
    return false;
  }
  bool EditEvent(std::string& /*event*/, std::string& /*guard*/, std::string& /*effect*/) override {
    return false;
  }
  bool EditMesg(BoxFields& /*fields*/) override { return false; }
  bool EditNote(BoxFields& /*fields*/) override { return false; }
  bool EditText(const std::string& /*title*/, std::string& /*text*/) override { return false; }
  bool EditLine(std::int32_t& /*colourIndex*/, std::int32_t& /*styleIndex*/) override {
    return false;
  }
  bool ChooseTargets(const std::string&, const std::vector<std::string>&,
                     std::vector<int>&) override {
    return false;
  }
  bool EditModelProperties(ModelProperties& /*properties*/) override { return false; }
  bool EditPaper(PaperChoice& /*choice*/) override { return false; }
  void FindAndReplace(const SearchedChart& /*chart*/) override {}
};

}  // namespace

Editors& Editors::Default() {
  static NoEditors none;
  return none;
}

}  // namespace morvane
