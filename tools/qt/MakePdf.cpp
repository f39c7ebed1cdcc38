#include <cstdio>

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

#include "tools/qt/PdfBook.h"

namespace {

int Fail(const QString& what) {
  std::fprintf(stderr, "%s\n", qPrintable(what));
  return 1;
}

}  // namespace

/// Sets a document in Markdown as PDF: morvane_pdf IN.md OUT.pdf
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() != 3) return Fail("usage: morvane_pdf IN.md OUT.pdf");
  QFile file(arguments[1]);
  if (!file.open(QIODevice::ReadOnly)) return Fail(arguments[1] + ": " + file.errorString());
  PdfBook book(QString::fromUtf8(file.readAll()), QFileInfo(file).absolutePath());
  if (!book.MissingPictures().isEmpty()) {
    return Fail(arguments[1] + ": no such picture: " + book.MissingPictures().join(", "));
  }
  if (!book.Write(arguments[2])) return Fail(arguments[2] + ": not written");
  return 0;
}
