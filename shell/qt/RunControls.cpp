#include "shell/qt/RunControls.h"

#include <algorithm>

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include "drawing/qt/QtText.h"
#include "platform/ModalLoop.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "shell/AllCommands.h"
#include "shell/ChartRun.h"
#include "shell/qt/CommandTarget.h"
#include "simulation/Replay.h"
#include "simulation/Simulation.h"

namespace morvane {

namespace {

using Guards = Simulation::Guards;

/// Lines of a trace in a second, by the place of the slider.
constexpr int kSpeeds[] = {1, 2, 5, 10, 25, 100, 1000};
constexpr int kFirstSpeed = 2;
constexpr int kMilliseconds = 1000;
constexpr int kShortestTick = 20;

QString Text(const char* english) { return ToQString(Translate(english)); }

}  // namespace

RunControls::RunControls(CommandTarget& target, QWidget* parent)
    : QWidget(parent), target(target), play(new QToolButton(this)), speed(new QSlider(this)) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* row = new QHBoxLayout;
  row->setSpacing(2);
  rows->addLayout(row);
  for (const auto& [command, symbol] :
       {std::pair{ID_RUN_RESTART, "|\u25C0"}, std::pair{ID_RUN_BACK, "\u25C0"},
        std::pair{ID_RUN_FORWARD, "\u25B6"}, std::pair{ID_RUN_CONTINUE, "\u25B6\u25B6"}}) {
    row->addWidget(AddButton(command, symbol));
  }
  play->setText(Text("Play"));
  play->setCheckable(true);
  connect(play, &QToolButton::toggled, this, &RunControls::Play);
  row->addWidget(play);
  row->addStretch();
  row->addWidget(AddButton(ID_RUN_END, "\u25A0"));

  const QStringList decisions{Text("Ask me"), Text("True"), Text("False")};
  guardRow = new QWidget(this);
  auto* form = new QFormLayout(guardRow);
  form->setContentsMargins(0, 0, 0, 0);
  guards = AddChoice("Guards", QStringList{Text("As written")} + decisions);
  unknown = AddChoice("Unknown", decisions);
  unknown->setToolTip(Text("For a guard that can't be evaluated"));
  form->addRow(Text("Guards"), guards);
  form->addRow(Text("Unknown"), unknown);
  rows->addWidget(guardRow);

  speedRow = new QWidget(this);
  auto* speedForm = new QFormLayout(speedRow);
  speedForm->setContentsMargins(0, 0, 0, 0);
  speed->setOrientation(Qt::Horizontal);
  speed->setRange(0, static_cast<int>(std::size(kSpeeds)) - 1);
  speed->setValue(kFirstSpeed);
  speed->setAccessibleName(Text("Speed"));
  speedForm->addRow(Text("Speed"), speed);
  rows->addWidget(speedRow);
  connect(&timer, &QTimer::timeout, this, &RunControls::Tick);
  connect(speed, &QSlider::valueChanged, this, [this] {
    if (timer.isActive()) Play(true);
  });
}

QToolButton* RunControls::AddButton(unsigned command, const char* symbol) {
  auto* button = new QToolButton(this);
  const Command& shown = FindCommand(command);
  button->setText(symbol);
  QString name = ToQString(Translate(shown.toolTip));
  button->setAccessibleName(name);
  if (!shown.keys.empty()) name += " (" + ToQString(shown.FirstKey()) + ')';
  button->setToolTip(name);
  button->setProperty("command", command);
  connect(button, &QToolButton::clicked, this, [this, command] { target.RunCommand(command); });
  buttons << button;
  return button;
}

QComboBox* RunControls::AddChoice(const char* name, const QStringList& texts) {
  auto* choice = new QComboBox(guardRow);
  choice->addItems(texts);
  choice->setAccessibleName(Text(name));
  connect(choice, &QComboBox::currentIndexChanged, this, &RunControls::TakeRules);
  return choice;
}

void RunControls::TakeRules() {
  Simulation* simulation = run != nullptr ? run->AsSimulation() : nullptr;
  if (simulation == nullptr) return;
  constexpr Guards rules[] = {Guards::Script, Guards::Ask, Guards::True, Guards::False};
  simulation->SetGuards(rules[std::max(guards->currentIndex(), 0)]);
  simulation->SetUnknown(rules[std::max(unknown->currentIndex(), 0) + 1]);
  unknown->setEnabled(guards->currentIndex() == 0);
  run->Refresh();
}

void RunControls::Show(ChartRun* other) {
  const bool isNew = other != run;
  run = other;
  const bool isReplay = run != nullptr && run->AsReplay() != nullptr;
  play->setVisible(isReplay);
  speedRow->setVisible(isReplay);
  guardRow->setVisible(run != nullptr && !isReplay);
  if (isNew) {
    play->setChecked(false);
    TakeRules();
  }
  if (run != nullptr && run->Shown().IsAtEnd() && play->isChecked()) play->setChecked(false);
  for (QToolButton* button : buttons) {
    button->setEnabled(target.StateOf(button->property("command").toUInt()).enabled);
  }
}

void RunControls::Play(bool on) {
  if (!on || run == nullptr) return timer.stop();
  const int perSecond = kSpeeds[speed->value()];
  timer.start(std::max(kMilliseconds / perSecond, kShortestTick));
}

void RunControls::Tick() {
  if (run == nullptr || ModalLoop::IsRunning()) return;
  const int perSecond = kSpeeds[speed->value()];
  const auto lines =
      static_cast<std::size_t>(std::max(perSecond * kShortestTick / kMilliseconds, 1));
  run->GoTo(run->Shown().Place() + lines);
}

}  // namespace morvane
