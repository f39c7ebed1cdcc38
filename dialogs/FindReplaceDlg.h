#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/Dialog.h"

namespace morvane {

class Mesg;
class ModelMgr;
class Shape;
class TextHandler;

/// Finds and replaces text in the entry and exit texts of the states and the three texts of the
/// messages of one chart. It changes the objects at once, which show it, and says so.
class FindReplaceDlg : public Dialog {
 public:
  enum ControlId : int {
    kInputId = 100,
    kInputRowId,
    kFieldsId,
    kFindTextId,
    kReplaceTextId,
    kLookInId,
    kStatesId,
    kMessagesId,
    kButtonsId,
    kFindId,
    kReplaceId,
    kResultId,
    kListId,
    kEditRowId,
    kEditId
  };

  /// The model isn't owned and must not change otherwise while the dialog is open. `onChanged` is
  /// called after each edit and each replacement that changed it.
  explicit FindReplaceDlg(ModelMgr& model, std::function<void()> onChanged = {});

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
  void OnFilled() override;
  void OnClicked(int id) override;

 private:
  /// An object and its texts, both of the model.
  struct Found {
    Shape* object;
    TextHandler* text;
  };

  void AddInput();
  void AddResult();
  void Find();
  void Replace();
  void Edit();
  void EnableButtons();
  void TellChanged() const;
  bool HasFindText() const;
  void ListIfFound(Shape* object);
  void AddRow(std::string kind, std::string detail, Shape& object, TextHandler& text);
  DialogControl& List() { return Control(kListId); }

  ModelMgr& model;
  std::function<void()> onChanged;
  std::int32_t lookInStates = 1;
  std::int32_t lookInMessages = 1;
  std::string findText;
  std::string replaceText;
  std::vector<Found> found;  ///< of each row
};

}  // namespace morvane
