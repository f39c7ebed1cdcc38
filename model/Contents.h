#pragma once

#include <vector>

namespace morvane {

class ModelMgr;
class Shape;

/// One shape lies wholly inside another one, which is a frame. The edges may touch, but a frame
/// with the same place is around nothing.
bool LiesIn(const Shape& inner, const Shape& outer);

/// What lies wholly inside a frame, however deep: boxes, the routes and lines that hang on nothing
/// else, and what comes along with them.
std::vector<Shape*> ContentsOf(ModelMgr& model, const Shape& frame);

/// What lies wholly inside the frames among what is to move, and would go along with it. What is to
/// move itself is not in it.
std::vector<Shape*> ContentsOf(ModelMgr& model, const std::vector<Shape*>& movers);

}  // namespace morvane
