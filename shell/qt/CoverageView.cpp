#include "shell/qt/CoverageView.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "drawing/qt/QtText.h"
#include "machine/Machine.h"
#include "resources/Texts.h"
#include "shell/ChartRun.h"
#include "simulation/Coverage.h"

namespace morvane {

namespace {

constexpr int kIdRole = Qt::UserRole;

QString Named(const char* english, const std::string& name) {
  return ToQString(WithName(Translate(english), name));
}

QString Figures(const char* english, const Coverage::Share& share) {
  return Named(english, std::to_string(share.reached) + '/' + std::to_string(share.all) + " (" +
                            std::to_string(share.Percent()) + " %)");
}

QString NameOf(const Machine& machine, int state) {
  const MachineState& of = machine.states[static_cast<std::size_t>(state)];
  return ToQString(of.title.empty() ? of.name : of.title);
}

/// ": Idle -> Starting (Call)"
QString PathOf(const Machine& machine, const MachineTransition& transition) {
  QString path = ": ";
  if (!transition.isInitial) path += NameOf(machine, transition.source) + ' ';
  path += QStringLiteral("\u2192 ") + NameOf(machine, transition.target);
  QStringList events;
  for (const int event : transition.events) {
    events << ToQString(machine.events[static_cast<std::size_t>(event)].written);
  }
  return events.isEmpty() ? path : path + " (" + events.join(", ") + ')';
}

}  // namespace

CoverageView::CoverageView(QWidget* parent)
    : QWidget(parent),
      figures(new QLabel(this)),
      tint(new QCheckBox(ToQString(Translate("Tint what was not reached")), this)),
      list(new QListWidget(this)) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(figures);
  rows->addWidget(tint);
  rows->addWidget(list, 1);
  list->setAccessibleName(ToQString(Translate("Not reached")));
  connect(tint, &QCheckBox::toggled, this, [this](bool on) {
    if (run != nullptr) run->TintUnreached(on);
  });
  const auto reveal = [this](const QListWidgetItem* item) {
    if (run != nullptr && item != nullptr) run->Reveal(item->data(kIdRole).toInt());
  };
  connect(list, &QListWidget::itemClicked, this, reveal);
  connect(list, &QListWidget::currentItemChanged, this, reveal);
}

void CoverageView::Add(const QString& text, std::int32_t id) {
  auto* item = new QListWidgetItem(text, list);
  item->setData(kIdRole, id);
}

void CoverageView::Show(ChartRun* other) {
  run = other;
  const QSignalBlocker quiet(list);
  const QSignalBlocker quietTint(tint);
  list->clear();
  tint->setChecked(run != nullptr && run->IsTinting());
  if (run == nullptr) return figures->clear();
  const Coverage reached = run->Reached();
  const Machine& machine = run->TheMachine();
  figures->setText(QStringList{Figures("States: %1", reached.States()),
                               Figures("Transitions: %1", reached.Transitions()),
                               Figures("Events: %1", reached.Events())}
                       .join('\n'));
  for (const int event : reached.UnhandledEvents()) {
    Add(Named("Event %1", machine.events[static_cast<std::size_t>(event)].written), 0);
  }
  for (const int state : reached.UnreachedStates()) {
    const MachineState& each = machine.states[static_cast<std::size_t>(state)];
    Add(Named("State %1", each.title.empty() ? each.name : each.title), each.id);
  }
  for (const int transition : reached.UnreachedTransitions()) {
    const MachineTransition& each = machine.transitions[static_cast<std::size_t>(transition)];
    Add(Named("Transition %1", std::to_string(each.id)) + PathOf(machine, each), each.id);
  }
}

}  // namespace morvane
