#pragma once

#include <cstdint>
#include <string>

#include "platform/Geometry.h"

/// The process-wide store of what new objects and new views take. Nothing in it reaches an object
/// that exists already.
class CDefaultSettingDlg {
 public:
  /// The store; the first call loads it from the profile.
  static CDefaultSettingDlg& Instance();

  /// Reads all values from the profile, each with its default.
  void LoadSettings();

  std::string StateName;
  std::int32_t StateAnchor = 1;
  std::string Entry;
  std::string Exit;
  std::int32_t StateBgTransparent = 0;
  std::int32_t MesgAnchor = 1;
  std::int32_t MesgBorder = 1;  ///< 1 means that a new message has no border
  std::int32_t MesgBgTransparent = 1;
  std::int32_t ShowGrid = 1;
  COLORREF StateBgColor = 0xBFFFFF;
  COLORREF MesgBorderColor = 0x00FF00;
  COLORREF MesgBgColor = 0xFFFFFF;
  std::int32_t LineColor = 0;  ///< index into `kLineColours`
  std::int32_t LineStyle = 0;  ///< index into `kLineStyles`
  std::string FontName;
  std::int32_t FontSize = 80;  ///< tenths of a point
  COLORREF FontColor = 0x000080;

 private:
  CDefaultSettingDlg();
};
