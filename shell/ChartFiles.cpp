#include "shell/ChartFiles.h"

#include "persistence/CDocManager.h"
#include "platform/Files.h"

namespace {

constexpr std::string_view kExtension = ".mrv";

}  // namespace

bool IsChartFile(std::string_view path) {
  return path.size() > kExtension.size() && ExtensionOf(path) == kExtension;
}

void OpenChartFile(CDocManager& manager, const std::string& path) {
  if (IsChartFile(path)) manager.OpenDocumentFile(path);
}
