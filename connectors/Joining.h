#pragma once

namespace morvane {

class ModelMgr;
class Shape;

/// What can be drawn between two objects.
enum class Joint { None, Transition, Line };

/// A transition from a state where one can start to one where one can end, which may be the same;
/// a line between a note or a message and anything else that has anchors.
Joint JointBetween(const Shape& from, const Shape& to);
/// A line between two different objects that both have anchors.
bool CanHaveLine(const Shape& from, const Shape& to);
/// Draws it from one object to the other, at the anchors that suit it best. Gives the new object;
/// null if nothing can be drawn there.
Shape* Join(ModelMgr& model, Shape& from, Shape& to, Joint joint);

}  // namespace morvane
