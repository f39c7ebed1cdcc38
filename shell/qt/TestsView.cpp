#include "shell/qt/TestsView.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "drawing/qt/QtText.h"
#include "platform/MessageBox.h"
#include "platform/ModalLoop.h"
#include "resources/Texts.h"
#include "shell/ChartRun.h"
#include "shell/ChartTests.h"

namespace morvane {

namespace {

QString Text(const char* english) { return ToQString(Translate(english)); }

}  // namespace

TestsView::TestsView(QWidget* parent)
    : QWidget(parent),
      list(new QTreeWidget(this)),
      summary(new QLabel(this)),
      execute(new QPushButton(Text("Run Tests"), this)),
      record(new QPushButton(Text("Record..."), this)) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* row = new QHBoxLayout;
  row->addWidget(execute);
  row->addWidget(record);
  row->addStretch();
  rows->addLayout(row);
  rows->addWidget(summary);
  rows->addWidget(list, 1);
  summary->setWordWrap(true);
  summary->setTextFormat(Qt::PlainText);
  record->setToolTip(Text("Make a test of what was done in this run"));
  list->setAccessibleName(Text("Tests"));
  list->setRootIsDecorated(false);
  list->setHeaderLabels({Text("Test"), Text("Result")});
  connect(execute, &QPushButton::clicked, this, &TestsView::Execute);
  connect(record, &QPushButton::clicked, this, &TestsView::Record);
}

void TestsView::Show(ChartRun* other) {
  if (other != run) {
    list->clear();
    summary->clear();
  }
  run = other;
  execute->setEnabled(run != nullptr);
  record->setEnabled(run != nullptr && run->AsSimulation() != nullptr);
}

void TestsView::Execute() {
  if (run == nullptr) return;
  list->clear();
  const ChartTests::Result result = ChartTests(run->ChartPath()).Execute(run->TheMachine());
  if (!result.reason.empty()) return summary->setText(ToQString(result.reason));
  for (const TestVerdict& verdict : result.verdicts) {
    const QString said = verdict.passed
                             ? Text("passed")
                             : QString::number(verdict.line) + ": " + ToQString(verdict.reason);
    auto* item = new QTreeWidgetItem(list, {ToQString(verdict.name), said});
    item->setIcon(0, style()->standardIcon(verdict.passed ? QStyle::SP_DialogApplyButton
                                                          : QStyle::SP_MessageBoxCritical));
    item->setToolTip(1, said);
  }
  const auto passed = std::ranges::count(result.verdicts, true, &TestVerdict::passed);
  const std::string counts = std::to_string(passed) + '/' + std::to_string(result.verdicts.size());
  summary->setText(ToQString(WithName(Translate("Passed: %1"), counts)));
  list->resizeColumnToContents(0);
}

void TestsView::Record() {
  bool agreed = false;
  QString name;
  {
    const ModalLoop loop;
    name = QInputDialog::getText(this, Text("Record a Test"), Text("Name of the test:"),
                                 QLineEdit::Normal, {}, &agreed)
               .simplified();
  }
  if (!agreed || name.isEmpty() || run == nullptr) return;
  const std::string reason = ChartTests(run->ChartPath()).Record(*run, ToBytes(name));
  if (!reason.empty()) {
    ShowMessage(reason);
  } else {
    Execute();
  }
}

}  // namespace morvane
