#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "drawing/Geometry.h"
#include "platform/Service.h"
#include "platform/Syntax.h"

namespace morvane {

class CDC;
class Dialog;
class FieldExchange;

/// One control of a dialog, and what it shows now. A container holds other controls.
struct DialogControl {
  enum class Kind {
    Column,     ///< a container, its children one under the other
    Row,        ///< a container, its children side by side
    Group,      ///< a column with a frame and a title
    Tabs,       ///< a container of pages
    Page,       ///< a column on a tab
    Edit,       ///< a box of one line
    MultiEdit,  ///< a box of several lines, which Return breaks
    CheckBox,
    Button,
    Combo,  ///< a choice of items, painted or as texts
    List,   ///< rows of columns, of which several can be selected
    Text    ///< a text that the user only reads
  };
  /// Paints item `index` of a combo into a rectangle, in pixels of the context.
  using PaintItem = std::function<void(CDC& dc, int index, const RECT& r, bool selected)>;
  struct Column {
    std::string title;
    int width;  ///< pixels; 0 takes the rest
  };
  static constexpr int kNoItem = -1;

  Kind kind = Kind::Edit;
  int id = 0;          ///< unique in the dialog, for what is asked or clicked
  int parent = 0;      ///< the id of the container; 0 is the dialog itself
  std::string label;   ///< title or caption, with "&" before the mnemonic
  std::string spoken;  ///< what it is, for who listens, where the label alone doesn't say
  std::string prefix;  ///< a fixed text on the left of a box that is no part of its text
  std::string suffix;

  bool enabled = true;
  bool isDefault = false;       ///< of a button: Return presses it
  bool code = false;            ///< of a box: it holds code and shows it in a fixed pitch
  Syntax syntax = Syntax::Cpp;  ///< of a box of several lines of code
  int width = 28;               ///< of a box: letters that have room at least
  int lines = 6;                ///< of a box of several lines: those that have room at least
  std::string text;  ///< of a text or a box, as the model holds it: line breaks are CR LF
  bool checked = false;
  int selection = 0;  ///< of a combo; `kNoItem` for none
  int itemCount = 0;
  PaintItem paintItem;
  std::vector<std::string>
      items;  ///< of a combo: its items; a painted one tells them to who listens
  std::vector<Column> columns;
  std::vector<std::vector<std::string>> rows;
  std::vector<int> selectedRows;  ///< in rising order

  /// Gives a combo texts to choose from.
  void SetItems(std::vector<std::string> texts) {
    items = std::move(texts);
    itemCount = static_cast<int>(items.size());
  }
};

/// The ids of the buttons that close a dialog.
enum DialogButton : int { IDOK = 1, IDCANCEL = 2 };

/// The real window of a dialog while it runs.
class DialogWindow {
 public:
  virtual ~DialogWindow() = default;
  /// Shows the controls as they stand now.
  virtual void Refresh() = 0;
  /// Puts the keyboard into a control; the text of a box is selected, so that typing replaces it.
  virtual void FocusOn(int id) = 0;
  virtual void End() = 0;
  /// Makes way, where there is room, for a place of the screen that the user wants to see.
  virtual void KeepOff(const RECT& /*screen*/) {}
};

/// Shows dialogs. The default service has no screen and answers each with Cancel.
class DialogHost {
 public:
  virtual ~DialogHost() = default;
  /// Runs the dialog until it has ended. The window writes what the user types, checks or selects
  /// into the controls and then calls the dialog's `Click`. A text that the user left alone stays
  /// as it is, byte for byte.
  virtual void Run(Dialog& dialog) = 0;
  static DialogHost& Default();
};

/// A modal dialog: its controls and the rules between them, free of any toolkit. A class of its own
/// adds the controls in its constructor and ties its fields to them in `ExchangeFields`.
class Dialog {
 public:
  explicit Dialog(std::string caption) : caption(std::move(caption)) {}
  virtual ~Dialog() = default;
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  /// Fills the controls from the fields, shows the dialog and waits; true if it was closed with its
  /// OK button.
  bool DoModal();

  const std::string& Caption() const { return caption; }
  const std::deque<DialogControl>& Controls() const { return controls; }
  /// The control with that id, which has to be there.
  DialogControl& Control(int id);
  const DialogControl& Control(int id) const;
  bool IsOpen() const { return open; }

  /// The user pressed a button, clicked a check box, chose an item or selected rows. The controls
  /// hold the new state already.
  void Click(int id);
  /// The window that shows the dialog, not owned; null when it is gone.
  void SetWindow(DialogWindow* shown) { window = shown; }

  DialogControl& Add(DialogControl::Kind kind, int id, std::string label, int parent = 0);
  /// The row of closing buttons, the first one being the default.
  void AddButtons(const std::string& ok, const std::string& cancel);

 protected:
  /// Shows the dialog until it has ended. One with a window of a kind of its own asks another host.
  virtual void Run();
  /// Moves the fields into the controls or back.
  virtual void ExchangeFields(FieldExchange& /*exchange*/) {}
  /// Follows the first move of the fields into the controls.
  virtual void OnFilled() {}
  virtual void OnClicked(int /*id*/) {}
  /// The OK button: takes the controls into the fields. False keeps the dialog open.
  virtual bool OnOk();

  /// Moves the fields into the controls, which then show them.
  void ShowFields();
  /// Moves the controls into the fields.
  void TakeFields();
  void Enable(int id, bool on) { Control(id).enabled = on; }
  void SetCaption(std::string text) { caption = std::move(text); }
  void FocusOn(int id);
  /// Lets the user see a place of the screen behind the dialog.
  void KeepOff(const RECT& screen);
  /// Shows the controls as they stand now, when it was no click that changed them.
  void Refresh();

 private:
  void EndDialog(bool accepted);

  std::string caption;
  std::deque<DialogControl> controls;
  DialogWindow* window = nullptr;
  bool open = false;
  bool accepted = false;
};

}  // namespace morvane
