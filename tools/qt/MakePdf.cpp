#include <cstdio>

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

#include "tools/qt/PdfBook.h"

using namespace morvane;

namespace {

int Fail(const QString& what) {
  std::fprintf(stderr, "%s\n", qPrintable(what));
  return 1;
}

}  // namespace

/// Sets a document in Markdown as PDF, with the version of the program where it says @VERSION@:
/// morvane_pdf IN.md OUT.pdf VERSION
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() != 4) return Fail("usage: morvane_pdf IN.md OUT.pdf VERSION");
  QFile file(arguments[1]);
  if (!file.open(QIODevice::ReadOnly)) return Fail(arguments[1] + ": " + file.errorString());
  const QString text = QString::fromUtf8(file.readAll()).replace("@VERSION@", arguments[3]);
  PdfBook book(text, QFileInfo(file).absolutePath());
  if (!book.MissingPictures().isEmpty()) {
    return Fail(arguments[1] + ": no such picture: " + book.MissingPictures().join(", "));
  }
  if (!book.Write(arguments[2])) return Fail(arguments[2] + ": not written");
  return 0;
}
