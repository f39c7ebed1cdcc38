#pragma once

#include <string>

namespace morvane {

class CObjectTree;
class LayoutMgr;
class LinkChain;
class StepBook;

// What has to hold of every chart, whatever a hand or a file did with it. Each gives what is wrong,
// and an empty text if nothing is.

/// The links hang together, each straight and with a length.
std::string ChainFault(const LinkChain& chain);
/// Chains without a fault, no line without length, and ties that both sides know, in a chart that
/// was drawn by gestures; a file can store worse.
std::string ChartFault(const LayoutMgr& chart);
/// The browser has a node for each object, in its place, and no others.
std::string TreeFault(const LayoutMgr& chart, CObjectTree& tree);
/// The text of the chart reads back to itself.
std::string TextFault(const LayoutMgr& chart);
/// Undo all the way and redo all the way show the same texts, byte for byte.
std::string HistoryFault(LayoutMgr& chart);
/// The same, and the texts are those of the steps that were noted; a step is missing or one too
/// many if the chart can go back or forth when the book can't, or the other way round.
std::string HistoryFault(LayoutMgr& chart, StepBook& book);
/// The chart shows the text of the present step, and can go back and forth as the book can.
std::string StepFault(LayoutMgr& chart, const StepBook& book);

}  // namespace morvane
