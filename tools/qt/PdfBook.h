#pragma once

#include <QList>
#include <QString>
#include <QTextBlock>
#include <QTextDocument>

class QPdfWriter;
class QPainter;

namespace morvane {

/// A document in Markdown, laid out for paper: a title page with the contents, chapters ("##") and
/// sections ("###"), pictures, tables, and pages with numbers.
class PdfBook {
 public:
  /// `markdown` begins with its title ("#") and a paragraph below it. Pictures are looked for from
  /// `folder` on.
  PdfBook(const QString& markdown, const QString& folder);

  /// False if the file can't be written.
  bool Write(const QString& path);
  /// The pictures that the text names and that could not be read.
  const QStringList& MissingPictures() const { return missing; }

 private:
  struct Heading {
    QTextBlock block;
    int level;
  };

  void StyleBlocks();
  void StyleBlock(QTextBlock block);
  void StyleFragments(QTextBlock block);
  void StylePicture(QTextCursor& cursor, const QTextCharFormat& format);
  void StyleTables();
  void AddContents();
  void LayOut();
  /// The heading stands at the end of a page, away from what follows it.
  bool IsLost(const Heading& heading) const;
  void KeepHeadingsWithText();
  void NumberContents();
  int PageOf(const QTextBlock& block) const;
  void PaintPage(QPainter& painter, int page) const;

  QTextDocument document;
  QString title;
  QStringList missing;
  QList<Heading> headings;
  QList<QTextBlock> contents;  ///< one line for each heading
};

}  // namespace morvane
