#pragma once

#include <vector>

#include "states/EndableState.h"
#include "states/EntryExitTextBox.h"
#include "states/StartableState.h"

namespace morvane {

/// The ordinary state: a rounded box with its name, a separator, and its entry and exit texts.
class GenericState : public StartableState, public EndableState {
 public:
  GenericState() = default;
  GenericState(std::int32_t id, ChartView* view, const RECT& rect, const std::string& name);

  /// The rectangle of a new state at the origin, model units.
  static constexpr RECT DefaultRect() { return {0, 0, 10, 8}; }

  void Write(ModelStream& stream) const override;
  void Read(ModelStream& stream) override;
  void Draw(CDC* dc) override;
  RECT GetPaintedBorder() const override;
  const std::string& GetTypeName() const override;
  void OnCommand(unsigned id) override;
  void OnLButtonDblClk(unsigned flags, std::int32_t x, std::int32_t y) override;
  std::optional<InPlaceField> FieldInPlace() const override;
  void TakeInPlace(const std::string& typed) override;
  void OnPlaced() override;
  void OnRectChanged(const RECT& old, bool sized) override;
  void RefreshAnchors() override;
  bool HoldsContents() const override { return true; }

  EntryExitTextBox& GetEntryExit() { return entryExit; }
  const EntryExitTextBox& GetEntryExit() const { return entryExit; }
  /// What lies wholly inside, with the routes between it and their messages.
  std::vector<Shape*> Contents() const;
  bool KeepsHistory() const { return history != 0; }
  void SetKeepsHistory(bool keeps) { history = keeps ? 1 : 0; }
  /// The name was changed: shows it wherever it stands. A state has always one.
  void OnRenamed();
  /// Runs the editor of name and look; true if the user took them over.
  bool EditProperties();

 private:
  /// Where the name stands, from border to separator, logical units.
  RECT NameBand() const;
  void DrawHistoryMark(CDC* dc, const RECT& body) const;
  void DrawSeparator(CDC* dc, const RECT& body, std::int32_t y) const;
  void EditTexts();

  EntryExitTextBox entryExit;
  std::int32_t history = 0;
  COLORREF bgColor = 0xFFFFFF;
  std::int32_t transparent = 0;
};

}  // namespace morvane
