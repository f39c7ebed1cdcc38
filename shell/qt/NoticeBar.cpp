#include "shell/qt/NoticeBar.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

constexpr int kEdge = 6;

}  // namespace

NoticeBar::NoticeBar(QWidget* parent) : QWidget(parent) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(1);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  hide();
}

QWidget* NoticeBar::MakeBar(const DocumentNotice& notice) {
  auto* bar = new QFrame(this);
  bar->setAutoFillBackground(true);
  // The colours of a tool tip: the desktop's own for a remark on what is below it.
  QPalette colours = bar->palette();
  colours.setColor(QPalette::Window, colours.color(QPalette::ToolTipBase));
  colours.setColor(QPalette::WindowText, colours.color(QPalette::ToolTipText));
  bar->setPalette(colours);

  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(kEdge * 2, kEdge, kEdge, kEdge);
  auto* icon = new QLabel(bar);
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
  row->addWidget(icon);
  auto* text = new QLabel(ToQString(notice.text), bar);
  text->setTextFormat(Qt::PlainText);
  text->setWordWrap(true);
  text->setPalette(colours);
  row->addWidget(text, 1);
  for (const DocumentNotice::Button& choice : notice.buttons) {
    auto* button = new QPushButton(ToQString(choice.text), bar);
    button->setFocusPolicy(Qt::TabFocus);
    // The answer takes the bar with its button away, once the button is done.
    const DocumentNotice::Answer answer = choice.answer;
    connect(
        button, &QPushButton::clicked, this, [this, answer] { emit Answered(answer); },
        Qt::QueuedConnection);
    row->addWidget(button);
  }
  return bar;
}

void NoticeBar::Show(const std::vector<DocumentNotice>& notices) {
  for (QWidget* bar : bars) {
    bar->hide();
    bar->deleteLater();
  }
  bars.clear();
  for (const DocumentNotice& notice : notices) {
    bars.push_back(MakeBar(notice));
    layout()->addWidget(bars.back());
  }
  setVisible(!bars.empty());
}

}  // namespace morvane
