#pragma once

#include <span>

#include <QToolBar>

namespace morvane {

class CommandTarget;

/// A bar of command buttons.
class CommandBar : public QToolBar {
  Q_OBJECT

 public:
  CommandBar(const QString& title, std::span<const unsigned> buttons, CommandTarget& target,
             QWidget* parent);

  /// Enables and presses the buttons as their commands stand now.
  void Refresh();

 protected:
  void changeEvent(QEvent* event) override;
  CommandTarget& Target() const { return target; }

 private:
  void LoadIcons();
  CommandTarget& target;
};

}  // namespace morvane
