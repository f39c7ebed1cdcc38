#include "exchange/ScxmlImport.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "exchange/ChartMaker.h"
#include "exchange/ImportedChart.h"
#include "exchange/ScxmlReader.h"
#include "exchange/ScxmlStates.h"
#include "exchange/ScxmlTransitions.h"
#include "persistence/ModelFile.h"
#include "platform/Files.h"
#include "resources/Texts.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

std::string StemOf(const std::string& fileName) {
  const std::string extension = ExtensionOf(fileName);
  return fileName.substr(0, fileName.size() - extension.size());
}

ImportedChart Understood(const ScxmlDocument& document) {
  ImportedChart chart;
  chart.name = document.name;
  chart.remarks = document.remarks;
  ScxmlStates states(document, chart);
  ScxmlTransitions(document, states, chart).Add();
  std::ranges::stable_sort(chart.remarks, {}, &ImportRemark::line);
  return chart;
}

}  // namespace

ImportResult ImportScxml(std::string_view bytes, const std::string& fileName) {
  ImportResult result;
  try {
    ImportedChart chart = Understood(ScxmlReader::Read(bytes));
    if (chart.states.empty()) throw Said("There are no states");
    if (chart.name.empty()) chart.name = StemOf(fileName);
    LayoutMgr view;
    view.PlaceWithoutWindow(LayoutMgr::Size::Normal);
    ChartMaker(view).Make(chart, fileName);
    result.modelText = view.ModelText();
    result.remarks = std::move(chart.remarks);
  } catch (const std::string& reason) {
    result.failure = reason;
  } catch (const std::exception&) {
    result.failure = LoadText(IDS_UNKNOWN_ERROR);
  }
  return result;
}

ImportResult ImportScxmlFile(const std::string& path) {
  std::string bytes;
  const FileResult read = ReadWholeFile(path, bytes);
  if (!read.Ok()) return {.modelText = {}, .remarks = {}, .failure = read.ErrorText()};
  return ImportScxml(bytes, FileNameOf(path));
}

std::string RemarkLines(const std::string& path, const ImportRemarks& remarks) {
  std::string lines;
  for (const ImportRemark& remark : remarks) {
    lines += Said("%1:%2: warning: %3", {path, std::to_string(remark.line), remark.text}) + '\n';
  }
  return lines;
}

}  // namespace morvane
