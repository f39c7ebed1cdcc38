#pragma once

#include <functional>

#include <QTimer>
#include <QWidget>

class QComboBox;
class QLabel;
class QSlider;
class QToolButton;

namespace morvane {

class ChartRun;
class CommandTarget;

/// The row of buttons over a run: back, forward, on to the next stop, from the start, the end of
/// it; for a simulation how guards are decided, for a replay how fast it plays.
class RunControls : public QWidget {
  Q_OBJECT

 public:
  explicit RunControls(CommandTarget& target, QWidget* parent);

  /// The run that is driven; null for none.
  void Show(ChartRun* other);

 private:
  QToolButton* AddButton(unsigned command, const char* symbol);
  QComboBox* AddChoice(const char* name, const QStringList& texts);
  void TakeRules();
  void Play(bool on);
  void Tick();

  CommandTarget& target;
  ChartRun* run = nullptr;
  QList<QToolButton*> buttons;
  QToolButton* play;
  QSlider* speed;
  QWidget* guardRow;
  QComboBox* guards;
  QComboBox* unknown;
  QWidget* speedRow;
  QTimer timer;
};

}  // namespace morvane
