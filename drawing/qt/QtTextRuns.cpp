#include "drawing/qt/QtTextRuns.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "drawing/TextCodec.h"
#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

/// Where letters of one kind follow each other, all of them run in one direction. Signs without a
/// direction, and such as tell it, count one by one: it hangs on what each of them is paired with.
bool GoesOn(std::uint32_t before, std::uint32_t point) {
  const QChar::Direction kind = QChar::direction(point);
  return kind == QChar::direction(before) && kind != QChar::DirON && !IsDirectionMark(before) &&
         !IsDirectionMark(point);
}

}  // namespace

std::vector<TextRun> QtTextRuns::Of(const QtFont& font, std::string_view utf8) {
  std::vector<TextRun> all;
  double left = 0;
  while (!utf8.empty()) {
    QtTextRuns piece(font, QtFont::TakePiece(utf8));
    piece.Find();
    piece.Place(left);
    std::ranges::move(piece.runs, std::back_inserter(all));
  }
  return all;
}

void QtTextRuns::Find() {
  const LaidOutLine line(QtFont::Printable(piece), font.Font());
  std::size_t begin = 0;  // of letters of one kind
  int first = 0;
  std::uint32_t point = 0;  // that the last letter begins with
  int at = 0;
  for (std::size_t byte = 0; byte < piece.size();) {
    const auto [next, length] = DecodeUtf8(piece, byte);
    if (line.BeginsLetter(at)) {
      if (byte > begin && !GoesOn(point, next)) {
        Add(piece.substr(begin, byte - begin), line.PlaceOf(first));
        begin = byte;
        first = at;
      }
      point = next;
    }
    byte += length;
    at += QChar::requiresSurrogates(next) ? 2 : 1;
  }
  Add(piece.substr(begin), line.PlaceOf(first));
}

void QtTextRuns::Add(std::string_view part, const std::optional<LaidOutLine::Place>& place) {
  if (!place || IsDirectionMark(DecodeUtf8(part, 0).value)) return;
  const double width = font.Advance(part);
  const TextDirection direction =
      place->turned ? TextDirection::RightToLeft : TextDirection::LeftToRight;
  if (!place->turned || runs.empty() || runs.back().direction != direction) {
    runs.push_back({part, direction, place->x, width});
    return;
  }
  Join(runs.back(), part, width);
}

void QtTextRuns::Join(TextRun& run, std::string_view part, double width) const {
  run.width += width;
  const auto size = static_cast<std::size_t>(part.data() + part.size() - run.text.data());
  run.text = piece.substr(static_cast<std::size_t>(run.text.data() - piece.data()), size);
}

/// The letters tell the order of the parts from left to right; they may stand beside their places.
/// What follows each other from left to right becomes one run unless another stands between, as
/// where numbers of two kinds meet.
void QtTextRuns::Place(double& left) {
  std::vector<std::size_t> order(runs.size());
  std::iota(order.begin(), order.end(), 0U);
  std::ranges::stable_sort(order, {}, [this](std::size_t i) { return runs[i].left; });
  std::vector<std::size_t> ranks(runs.size());
  for (std::size_t rank = 0; rank < order.size(); ++rank) {
    TextRun& run = runs[order[rank]];
    ranks[order[rank]] = rank;
    run.left = left;
    left += run.width;
  }
  std::vector<TextRun> joined;
  for (std::size_t i = 0; i < runs.size(); ++i) {
    const bool goesOn = i > 0 && ranks[i] == ranks[i - 1] + 1 &&
                        runs[i].direction == TextDirection::LeftToRight &&
                        joined.back().direction == TextDirection::LeftToRight;
    if (goesOn) {
      Join(joined.back(), runs[i].text, runs[i].width);
    } else {
      joined.push_back(runs[i]);
    }
  }
  runs = std::move(joined);
}

}  // namespace morvane
