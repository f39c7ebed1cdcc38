#include "shell/qt/RunPane.h"

#include <utility>

#include <QLabel>
#include <QListView>
#include <QMainWindow>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "drawing/qt/QtText.h"
#include "machine/Machine.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"
#include "shell/ChartRun.h"
#include "shell/qt/CoverageView.h"
#include "shell/qt/DockTitle.h"
#include "shell/qt/EventButtons.h"
#include "shell/qt/RunControls.h"
#include "shell/qt/TestsView.h"
#include "shell/qt/TraceModel.h"
#include "shell/qt/VariableTable.h"
#include "simulation/Replay.h"
#include "simulation/Run.h"

namespace morvane {

namespace {

constexpr int kWidth = 320;
/// At first, or in this proportion.
constexpr int kEventsHeight = 300;
constexpr int kVariablesHeight = 150;

QString Text(const char* english) { return ToQString(Translate(english)); }

}  // namespace

RunPane::RunPane(CommandTarget& target, std::function<void()> ended, QWidget* parent)
    : QDockWidget(Text("Run"), parent),
      ended(std::move(ended)),
      controls(new RunControls(target, this)),
      pages(new QTabWidget(this)),
      place(new QLabel(this)),
      coverage(new CoverageView(this)),
      tests(new TestsView(this)) {
  setObjectName("run");
  auto* inner = new QWidget(this);
  auto* rows = new QVBoxLayout(inner);
  rows->addWidget(controls);
  rows->addWidget(place);
  place->setWordWrap(true);
  place->setTextFormat(Qt::PlainText);
  pages->setDocumentMode(true);
  pages->addTab(MakeEventsPage(), Text("Events"));
  pages->addTab(MakeTracePage(), Text("Trace"));
  pages->addTab(coverage, Text("Coverage"));
  pages->addTab(tests, Text("Tests"));
  rows->addWidget(pages, 1);
  setWidget(inner);
  connect(pages, &QTabWidget::currentChanged, this, &RunPane::ShowPage);
  KeepTitleWhole(*this);
  hide();
}

QWidget* RunPane::MakeEventsPage() {
  auto* page = new QSplitter(Qt::Vertical, this);
  events = new EventButtons(
      [this](int event) {
        if (run != nullptr) run->Send(event);
      },
      page);
  page->addWidget(events);
  auto* lower = new QWidget(page);
  auto* rows = new QVBoxLayout(lower);
  rows->setContentsMargins(0, 0, 0, 0);
  queue = new QLabel(lower);
  queue->setWordWrap(true);
  queue->setTextFormat(Qt::PlainText);
  rows->addWidget(queue);
  variables = new VariableTable(
      [this](const std::string& name, const std::string& value) {
        if (run == nullptr) return;
        const std::string reason = run->Assign(name, value);
        if (!reason.empty()) ShowMessage(reason);
      },
      lower);
  rows->addWidget(variables, 1);
  page->addWidget(lower);
  page->setChildrenCollapsible(false);
  page->setStretchFactor(0, 3);
  page->setStretchFactor(1, 2);
  page->setSizes({kEventsHeight, kVariablesHeight});
  return page;
}

QWidget* RunPane::MakeTracePage() {
  trace = new TraceModel(this);
  lines = new QListView(this);
  lines->setUniformItemSizes(true);
  lines->setAccessibleName(Text("Trace"));
  lines->setModel(trace);
  connect(lines->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            if (run != nullptr && current.isValid()) {
              run->GoTo(static_cast<std::size_t>(current.row()) + 1);
            }
          });
  return lines;
}

void RunPane::ShareWith(QDockWidget& other) {
  neighbour = &other;
  if (auto* frame = qobject_cast<QMainWindow*>(parentWidget())) {
    frame->tabifyDockWidget(neighbour, this);
  }
}

