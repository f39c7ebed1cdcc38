#include "tools/qt/PdfBook.h"

#include <algorithm>

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QTextList>
#include <QTextTable>

namespace morvane {

namespace {

// All lengths are in pixels of 1/96 inch.
constexpr QSizeF kPaper(793.7, 1122.5);
constexpr QMarginsF kMargins(84, 78, 84, 90);
constexpr double kPixelsPerInch = 96;
constexpr int kTextSize = 13;
constexpr int kCodeSize = 12;
constexpr int kCaptionSize = 11;
constexpr int kTitleSize = 40;
constexpr int kHeadingSizes[] = {kTitleSize, 23, 16, 14};
constexpr double kFooterDistance = 34;
/// A heading needs this much of the page under its top.
constexpr double kHeadingRoom = 130;
/// A picture of the screen is this much smaller on paper.
constexpr double kPictureScale = 0.72;

const QString kTextFace = QStringLiteral("DejaVu Sans");
const QString kCodeFace = QStringLiteral("DejaVu Sans Mono");
const QColor kAccent(0x1f, 0x57, 0x91);
const QColor kGrey(0x60, 0x60, 0x60);
const QColor kRule(0xb8, 0xc8, 0xda);
const QColor kShade(0xee, 0xf3, 0xf9);

QSizeF TextArea() { return kPaper.shrunkBy(kMargins); }

bool IsCode(const QTextBlock& block) {
  return block.blockFormat().hasProperty(QTextFormat::BlockCodeFence) ||
         block.blockFormat().nonBreakableLines();
}

/// A paragraph in italics alone is the caption of the picture above it.
bool IsCaption(const QTextBlock& block) {
  if (block.text().isEmpty()) return false;
  for (auto it = block.begin(); !it.atEnd(); ++it) {
    if (!it.fragment().charFormat().fontItalic()) return false;
  }
  return true;
}

void SetSize(QTextCharFormat& format, int pixels) {
  format.clearProperty(QTextFormat::FontPointSize);
  format.clearProperty(QTextFormat::FontSizeAdjustment);
  format.setProperty(QTextFormat::FontPixelSize, pixels);
}

}  // namespace

PdfBook::PdfBook(const QString& markdown, const QString& folder) {
  document.setBaseUrl(QUrl::fromLocalFile(folder + '/'));
  QFont font(kTextFace);
  font.setPixelSize(kTextSize);
  font.setHintingPreference(QFont::PreferNoHinting);
  document.setDefaultFont(font);
  document.setDocumentMargin(0);
  document.setMarkdown(markdown, QTextDocument::MarkdownDialectGitHub);
  document.setUseDesignMetrics(true);
  StyleTables();
  StyleBlocks();
  AddContents();
  document.setPageSize(TextArea());
  KeepHeadingsWithText();
  NumberContents();
}

void PdfBook::StyleBlocks() {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    StyleBlock(block);
    StyleFragments(block);
    const int level = block.blockFormat().headingLevel();
    if (level == 1) title = block.text();
    if (level > 1) headings << Heading{block, level};
  }
}

void PdfBook::StyleBlock(QTextBlock block) {
  QTextBlockFormat format = block.blockFormat();
  const int level = format.headingLevel();
  const bool inTable = QTextCursor(block).currentTable() != nullptr;
  format.setLineHeight(inTable || IsCode(block) ? 115 : 130, QTextBlockFormat::ProportionalHeight);
  format.setTopMargin(0);
  format.setBottomMargin(inTable ? 0 : 8);
  if (level == 1) {
    format.setTopMargin(40);
    format.setBottomMargin(10);
  } else if (level > 1) {
    format.setTopMargin(level == 2 ? 26 : 14);
    format.setBottomMargin(level == 2 ? 10 : 6);
  } else if (IsCode(block)) {
    format.setBackground(kShade);
    format.setLeftMargin(12);
    format.setBottomMargin(IsCode(block.next()) ? 0 : 10);
  } else if (block.textList() != nullptr) {
    format.setBottomMargin(3);
  } else if (IsCaption(block) && !inTable) {
    format.setAlignment(Qt::AlignHCenter);
    format.setBottomMargin(14);
  }
  QTextCursor(block).setBlockFormat(format);
}

void PdfBook::StyleFragments(QTextBlock block) {
  const int level = block.blockFormat().headingLevel();
  const bool isCaption = IsCaption(block) && QTextCursor(block).currentTable() == nullptr;
  struct Piece {
    int start;
    int length;
    QTextCharFormat format;
  };
  QList<Piece> pieces;
  for (auto it = block.begin(); !it.atEnd(); ++it) {
    const QTextFragment fragment = it.fragment();
    pieces << Piece{fragment.position(), fragment.length(), fragment.charFormat()};
  }
  for (const Piece& piece : pieces) {
    QTextCursor cursor(&document);
    cursor.setPosition(piece.start);
    cursor.setPosition(piece.start + piece.length, QTextCursor::KeepAnchor);
    if (piece.format.isImageFormat()) {
      StylePicture(cursor, piece.format);
      continue;
    }
    QTextCharFormat format = piece.format;
    const bool isCode = format.fontFixedPitch() || IsCode(block);
    format.setFontFamilies({isCode ? kCodeFace : kTextFace});
    SetSize(format, isCode ? kCodeSize : kTextSize);
    if (level > 0) {
      SetSize(format, kHeadingSizes[std::min(level, 4) - 1]);
      format.setForeground(kAccent);
      format.setFontWeight(QFont::Bold);
    } else if (isCaption) {
      SetSize(format, kCaptionSize);
      format.setForeground(kGrey);
    }
    cursor.setCharFormat(format);
  }
}

