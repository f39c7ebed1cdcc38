#include "platform/qt/QtTextSearch.h"

#include <algorithm>
#include <bit>
#include <utility>
#include <vector>

#include <QElapsedTimer>
#include <QRegularExpression>

#include "drawing/TextCodec.h"
#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

/// An expression that tries more ways than this to match from one place is given up.
constexpr unsigned kMostSteps = 200'000;
/// So many ways may be tried in a text as a whole while nobody looks at the clock.
constexpr unsigned kMostStepsUnwatched = 30'000'000;
/// So long may an expression be looked for in all texts together.
constexpr qint64 kMostMilliseconds = 3000;

/// A text as the toolkit counts it, and where each of its units begins in the bytes.
class Units {
 public:
  explicit Units(std::string_view utf8) {
    text.reserve(static_cast<qsizetype>(utf8.size()));
    places.reserve(utf8.size() + 1);
    for (std::size_t at = 0; at < utf8.size();) {
      const auto [value, length] = DecodeUtf8(utf8, at);
      const auto encoded = QChar::fromUcs4(static_cast<char32_t>(value));
      for (const QChar unit : QStringView(encoded)) {
        text += unit;
        places.push_back(at);
      }
      at += std::max<std::size_t>(length, 1);
    }
    places.push_back(utf8.size());
  }

  const QString& Text() const { return text; }
  /// A group of a match as bytes; an empty one at the beginning if it took no part.
  TextMatch::Span SpanOf(const QRegularExpressionMatch& match, int group) const {
    const qsizetype begin = match.capturedStart(group);
    const qsizetype end = match.capturedEnd(group);
    if (begin < 0 || end < begin) return {};
    return {places[static_cast<std::size_t>(begin)], places[static_cast<std::size_t>(end)]};
  }

 private:
  QString text;
  std::vector<std::size_t> places;
};

using Options = QRegularExpression::PatternOptions;

Options OptionsOf(const TextPattern& pattern) {
  Options options =
      QRegularExpression::UseUnicodePropertiesOption | QRegularExpression::MultilineOption;
  if (!pattern.matchCase) options |= QRegularExpression::CaseInsensitiveOption;
  return options;
}

/// The toolkit can stop a match that takes too many steps from one place, but not one that takes
/// its time at each of many places. So a text is searched in one go with few steps for each place,
/// and only where these do not do place by place, with an eye on the clock.
class ExpressionMatcher : public TextMatcher {
 public:
  ExpressionMatcher(QString pattern, Options options)
      : pattern(std::move(pattern)),
        options(options),
        quick(Limited(kMostSteps)),
        thorough(Limited(kMostSteps)) {
    used.start();
  }
  const QRegularExpression& Expression() const { return thorough; }

  bool ForEach(std::string_view utf8, const Take& take) override {
    const Units units(utf8);
    Prepare(units.Text().size());
    qsizetype next = 0;
    QRegularExpressionMatchIterator matches =
        quick.globalMatch(units.Text(), 0, QRegularExpression::NormalMatch, kText);
    while (matches.hasNext()) {
      if (IsLate()) return false;
      next = HandOver(units, matches.next(), take);
    }
    return matches.isValid() ? !IsLate() : GoOn(units, next, take);
  }

 private:
  /// No text holds half a character.
  static constexpr auto kText = QRegularExpression::DontCheckSubjectStringMatchOption;

  QRegularExpression Limited(unsigned steps) const {
    // Lines end as those of a chart do.
    return QRegularExpression(QString("(*ANYCRLF)(*LIMIT_MATCH=%1)").arg(steps) + pattern, options);
  }

  void Prepare(qsizetype length) {
    const auto units = static_cast<unsigned>(std::clamp<qsizetype>(length, 1, kMostStepsUnwatched));
    const unsigned steps = std::bit_floor(std::min(kMostStepsUnwatched / units, kMostSteps));
    if (std::exchange(quickSteps, steps) != steps) quick = Limited(steps);
  }

  /// Gives where the search goes on.
  qsizetype HandOver(const Units& units, const QRegularExpressionMatch& match, const Take& take) {
    TextMatch found{units.SpanOf(match, 0), {}};
    for (int group = 1; group <= thorough.captureCount(); ++group) {
      found.groups.push_back(units.SpanOf(match, group));
    }
    take(found);
    return match.capturedEnd() + (match.capturedLength() == 0 ? 1 : 0);
  }

  bool GoOn(const Units& units, qsizetype next, const Take& take) {
    const QString& text = units.Text();
    while (next <= text.size()) {
      if (IsLate()) return false;
      const bool isWithin = next < text.size() && text[next].isLowSurrogate();
      const QRegularExpressionMatch match =
          isWithin ? QRegularExpressionMatch()
                   : thorough.match(text, next, QRegularExpression::NormalMatch,
                                    kText | QRegularExpression::AnchorAtOffsetMatchOption);
      if (!isWithin && !match.isValid()) return false;
      next = match.hasMatch() ? HandOver(units, match, take) : next + 1;
    }
    return true;
  }

  bool IsLate() const { return used.elapsed() > kMostMilliseconds; }

  QString pattern;
  Options options;
  unsigned quickSteps = kMostSteps;
  QRegularExpression quick;
  QRegularExpression thorough;
  QElapsedTimer used;
};

}  // namespace

std::unique_ptr<TextMatcher> QtTextSearch::Compile(const TextPattern& pattern, std::size_t& place,
                                                   std::string& reason) {
  const QString typed = FromUtf8(pattern.text);
  const QString body = pattern.isExpression ? typed : QRegularExpression::escape(typed);
  // An error is told where it stands in what was typed.
  const QRegularExpression bare(body, OptionsOf(pattern));
  auto matcher = std::make_unique<ExpressionMatcher>(
      pattern.wholeWords ? "(?<!\\w)(?:" + body + ")(?!\\w)" : body, OptionsOf(pattern));
  const QRegularExpression& wrong = bare.isValid() ? matcher->Expression() : bare;
  if (wrong.isValid()) return matcher;
  const qsizetype units = std::min(wrong.patternErrorOffset(), typed.size());
  place = static_cast<std::size_t>(typed.left(units).toUcs4().size());
  reason = ToBytes(wrong.errorString());
  return nullptr;
}

}  // namespace morvane
