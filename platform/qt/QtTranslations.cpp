#include "platform/qt/QtTranslations.h"

#include <memory>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include "drawing/qt/QtText.h"

namespace morvane {

void LoadToolkitTexts(const std::string& locale) {
  auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
  if (translator->load("qtbase_" + ToQString(locale),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator.release());
  }
}

}  // namespace morvane
