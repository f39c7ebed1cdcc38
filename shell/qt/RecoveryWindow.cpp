#include "shell/qt/RecoveryWindow.h"

#include <algorithm>

#include <QDateTime>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QSvgRenderer>
#include <QVBoxLayout>

#include "platform/qt/QtText.h"
#include "resources/Texts.h"
#include "shell/RecoveryList.h"

namespace {

constexpr QSize kPicture(160, 110);
constexpr int kPictureEdge = 4;
constexpr int kGap = 10;
constexpr int kVisibleRows = 4;
constexpr int kLeastWidth = 640;

/// A label for text of the program or of the user, which is never markup.
QLabel* MakeText(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

/// A label of one line that leaves out the middle of what has no room, such as a long path.
class ElidedLabel : public QLabel {
 public:
  ElidedLabel(const QString& text, QWidget* parent) : QLabel(parent), whole(text) {
    setTextFormat(Qt::PlainText);
    setToolTip(text.toHtmlEscaped());
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setMinimumHeight(fontMetrics().height());
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(whole, Qt::ElideMiddle, width()));
  }

 private:
  QString whole;
};

/// The chart as large as it fits, on paper.
QPixmap DrawPicture(const std::string& svg, const QPalette& palette, double ratio) {
  QPixmap pixmap(kPicture * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(svg.empty() ? palette.color(QPalette::Midlight) : QColor(Qt::white));
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  QSvgRenderer renderer(QByteArray::fromStdString(svg));
  if (!svg.empty() && renderer.isValid()) {
    const QRect room =
        QRect(QPoint(), kPicture)
            .marginsRemoved({kPictureEdge, kPictureEdge, kPictureEdge, kPictureEdge});
    QSize size = renderer.defaultSize();
    if (size.width() > room.width() || size.height() > room.height()) {
      size.scale(room.size(), Qt::KeepAspectRatio);
    }
    renderer.render(&painter, QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, room));
  }
  painter.setPen(palette.color(QPalette::Mid));
  painter.drawRect(QRect(QPoint(), kPicture).adjusted(0, 0, -1, -1));
  return pixmap;
}

}  // namespace

RecoveryWindow::RecoveryWindow(RecoveryList& list, QWidget* parent) : QDialog(parent), list(list) {
  setWindowTitle(ToQString(Translate("Recover Unsaved Charts")));
  setSizeGripEnabled(true);
  auto* content = new QWidget;
  rowLayout = new QVBoxLayout(content);
  for (const RecoveryOffer& offer : list.Offers()) {
    rows.push_back(MakeRow(offer));
    rowLayout->addWidget(rows.back());
  }
  rowLayout->addStretch(1);
  auto* area = new QScrollArea(this);
  area->setWidget(content);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(kGap);
  layout->addWidget(MakeHead());
  layout->addWidget(area, 1);
  layout->addWidget(MakeFoot());
  const int shown = std::min<int>(static_cast<int>(rows.size()), kVisibleRows);
  const int rowHeight = content->sizeHint().height() / std::max<int>(1, int(rows.size()));
  area->setMinimumHeight(std::min(rowHeight, content->sizeHint().height()) + 2 * kGap);
  area->setMinimumWidth(content->minimumSizeHint().width() +
                        style()->pixelMetric(QStyle::PM_ScrollBarExtent) + kGap);
  const int height = sizeHint().height() - area->sizeHint().height() + rowHeight * shown + kGap;
  resize(QSize(std::max(kLeastWidth, minimumSizeHint().width()), height)
             .boundedTo(screen()->availableSize()));
}

QWidget* RecoveryWindow::MakeHead() {
  auto* head = new QWidget;
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGap);
  auto* icon = new QLabel(head);
  icon->setPixmap(style()
                      ->standardIcon(QStyle::SP_MessageBoxInformation)
                      .pixmap(style()->pixelMetric(QStyle::PM_LargeIconSize)));
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* texts = new QVBoxLayout;
  texts->addWidget(MakeText(ToQString(LoadText(IDS_RECOVERY_HEAD)), head));
  const std::string report = list.CrashReport();
  if (!report.empty()) {
    auto* text = MakeText(ToQString(LoadText(IDS_CRASH_REPORT) + '\n' + report), head);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    texts->addWidget(text);
  }
  row->addLayout(texts, 1);
  return head;
}

