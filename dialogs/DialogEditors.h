#pragma once

#include <functional>
#include <utility>

#include "model/Editors.h"
#include "platform/Syntax.h"
#include "platform/UseService.h"

namespace morvane {

/// Edits charts and their objects in the program's dialogs, as long as it lives.
class DialogEditors : public Editors {
 public:
  /// Gives the properties of the chart that is edited; null for none.
  using ActiveChart = std::function<const ModelProperties*()>;

  explicit DialogEditors(ActiveChart activeChart = {}) : activeChart(std::move(activeChart)) {}

  bool EditState(StateFields& fields) override;
  bool EditEntryExit(const std::string& name, std::string& entry, std::string& exit) override;
  bool EditEvent(std::string& event, std::string& guard, std::string& effect) override;
  bool EditMesg(BoxFields& fields) override;
  bool EditNote(BoxFields& fields) override;
  bool EditText(const std::string& title, std::string& text) override;
  bool EditLine(std::int32_t& colourIndex, std::int32_t& styleIndex) override;
  bool ChooseTargets(const std::string& source, const std::vector<std::string>& names,
                     std::vector<int>& chosen) override;
  bool EditModelProperties(ModelProperties& properties) override;
  bool EditPaper(PaperChoice& choice) override;
  void FindAndReplace(const SearchedChart& chart) override;

 private:
  /// The language of the code that is edited.
  Syntax PresentSyntax() const;

  ActiveChart activeChart;
  const UseService<Editors> use{*this};
};

}  // namespace morvane
