#pragma once

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
  void OnPlaced() override;
  void OnRectChanged(const RECT& old, bool sized) override;
  void RefreshAnchors() override;

  EntryExitTextBox& GetEntryExit() { return entryExit; }
  const EntryExitTextBox& GetEntryExit() const { return entryExit; }
  bool KeepsHistory() const { return history != 0; }

 private:
  void DrawHistoryMark(CDC* dc, const RECT& body) const;
  void DrawSeparator(CDC* dc, const RECT& body, std::int32_t y) const;
  void EditTexts();
  void EditProperties();

  EntryExitTextBox entryExit;
  std::int32_t history = 0;
  COLORREF bgColor = 0xFFFFFF;
  std::int32_t transparent = 0;
};

}  // namespace morvane