QWidget* RecoveryWindow::MakePicture(const RecoveryOffer& offer) {
  auto* picture = new QLabel;
  picture->setFixedSize(kPicture);
  picture->setPixmap(DrawPicture(RecoveryList::PictureOf(offer), palette(), devicePixelRatioF()));
  return picture;
}

QWidget* RecoveryWindow::MakeRow(const RecoveryOffer& offer) {
  auto* row = new QWidget;
  auto* columns = new QHBoxLayout(row);
  columns->setContentsMargins(0, 0, 0, kGap / 2);
  columns->setSpacing(kGap);
  columns->addWidget(MakePicture(offer), 0, Qt::AlignTop);

  auto* texts = new QVBoxLayout;
  auto* name = new ElidedLabel(ToQString(RecoveryList::NameOf(offer)), row);
  QFont bold = name->font();
  bold.setBold(true);
  name->setFont(bold);
  texts->addWidget(name);
  const std::string place = RecoveryList::PlaceOf(offer);
  if (!place.empty()) texts->addWidget(new ElidedLabel(ToQString(place), row));
  const QDateTime time = QDateTime::fromSecsSinceEpoch(offer.time);
  texts->addWidget(MakeText(QLocale().toString(time, QLocale::ShortFormat), row));
  texts->addWidget(MakeText(ToQString(offer.difference), row));
  texts->addStretch(1);
  columns->addLayout(texts, 1);

  auto* buttons = new QVBoxLayout;
  AddButton(*buttons, *row, "Recover", &RecoveryList::Recover);
  AddButton(*buttons, *row, "Save As...", &RecoveryList::SaveAs);
  AddButton(*buttons, *row, "Discard", &RecoveryList::Discard);
  buttons->addStretch(1);
  columns->addLayout(buttons);
  return row;
}

void RecoveryWindow::AddButton(QVBoxLayout& column, QWidget& row, const char* text, Action action) {
  auto* button = new QPushButton(ToQString(Translate(text)), &row);
  button->setAutoDefault(false);
  QWidget* of = &row;
  // The row goes with its button, once the button is done.
  connect(
      button, &QPushButton::clicked, this, [this, of, action] { Do(*of, action); },
      Qt::QueuedConnection);
  column.addWidget(button);
}

QWidget* RecoveryWindow::MakeFoot() {
  auto* foot = new QWidget;
  auto* layout = new QHBoxLayout(foot);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(MakeText(ToQString(LoadText(IDS_RECOVERY_LATER)), foot), 1);
  auto* buttons = new QDialogButtonBox(foot);
  auto* all = buttons->addButton(ToQString(Translate("Recover All")), QDialogButtonBox::AcceptRole);
  auto* later = buttons->addButton(ToQString(Translate("Close")), QDialogButtonBox::RejectRole);
  all->setDefault(true);
  connect(all, &QPushButton::clicked, this, &RecoveryWindow::RecoverAll, Qt::QueuedConnection);
  connect(later, &QPushButton::clicked, this, &QDialog::reject);
  layout->addWidget(buttons);
  return foot;
}

void RecoveryWindow::Do(QWidget& row, Action action) {
  const auto found = std::ranges::find(rows, &row);
  if (found == rows.end()) return;
  const auto index = static_cast<std::size_t>(found - rows.begin());
  if ((list.*action)(index)) Remove(index);
}

void RecoveryWindow::RecoverAll() {
  // What can't be recovered stays in its row.
  for (std::size_t i = rows.size(); i-- > 0;) {
    if (list.Recover(i)) Remove(i);
  }
}

void RecoveryWindow::Remove(std::size_t index) {
  rows[index]->hide();
  rows[index]->deleteLater();
  rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(index));
  if (rows.empty()) accept();
}
