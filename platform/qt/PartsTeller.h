#pragma once

#include <unordered_map>
#include <unordered_set>

#include <QAccessible>
#include <QTimer>

#include "platform/ReadableParts.h"

namespace morvane {

class QtView;
class ViewInterface;

/// Tells assistive technologies what has changed in a view: parts that came and went, names, what
/// is selected and what the keyboard is on. Without one that listens it does nothing.
class PartsTeller : public QAccessible::ActivationObserver {
 public:
  explicit PartsTeller(QtView& view);
  ~PartsTeller() override;
  PartsTeller(const PartsTeller&) = delete;
  PartsTeller& operator=(const PartsTeller&) = delete;

  /// Who gets the events; gives who got them before. At first it is the toolkit, which passes them
  /// to a desktop that listens and nobody else.
  using Sink = void (*)(QAccessibleEvent* event);
  static Sink SetSink(Sink taken);

  /// Something may have changed; it is told when the program comes to rest.
  void OnChanged();
  /// The keyboard has come to the view or gone from it.
  void OnFocusChanged();
  void accessibilityActiveChanged(bool active) override;

 private:
  /// What was told of a part that somebody knows.
  struct Told {
    QString name;
    bool selected = false;
  };
  void Tell();
  void TellParts(ReadableParts& parts, ViewInterface& own);
  void TellStates(ReadableParts& parts, ViewInterface& own);
  void TellFocus(ReadableParts& parts, ViewInterface& own);

  QtView& view;
  QTimer timer;
  bool listening = false;  ///< somebody does
  bool started = false;
  std::unordered_set<ReadableParts::Key> present;
  std::unordered_map<ReadableParts::Key, Told> told;
  ReadableParts::Key focused = ReadableParts::kNone;
};

}  // namespace morvane
