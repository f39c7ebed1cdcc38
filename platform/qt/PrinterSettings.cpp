#include "platform/qt/PrinterSettings.h"

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include <QPrinter>
#include <QPrinterInfo>

#include "drawing/qt/QtText.h"
#include "platform/Profile.h"

namespace morvane {

namespace {

constexpr const char* kSection = "Print";
constexpr const char* kPrinter = "Printer";
constexpr const char* kToFile = "ToFile";
constexpr const char* kPaper = "Paper";
constexpr const char* kLandscape = "Landscape";
/// Left, top, right, bottom.
constexpr std::array kMargins = {"MarginLeft", "MarginTop", "MarginRight", "MarginBottom"};
constexpr double kMarginsPerMillimetre = 100;

void RestoreLayout(QPrinter& printer) {
  Profile& profile = Service<Profile>::Get();
  const QString paper = ToQString(profile.GetString(kSection, kPaper, ""));
  for (int id = 0; id <= QPageSize::LastPageSize; ++id) {
    const auto size = static_cast<QPageSize::PageSizeId>(id);
    if (size != QPageSize::Custom && QPageSize::key(size) == paper) {
      printer.setPageSize(QPageSize(size));
    }
  }
  if (profile.Find(kSection, kLandscape)) {
    const bool isLandscape = profile.GetInt(kSection, kLandscape, 0) != 0;
    printer.setPageOrientation(isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  }
  std::array<double, kMargins.size()> margins{};
  for (std::size_t i = 0; i < margins.size(); ++i) {
    const std::int32_t stored = profile.GetInt(kSection, kMargins[i], -1);
    if (stored < 0) return;
    margins[i] = stored / kMarginsPerMillimetre;
  }
  // Refused if they leave no room.
  printer.setPageMargins(QMarginsF(margins[0], margins[1], margins[2], margins[3]),
                         QPageLayout::Millimeter);
}

}  // namespace

void PrinterSettings::Restore(QPrinter& printer) {
  Profile& profile = Service<Profile>::Get();
  const QString name = ToQString(profile.GetString(kSection, kPrinter, ""));
  if (!name.isEmpty() && QPrinterInfo::availablePrinterNames().contains(name)) {
    printer.setPrinterName(name);
  }
  if (profile.GetInt(kSection, kToFile, 0) != 0) printer.setOutputFormat(QPrinter::PdfFormat);
  RestoreLayout(printer);
}

void PrinterSettings::Store(const QPrinter& printer) {
  const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
  const QPageLayout layout = printer.pageLayout();
  const QMarginsF edges = layout.margins(QPageLayout::Millimeter);
  std::vector<Profile::Setting> settings = {
      {kToFile, toFile ? "1" : "0"},
      {kPaper, layout.pageSize().key().toStdString()},
      {kLandscape, layout.orientation() == QPageLayout::Landscape ? "1" : "0"}};
  // Which one it would be if pages went to paper stays.
  if (!toFile) settings.emplace_back(kPrinter, printer.printerName().toStdString());
  const std::array margins = {edges.left(), edges.top(), edges.right(), edges.bottom()};
  for (std::size_t i = 0; i < margins.size(); ++i) {
    settings.emplace_back(kMargins[i],
                          std::to_string(std::lround(margins[i] * kMarginsPerMillimetre)));
  }
  Service<Profile>::Get().Write(kSection, settings);
}

}  // namespace morvane
