#pragma once

#include <span>
#include <string>

class Shape;

/// An entry of a context menu: a command and its text with "&" before the mnemonic. The id 0 is a
/// separator.
struct ObjectMenuEntry {
  unsigned id;
  const char* text;
};

/// The context menu of an object, by its class; empty for a class that has none.
std::span<const ObjectMenuEntry> MenuOf(const Shape* shape);
/// The context menu of the chart itself.
std::span<const ObjectMenuEntry> MenuOfChart();
