#include "platform/qt/QtTranslations.h"

#include <memory>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include "drawing/qt/QtText.h"
#include "resources/TextSource.h"

void LoadToolkitTexts() {
  const QString locale = ToQString(Service<TextSource>::Get().Locale());
  auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
  if (translator->load("qtbase_" + locale, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator.release());
  }
}
