#pragma once

namespace morvane {

class Factory;

/// The factory of all kinds of objects that a chart can hold. A new kind is a row of its table.
const Factory& ChartFactory();

}  // namespace morvane