void PdfBook::StylePicture(QTextCursor& cursor, const QTextCharFormat& format) {
  QTextImageFormat picture = format.toImageFormat();
  const QImage image(document.baseUrl().resolved(QUrl(picture.name())).toLocalFile());
  if (image.isNull()) missing << picture.name();
  const double width = std::min(image.width() * kPictureScale, TextArea().width());
  picture.setWidth(width);
  picture.setHeight(image.isNull() ? 0 : width * image.height() / image.width());
  cursor.setCharFormat(picture);
  QTextBlockFormat centred;
  centred.setAlignment(Qt::AlignHCenter);
  centred.setTopMargin(4);
  centred.setBottomMargin(4);
  centred.setLineHeight(100, QTextBlockFormat::ProportionalHeight);
  cursor.mergeBlockFormat(centred);
}

void PdfBook::StyleTables() {
  for (QTextFrame* frame : document.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorderCollapse(true);
    format.setBorder(0);
    format.setCellPadding(4);
    format.setCellSpacing(0);
    format.setTopMargin(4);
    format.setBottomMargin(12);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    table->setFormat(format);
    for (int row = 0; row < table->rows(); ++row) {
      for (int column = 0; column < table->columns(); ++column) {
        QTextTableCell cell = table->cellAt(row, column);
        QTextTableCellFormat rule = cell.format().toTableCellFormat();
        rule.setBottomBorder(1);
        rule.setBottomBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        rule.setBottomBorderBrush(kRule);
        if (row == 0) rule.setBackground(kShade);
        cell.setFormat(rule);
      }
    }
  }
}

void PdfBook::AddContents() {
  // Behind the title and the paragraph below it.
  QTextCursor cursor(document.begin().next());
  cursor.movePosition(QTextCursor::EndOfBlock);
  QTextCharFormat text;
  SetSize(text, kTextSize);
  text.setFontFamilies({kTextFace});
  for (const Heading& heading : headings) {
    QTextBlockFormat format;
    format.setLeftMargin(heading.level == 2 ? 0 : 20);
    const bool first = contents.isEmpty();
    format.setTopMargin(first ? 40 : heading.level == 2 ? 7 : 1);
    const double right = TextArea().width() - format.leftMargin();
    format.setTabPositions({QTextOption::Tab(right, QTextOption::RightTab)});
    text.setFontWeight(heading.level == 2 ? QFont::Bold : QFont::Normal);
    cursor.insertBlock(format, text);
    cursor.insertText(heading.block.text() + '\t', text);
    contents << cursor.block();
  }
  if (headings.isEmpty()) return;
  QTextBlockFormat format = headings.first().block.blockFormat();
  format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  QTextCursor(headings.first().block).setBlockFormat(format);
}

int PdfBook::PageOf(const QTextBlock& block) const {
  const QRectF place = document.documentLayout()->blockBoundingRect(block);
  return static_cast<int>(place.top() / TextArea().height());
}

void PdfBook::LayOut() {
  // What is laid out piece by piece is painted with gaps.
  document.markContentsDirty(0, document.characterCount());
}

bool PdfBook::IsLost(const Heading& heading) const {
  QTextBlock text = heading.block;
  while (text.blockFormat().headingLevel() > 0 && text.next().isValid()) text = text.next();
  const double top = document.documentLayout()->blockBoundingRect(heading.block).top();
  const double height = TextArea().height();
  const double left = height - (top - PageOf(heading.block) * height);
  return left < kHeadingRoom || PageOf(text) != PageOf(heading.block);
}

void PdfBook::KeepHeadingsWithText() {
  for (Heading& heading : headings) {
    LayOut();
    QTextBlockFormat format = heading.block.blockFormat();
    if (format.pageBreakPolicy() != QTextFormat::PageBreak_Auto || !IsLost(heading)) continue;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(heading.block).setBlockFormat(format);
  }
}

void PdfBook::NumberContents() {
  for (qsizetype i = 0; i < contents.size(); ++i) {
    QTextCursor cursor(contents[i]);
    cursor.movePosition(QTextCursor::EndOfBlock);
    cursor.insertText(QString::number(PageOf(headings[i].block) + 1));
  }
  LayOut();
}

bool PdfBook::Write(const QString& path) {
  QPdfWriter writer(path);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageMargins({});
  writer.setTitle(title);
  writer.setCreator("Morvane");
  QPainter painter;
  if (!painter.begin(&writer)) return false;
  const double scale = writer.resolution() / kPixelsPerInch;
  painter.scale(scale, scale);
  for (int page = 0; page < document.pageCount(); ++page) {
    if (page > 0 && !writer.newPage()) return false;
    PaintPage(painter, page);
  }
  return painter.end();
}

void PdfBook::PaintPage(QPainter& painter, int page) const {
  const QSizeF area = TextArea();
  painter.save();
  painter.translate(kMargins.left(), kMargins.top() - page * area.height());
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette.setColor(QPalette::Text, Qt::black);
  // What begins the next page is not to show its edge here.
  context.clip = QRectF(QPointF(0, page * area.height()), area.shrunkBy({0, 0, 0, 1}));
  painter.setClipRect(context.clip);
  document.documentLayout()->draw(&painter, context);
  painter.restore();
  if (page == 0) return;

  QFont font(kTextFace);
  font.setPixelSize(kCaptionSize);
  painter.save();
  painter.setFont(font);
  painter.setPen(kGrey);
  const QRectF foot(kMargins.left(), kPaper.height() - kMargins.bottom() + kFooterDistance,
                    area.width(), 2 * kCaptionSize);
  painter.drawText(foot, Qt::AlignLeft, title);
  painter.drawText(foot, Qt::AlignRight, QString::number(page + 1));
  painter.restore();
}

}  // namespace morvane
