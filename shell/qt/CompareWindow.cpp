#include "shell/qt/CompareWindow.h"

#include <numeric>
#include <utility>

#include <QAction>
#include <QFontDatabase>
#include <QHeaderView>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QSplitter>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "drawing/qt/QtText.h"
#include "platform/qt/SvgIcon.h"
#include "resources/Texts.h"
#include "review/ChartComparison.h"
#include "review/DiffPicture.h"
#include "shell/qt/DiffPictureView.h"

namespace morvane {

namespace {

constexpr QSize kFirstSize(1000, 760);
constexpr double kScreenPart = 0.9;
constexpr int kIconSize = 18;
constexpr int kSignSize = 16;
constexpr int kObjectWidth = 420;
constexpr int kListHeight = 240;
/// A list of more lines shows the objects alone at first.
constexpr std::size_t kMostLines = 300;
enum ListColumn : int { kObject, kChange };

QIcon IconOf(const DiffPicture::Sign& sign, double ratio) {
  QPixmap disc(QSize(kSignSize, kSignSize) * ratio);
  disc.setDevicePixelRatio(ratio);
  disc.fill(Qt::transparent);
  QPainter painter(&disc);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(static_cast<int>(GetRValue(sign.colour)),
                          static_cast<int>(GetGValue(sign.colour)),
                          static_cast<int>(GetBValue(sign.colour))));
  const QRect area(0, 0, kSignSize, kSignSize);
  painter.drawEllipse(area);
  painter.setPen(Qt::white);
  painter.drawText(area, Qt::AlignCenter, FromUtf8(sign.letter));
  return QIcon(disc);
}

}  // namespace

CompareWindow::CompareWindow(std::unique_ptr<ChartComparison> compared, Chosen chosen,
                             QWidget* parent)
    : QDialog(parent, Qt::Window),
      comparison(std::move(compared)),
      picture(std::make_unique<DiffPicture>(comparison->Before(), comparison->After(),
                                            comparison->Diff())),
      rows(RowsOf(comparison->Diff())),
      chosen(std::move(chosen)),
      bar(new QToolBar(this)),
      view(new DiffPictureView(*picture, this)),
      list(new QTreeWidget(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  resize(kFirstSize.boundedTo(screen()->availableSize() * kScreenPart));
  view->setAccessibleName(ToQString(Translate("Picture of both versions")));
  CreateBar();
  FillList();
  auto* parts = new QSplitter(Qt::Vertical, this);
  parts->addWidget(view);
  parts->addWidget(list);
  parts->setStretchFactor(0, 1);
  parts->setSizes({height() - kListHeight, kListHeight});
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(bar);
  layout->addWidget(parts, 1);
  list->setFocus();
}

CompareWindow::~CompareWindow() {
  // Before the picture that it paints.
  delete view;
}

void CompareWindow::AddTool(const char* text, const char* icon, void (DiffPictureView::*run)()) {
  QAction* action = bar->addAction(ToQString(Translate(text)), view, run);
  const SvgColours colours =
      SvgColours::On(palette().color(QPalette::Button), palette().color(QPalette::ButtonText));
  QIcon pixmaps;
  AddSvgPixmaps(pixmaps, icon, kIconSize, colours);
  action->setIcon(pixmaps);
}

void CompareWindow::CreateBar() {
  bar->setIconSize({kIconSize, kIconSize});
  AddTool("Zoom In", "zoomin", &DiffPictureView::ZoomIn);
  bar->actions().last()->setShortcut(QKeySequence::ZoomIn);
  AddTool("Zoom Out", "zoomout", &DiffPictureView::ZoomOut);
  bar->actions().last()->setShortcut(QKeySequence::ZoomOut);
  AddTool("Whole Page", "zoomnormal", &DiffPictureView::Fit);
  bar->addSeparator();
  bar->addAction(ToQString(Translate("Close")), this, &QWidget::close);
}

void CompareWindow::FillList() {
  list->setAccessibleName(ToQString(Translate("Changes")));
  list->setHeaderLabels({ToQString(Translate("Object")), ToQString(Translate("Change"))});
  list->header()->resizeSection(kObject, kObjectWidth);
  list->setAllColumnsShowFocus(true);
  list->setUniformRowHeights(true);
  for (const DiffRow& row : rows) AddRow(row);
  const std::size_t lines =
      std::accumulate(rows.begin(), rows.end(), std::size_t{0},
                      [](std::size_t sum, const DiffRow& row) { return sum + row.lines.size(); });
  if (lines + rows.size() <= kMostLines) list->expandAll();
  connect(list, &QTreeWidget::itemClicked, this, &CompareWindow::Choose);
  connect(list, &QTreeWidget::currentItemChanged, this, &CompareWindow::Choose);
}

void CompareWindow::AddRow(const DiffRow& row) {
  auto* item = new QTreeWidgetItem(list, {FromUtf8(row.object), FromUtf8(row.summary)});
  if (row.change != nullptr) {
    item->setIcon(kObject, IconOf(DiffPicture::SignOf(*row.change), devicePixelRatioF()));
  }
  item->setToolTip(kObject, item->text(kObject));
  item->setToolTip(kChange, item->text(kChange));
  const QFont code = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  for (const std::string& line : row.lines) {
    auto* child = new QTreeWidgetItem(item, {FromUtf8(line)});
    child->setFirstColumnSpanned(true);
    child->setFont(kObject, code);
  }
}

/// Shows the object of a row, or of a line below it.
void CompareWindow::Choose(QTreeWidgetItem* item) {
  if (item == nullptr) return;
  if (item->parent() != nullptr) item = item->parent();
  const int at = list->indexOfTopLevelItem(item);
  const ObjectChange* change = rows[static_cast<std::size_t>(at)].change;
  view->Show(change != nullptr ? picture->PlaceOf(*change) : RECT{});
  if (change != nullptr && change->after != nullptr) {
    chosen(change->after->id, change->after->keyword);
  }
}

}  // namespace morvane