void RunPane::Show(ChartRun* other) {
  const bool isNew = other != nullptr && other != run;
  if (other != run) Forget();
  run = other;
  controls->Show(run);
  const bool drives = run != nullptr && run->AsSimulation() != nullptr;
  pages->setTabVisible(0, drives || run == nullptr);
  ShowPlace();
  ShowPage();
  if (run == nullptr) return Leave();
  if (!isNew) return;
  pages->setCurrentIndex(drives ? 0 : 1);
  Appear();
}

/// In front of what shares its place, and wide enough.
void RunPane::Appear() {
  auto* frame = qobject_cast<QMainWindow*>(parentWidget());
  if (isHidden() && frame != nullptr) {
    formerWidth = neighbour != nullptr && neighbour->isVisible() ? neighbour->width() : 0;
  }
  show();
  raise();
  if (frame != nullptr && width() < kWidth) frame->resizeDocks({this}, {kWidth}, Qt::Horizontal);
}

/// What shares its place is as wide again as it was.
void RunPane::Leave() {
  if (isHidden()) return;
  hide();
  if (formerWidth == 0) return;
  // The layout has to hear of the hiding first.
  QTimer::singleShot(0, this, [this] {
    auto* frame = qobject_cast<QMainWindow*>(parentWidget());
    if (frame == nullptr || neighbour == nullptr || isVisible()) return;
    frame->resizeDocks({neighbour}, {formerWidth}, Qt::Horizontal);
  });
}

/// No page may keep what it knows of a run that may be gone.
void RunPane::Forget() {
  run = nullptr;
  controls->Show(nullptr);
  ShowPage();
}

/// Where the run is, in words.
void RunPane::ShowPlace() {
  if (run == nullptr) return place->clear();
  const Run& shown = run->Shown();
  QStringList active;
  for (const int state : shown.History().ActiveStatesAt(shown.Place())) {
    active.prepend(ToQString(run->TheMachine().states[static_cast<std::size_t>(state)].title));
  }
  const std::string counts =
      std::to_string(shown.Place()) + '/' + std::to_string(shown.History().Size());
  QString text = ToQString(WithName(Translate("Step %1"), counts));
  if (!active.isEmpty()) text += "   " + active.join(QStringLiteral(" \u203A "));
  const Replay* replay = run->AsReplay();
  if (replay != nullptr && replay->Where()) text += '\n' + ToQString(replay->PartingText());
  place->setText(text);
}

/// The page that is in front; the others are filled when they come.
void RunPane::ShowPage() {
  tests->Show(run);
  const QWidget* front = pages->currentWidget();
  // Without a run no page may keep what it knew of one.
  if (run == nullptr || front == pages->widget(0)) {
    events->Show(run);
    variables->Show(run);
    const std::string waiting = run != nullptr ? run->QueueText() : std::string();
    queue->setVisible(!waiting.empty());
    queue->setText(ToQString(WithName(Translate("Waiting: %1"), waiting)));
  }
  if (run == nullptr || front == lines) {
    const QSignalBlocker quiet(lines->selectionModel());
    trace->Show(run != nullptr ? &run->Shown() : nullptr);
    const std::size_t at = run != nullptr ? run->Shown().Place() : 0;
    const QModelIndex row = at > 0 ? trace->index(static_cast<int>(at) - 1) : QModelIndex();
    lines->setCurrentIndex(row);
    if (row.isValid()) lines->scrollTo(row);
    lines->viewport()->update();
  }
  if (run == nullptr || front == coverage) coverage->Show(run);
}

QWidget& RunPane::Window() { return *pages->tabBar(); }

void RunPane::ExecuteTests() {
  pages->setCurrentWidget(tests);
  tests->Execute();
}

void RunPane::closeEvent(QCloseEvent* event) {
  QDockWidget::closeEvent(event);
  // Behind the event: the end of the run hides the pane, too.
  QTimer::singleShot(0, this, [this] {
    if (run != nullptr) ended();
  });
}

}  // namespace morvane
