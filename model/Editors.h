#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

class ModelProperties;
struct SearchedChart;

/// What the user can change of a state, without its texts.
struct StateFields {
  std::string name;
  std::int32_t history = 0;
  COLORREF bgColor = 0;
  std::int32_t transparent = 0;
};

/// What the user can change of the box of a message or a note.
struct BoxFields {
  std::int32_t transparent = 0;
  std::int32_t noBorder = 0;
  std::int32_t hidden = 0;  ///< the anchors do not show
  COLORREF bgColor = 0;
  COLORREF borderColor = 0;
};

/// How a chart goes on paper.
struct PaperChoice {
  std::int32_t printToFit = 0;   ///< all of it on one page
  std::int32_t sheetTitles = 0;  ///< the chart's name and the page number at the foot of each page
};

/// The dialogs in which the user edits a chart and its objects, which ask for them by this service.
/// Each takes what is there, and changes it only when it gives true: the user took the dialog's
/// values over. The default service has no dialogs and gives false.
class Editors {
 public:
  virtual ~Editors() = default;
  virtual bool EditState(StateFields& fields) = 0;
  /// Entry and exit text of the state of that name.
  virtual bool EditEntryExit(const std::string& name, std::string& entry, std::string& exit) = 0;
  virtual bool EditEvent(std::string& event, std::string& guard, std::string& effect) = 0;
  virtual bool EditMesg(BoxFields& fields) = 0;
  virtual bool EditNote(BoxFields& fields) = 0;
  /// A text of several lines; `title` begins the caption.
  virtual bool EditText(const std::string& title, std::string& text) = 0;
  /// Colour and pen style of a line, as indices into their tables.
  virtual bool EditLine(std::int32_t& colourIndex, std::int32_t& styleIndex) = 0;
  /// Where connections go from an object of that name: indices into the names of the objects. At
  /// first `chosen` has what is proposed.
  virtual bool ChooseTargets(const std::string& source, const std::vector<std::string>& names,
                             std::vector<int>& chosen) = 0;

  /// The texts that describe a model.
  virtual bool EditModelProperties(ModelProperties& properties) = 0;
  /// How a chart goes on paper; the printer of the desktop can be set up meanwhile.
  virtual bool EditPaper(PaperChoice& choice) = 0;
  /// Lets the user find and replace texts in a chart, which must not change otherwise meanwhile.
  virtual void FindAndReplace(const SearchedChart& chart) = 0;

  static Editors& Default();
};

}  // namespace morvane
