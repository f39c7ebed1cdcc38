#pragma once

#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

class ModelMgr;
class RectShape;
class Shape;

/// Puts what is selected in order: in line with the one that was selected last, at equal distances,
/// or at its size. What lies inside another selected object goes along with that one, as long as
/// enough remain to be put in order, and so do all contents if the setting says so. Messages take
/// part where nothing else does.
class Arrangement {
 public:
  explicit Arrangement(ModelMgr& model);

  /// Enough is selected for a command, `ID_ALIGN_LEFT` to `ID_SAME_SIZE`.
  bool Can(unsigned id) const;
  void Do(unsigned id);

 private:
  /// What is put in order for a command: the outermost boxes if those are enough, or all.
  std::vector<RectShape*> PartsFor(unsigned id) const;
  void Align(unsigned id, const std::vector<RectShape*>& parts);
  void Distribute(bool across, std::vector<RectShape*> parts);
  void Resize(unsigned id, const std::vector<RectShape*>& parts);
  /// What each part takes along: of what lies in several, the smallest one takes it.
  std::vector<std::vector<Shape*>> Along(const std::vector<RectShape*>& parts) const;
  void Move(const std::vector<RectShape*>& parts, const std::vector<POINT>& ways);

  ModelMgr& model;
  std::vector<RectShape*> boxes;  ///< in the order in which they were selected
};

}  // namespace morvane
