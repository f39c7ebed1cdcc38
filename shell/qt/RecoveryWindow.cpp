#include "shell/qt/RecoveryWindow.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include "drawing/qt/QtText.h"
#include "resources/TextSource.h"
#include "resources/Texts.h"
#include "shell/qt/ChartThumbnail.h"
#include "shell/qt/ElidedLabel.h"

namespace morvane {

namespace {

constexpr QSize kPicture(168, 118);
/// Room for the text of a row, in letters.
constexpr int kTextLetters = 62;
/// Rows that show without scrolling on a screen with room for them.
constexpr std::size_t kMostRows = 4;
constexpr double kScreenPart = 0.9;

QString Text(unsigned id) { return ToQString(LoadText(id)); }

/// How the user writes numbers, as far as that is in the language of the program.
QLocale ProgramLocale() {
  const QLocale own(ToQString(TextSource::Current().Locale()));
  const QLocale system = QLocale::system();
  return system.language() == own.language() ? system : own;
}

QString TimeText(std::int64_t seconds) {
  const QLocale locale = ProgramLocale();
  QString date = locale.dateFormat(QLocale::ShortFormat);
  if (!date.contains("yyyy")) date.replace("yy", "yyyy");
  const QString format = date + ' ' + locale.timeFormat(QLocale::ShortFormat);
  return locale.toString(QDateTime::fromSecsSinceEpoch(seconds), format);
}

QLabel* PlainLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  return label;
}

/// A line in the colour of texts that are of less weight.
QLabel* QuietLine(const QString& text) {
  auto* label = new ElidedLabel(text);
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

QFrame* MakeLine() {
  auto* line = new QFrame;
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

}  // namespace

RecoveryWindow::RecoveryWindow(RecoveryList& list, QWidget* parent) : QDialog(parent), list(list) {
  setWindowTitle(Text(IDS_RECOVERY_CAPTION));
  setSizeGripEnabled(true);
  setWindowIcon(QIcon(":/icons/morvane.svg"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(MakeHead());
  layout->addWidget(MakeRows(), 1);
  layout->addWidget(MakeFoot());
  FitToScreen();
  Refresh();
  recoverAll->setFocus();
}

QWidget* RecoveryWindow::MakeHead() {
  auto* head = new QWidget;
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  auto* icon = new QLabel;
  const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* texts = new QVBoxLayout;
  row->addLayout(texts, 1);
  QLabel* heading = PlainLabel(ToQString(list.Heading()));
  heading->setWordWrap(true);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  texts->addWidget(heading);
  QLabel* later = PlainLabel(Text(IDS_RECOVERY_LATER));
  later->setWordWrap(true);
  texts->addWidget(later);
  if (!list.CrashReports().empty()) texts->addWidget(PlainLabel(Text(IDS_RECOVERY_REPORT)));
  for (const std::string& path : list.CrashReports()) {
    auto* box = new QLineEdit(ToQString(path));
    box->setReadOnly(true);
    box->setCursorPosition(0);
    box->setAccessibleName(Text(IDS_RECOVERY_REPORT));
    texts->addWidget(box);
  }
  texts->addStretch(1);
  return head;
}

QWidget* RecoveryWindow::MakeRows() {
  area = new QScrollArea;
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  auto* all = new QWidget;
  all->setBackgroundRole(QPalette::Base);
  all->setAutoFillBackground(true);
  auto* layout = new QVBoxLayout(all);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  for (const RecoveryList::Row& row : list.Rows()) {
    layout->addWidget(MakeRow(row));
  }
  layout->addStretch(1);
  area->setWidget(all);
  return area;
}

QWidget* RecoveryWindow::MakeRow(const RecoveryList::Row& row) {
  auto* whole = new QWidget;
  auto* lines = new QVBoxLayout(whole);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(0);
  auto* parts = new QHBoxLayout;
  const int edge = style()->pixelMetric(QStyle::PM_LayoutLeftMargin);
  parts->setContentsMargins(edge, edge, edge, edge);
  parts->setSpacing(edge);
  parts->addWidget(new ChartThumbnail(row.offer.text, kPicture), 0, Qt::AlignTop);
  parts->addWidget(MakeTexts(row), 1);
  parts->addWidget(MakeRowButtons(row));
  lines->addLayout(parts);
  QFrame* line = MakeLine();
  lines->addWidget(line);
  rows[row.id] = {whole, line};
  return whole;
}

QWidget* RecoveryWindow::MakeTexts(const RecoveryList::Row& row) {
  auto* texts = new QWidget;
  auto* layout = new QVBoxLayout(texts);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* name = new ElidedLabel(ToQString(row.Name()));
  QFont bold = name->font();
  bold.setBold(true);
  name->setFont(bold);
  layout->addWidget(name);
  layout->addWidget(QuietLine(ToQString(row.Folder())));
  const QString time = Text(IDS_LAST_CHANGE).replace("%1", TimeText(row.offer.time));
  layout->addWidget(new ElidedLabel(time));
  if (const std::string changes = row.Changes(); !changes.empty()) {
    layout->addWidget(new ElidedLabel(ToQString(changes)));
  }
  layout->addStretch(1);
  return texts;
}

QWidget* RecoveryWindow::MakeRowButtons(const RecoveryList::Row& row) {
  auto* buttons = new QWidget;
  auto* layout = new QVBoxLayout(buttons);
  layout->setContentsMargins(0, 0, 0, 0);
  const std::pair<unsigned, Action> actions[] = {{IDS_RECOVER, &RecoveryList::Recover},
                                                 {IDS_RECOVER_SAVE_AS, &RecoveryList::SaveAs},
                                                 {IDS_DISCARD, &RecoveryList::Discard}};
  const int id = row.id;
  for (const auto& [text, action] : actions) {
    auto* button = new QPushButton(Text(text));
    button->setAutoDefault(false);
    button->setAccessibleName(Text(text) + ' ' + ToQString(row.Name()));
    // The row may go, with its button, once the button is done.
    connect(
        button, &QPushButton::clicked, this, [this, action, id] { Do(action, id); },
        Qt::QueuedConnection);
    layout->addWidget(button);
  }
  layout->addStretch(1);
  return buttons;
}

QWidget* RecoveryWindow::MakeFoot() {
  auto* foot = new QWidget;
  auto* row = new QHBoxLayout(foot);
  row->setContentsMargins(0, 0, 0, 0);
  row->addStretch(1);
  recoverAll = new QPushButton(Text(IDS_RECOVER_ALL));
  recoverAll->setDefault(true);
  connect(recoverAll, &QPushButton::clicked, this, &RecoveryWindow::RecoverAll,
          Qt::QueuedConnection);
  row->addWidget(recoverAll);
  auto* close = new QPushButton(Text(IDS_CLOSE));
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  row->addWidget(close);
  return foot;
}

void RecoveryWindow::FitToScreen() {
  QSize row;
  for (const auto& [id, made] : rows) row = row.expandedTo(made.whole->sizeHint());
  const int frame = 2 * area->frameWidth();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent) + frame;
  area->setMinimumSize(row.width() + bar, row.height() + frame);
  const int width = area->minimumWidth() + fontMetrics().averageCharWidth() * kTextLetters;
  const int more = row.height() * (static_cast<int>(std::min(rows.size(), kMostRows)) - 1);
  // The least height is that with one row.
  const int height = layout()->totalHeightForWidth(width) - area->sizeHint().height() +
                     area->minimumHeight() + std::max(more, 0);
  resize(QSize(width, height).boundedTo(screen()->availableSize() * kScreenPart));
}

void RecoveryWindow::Do(Action action, int id) {
  (list.*action)(id);
  Refresh();
}

void RecoveryWindow::RecoverAll() {
  list.RecoverAll();
  Refresh();
}

void RecoveryWindow::Refresh() {
  std::erase_if(rows, [this](const auto& entry) {
    if (list.Has(entry.first)) return false;
    entry.second.whole->hide();
    entry.second.whole->deleteLater();
    return true;
  });
  if (rows.empty()) {
    accept();
  } else {
    rows.rbegin()->second.line->hide();
  }
}

}  // namespace morvane
