#include "shell/ExportJob.h"

#include <algorithm>
#include <array>
#include <exception>
#include <ostream>

#include "drawing/TextCodec.h"
#include "model/Collection.h"
#include "model/ModelMgr.h"
#include "persistence/ModelFile.h"
#include "platform/Files.h"
#include "resources/Texts.h"
#include "shell/CommandLine.h"
#include "states/GenericState.h"
#include "surface/ChartPicture.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

constexpr std::string_view kScale = "--scale";
constexpr std::string_view kDotsPerInch = "--dpi";
constexpr std::string_view kSize = "--size";
constexpr std::string_view kMargin = "--margin";
constexpr std::string_view kState = "--state";
constexpr std::string_view kTransparent = "--transparent";
constexpr std::string_view kKind = "--kind";

constexpr std::array kOptions = {Arguments::Option{kScale, "number"},
                                 Arguments::Option{kDotsPerInch, "number"},
                                 Arguments::Option{kSize, "number of pixels"},
                                 Arguments::Option{kMargin, "number of pixels"},
                                 Arguments::Option{kState, "name"},
                                 Arguments::Option{kTransparent, ""},
                                 Arguments::Option{kKind, "kind"}};

constexpr double kScreenInch = 96;
constexpr double kMostPixels = 16384;
constexpr double kLeastDotsPerInch = kScreenInch * PictureOptions::kLeastScale;
constexpr double kMostDotsPerInch = kScreenInch * PictureOptions::kMostScale;

int Fail(std::ostream& err, const std::string& path, const std::string& reason, int status) {
  err << path << ": " << reason << '\n';
  return status;
}

}  // namespace

std::span<const Arguments::Option> ExportJob::Options() { return kOptions; }

ExportJob::ExportJob(Arguments& arguments)
    : mostPixels(arguments.Number(kSize, 1, kMostPixels)), state(arguments.Value(kState)) {
  options.transparent = arguments.Has(kTransparent);
  if (const auto scale =
          arguments.Number(kScale, PictureOptions::kLeastScale, PictureOptions::kMostScale)) {
    options.scale = *scale;
  }
  if (const auto dots = arguments.Number(kDotsPerInch, kLeastDotsPerInch, kMostDotsPerInch)) {
    options.pixelsPerInch = *dots;
  }
  if (const auto margin = arguments.Number(kMargin, 0, PictureOptions::kMostMargin)) {
    options.margin = static_cast<std::int32_t>(*margin);
  }
  if (arguments.Has(kKind)) {
    kind = "." + arguments.Value(kKind);
    if (Picture::KindOf(kind) == nullptr) arguments.Refuse(kKind, "png, svg, pdf or emf");
  }
}

/// False if there is no such state.
bool ExportJob::Select(LayoutMgr& chart) const {
  chart.GetModel().DeselectAll();
  bool found = false;
  for (Shape* shape : chart.GetModel().Objects()) {
    const auto* candidate = dynamic_cast<const GenericState*>(shape);
    if (candidate == nullptr || ToUtf8(candidate->GetName()) != ToUtf8(state)) continue;
    found = true;
    chart.GetSelection().Add(shape);
    for (Shape* inside : candidate->Contents()) chart.GetSelection().Add(inside);
  }
  return found;
}

int ExportJob::Run(const std::string& output, const std::string& file, std::ostream& out,
                   std::ostream& err) const {
  const Picture::FileKind* form = Picture::KindOf(kind.empty() ? output : kind);
  if (form == nullptr) {
    return Fail(err, output, LoadText(IDS_PICTURE_KIND), CommandLine::kWrongUse);
  }
  try {
    LayoutMgr chart;
    const std::string problem = CommandLine::LoadChart(file, chart, LayoutMgr::Size::Normal);
    if (!problem.empty()) return Fail(err, file, problem, CommandLine::kFailure);
    PictureOptions wanted = options;
    wanted.selectionOnly = !state.empty();
    // A drawing has no pixels, and is as large on paper anyway.
    if (form == Picture::KindOf(".png")) wanted.scale *= wanted.pixelsPerInch / kScreenInch;
    if (wanted.selectionOnly && !Select(chart)) {
      return Fail(err, file, "there is no state '" + state + "'", CommandLine::kFailure);
    }
    ChartPicture picture(chart, wanted);
    if (mostPixels) {
      const SIZE size = picture.Size();
      const double side = std::max({size.cx, size.cy, 1}) * wanted.scale;
      wanted.scale *= std::min(1.0, *mostPixels / side);
      picture.SetForm(wanted);
    }
    const std::optional<std::string> bytes = picture.MakeFile(*form);
    if (!bytes) return Fail(err, file, LoadText(IDS_PICTURE_TOO_LARGE), CommandLine::kFailure);
    return CommandLine::WriteOutput(output, *bytes, out, err);
  } catch (const std::exception&) {
    return Fail(err, file, LoadText(IDS_UNKNOWN_ERROR), CommandLine::kFailure);
  }
}

}  // namespace morvane
