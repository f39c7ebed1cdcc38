#pragma once

#include <functional>

#include "connectors/BoxLook.h"
#include "connectors/TextBox.h"
#include "connectors/TextFit.h"
#include "model/ConnectableRectShape.h"

namespace morvane {

/// A free comment: a sheet of paper with a folded corner.
class Note : public ConnectableRectShape {
 public:
  Note();
  Note(std::int32_t id, ChartView* view, const RECT& rect);

  /// The rectangle of a new note at the origin, model units.
  static constexpr RECT DefaultRect() { return {0, 0, 12, 6}; }

  void Write(ModelStream& stream) const override;
  void Read(ModelStream& stream) override;
  void Draw(CDC* dc) override;
  const std::string& GetTypeName() const override;
  void OnCommand(unsigned command) override;
  void OnPlaced() override;
  void OnLButtonDblClk(unsigned flags, std::int32_t x, std::int32_t y) override;
  void OnTextsChanged() override;
  std::optional<InPlaceField> FieldInPlace() const override;
  void TakeInPlace(const std::string& typed) override;
  void RefreshAnchors() override;

  TextBox& GetText() { return text; }
  const TextBox& GetText() const { return text; }

 protected:
  Layer GetClassLayer() const override { return LAYER_NOTE; }

 private:
  void EditText();
  /// Lets the text change, and the sheet grow with it.
  void Retype(const std::function<bool()>& change);
  /// Where the text stands, logical units.
  RECT TextArea() const;
  void EditProperties();

  TextBox text;
  TextFit fit{DefaultRect(), {16, 7}};
  BoxLook look{.bgColor = 0x80FFFF, .borderColor = 0x000080};
};

}  // namespace morvane
