#include "shell/qt/EventButtons.h"

#include <utility>

#include <QPushButton>
#include <QVBoxLayout>

#include "drawing/qt/QtText.h"
#include "machine/Machine.h"
#include "resources/Texts.h"
#include "shell/ChartRun.h"
#include "simulation/Simulation.h"

namespace morvane {

EventButtons::EventButtons(std::function<void(int event)> send, QWidget* parent)
    : QScrollArea(parent), send(std::move(send)), inner(new QWidget), rows(new QVBoxLayout(inner)) {
  setAccessibleName(ToQString(Translate("Events")));
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(2);
  rows->addStretch();
  setWidget(inner);
}

QPushButton* EventButtons::ButtonAt(std::size_t place) {
  if (place < buttons.size()) return buttons[place];
  auto* button = new QPushButton(inner);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, [this, place] {
    if (place < events.size()) send(events[place]);
  });
  rows->insertWidget(static_cast<int>(place), button);
  buttons.push_back(button);
  return button;
}

void EventButtons::Show(const ChartRun* run) {
  events.clear();
  if (run != nullptr && run->AsSimulation() != nullptr) {
    for (const Simulation::Choice& choice : run->AsSimulation()->Choices()) {
      const auto at = static_cast<std::size_t>(choice.event);
      QPushButton* button = ButtonAt(events.size());
      const QString name = ToQString(run->TheMachine().events[at].written);
      // The sign is no mnemonic.
      button->setText(QString(name).replace('&', "&&"));
      button->setToolTip(
          ToQString(Translate(choice.isAccepted ? "Takes a transition" : "Would be ignored now")));
      QFont font = button->font();
      font.setBold(choice.isAccepted);
      button->setFont(font);
      button->setFlat(!choice.isAccepted);
      button->setEnabled(!run->AsSimulation()->IsFinished());
      button->show();
      events.push_back(choice.event);
    }
  }
  for (std::size_t i = events.size(); i < buttons.size(); ++i) buttons[i]->hide();
}

}  // namespace morvane
