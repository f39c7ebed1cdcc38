#include "shell/ChartFiles.h"

#include "persistence/DocumentManager.h"
#include "platform/Files.h"

namespace morvane {

namespace {

constexpr std::string_view kExtension = ".mrv";

}  // namespace

bool IsChartFile(std::string_view path) {
  return path.size() > kExtension.size() && ExtensionOf(path) == kExtension;
}

void OpenChartFile(DocumentManager& manager, const std::string& path) {
  if (IsChartFile(path)) manager.OpenDocumentFile(path);
}

}  // namespace morvane
