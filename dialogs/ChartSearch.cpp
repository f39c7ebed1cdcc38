#include "dialogs/ChartSearch.h"

#include <utility>

#include "dialogs/SearchPlace.h"
#include "drawing/TextCodec.h"
#include "resources/Texts.h"

namespace morvane {

bool ChartSearch::Start(const TextPattern& pattern, std::string& message) {
  std::size_t place = 0;
  std::string reason;
  matcher = Service<TextSearch>::Get().Compile(pattern, place, reason);
  isExpression = pattern.isExpression;
  gaveUp = false;
  if (matcher != nullptr) return true;
  const std::string where = std::to_string(place + 1) + ": " + reason;
  message = pattern.isExpression ? WithName(LoadText(IDS_BAD_EXPRESSION), where) : reason;
  return false;
}

std::size_t ChartSearch::CountIn(SearchPlace& place) {
  std::size_t count = 0;
  for (const std::string* text : place.Texts()) {
    if (text->empty() || gaveUp) continue;
    gaveUp = !matcher->ForEach(ToUtf8(*text), [&count](const TextMatch&) { ++count; });
  }
  return count;
}

std::size_t ChartSearch::Replace(const Places& places, const std::string& replacement) {
  std::size_t count = 0;
  std::vector<Change> changes;
  for (SearchPlace* place : places) count += ReplaceIn(*place, replacement, changes);
  if (gaveUp) return 0;
  for (Change& change : changes) *change.stored = std::move(change.text);
  SearchPlace* told = nullptr;
  for (const Change& change : changes) {
    if (change.place != std::exchange(told, change.place)) change.place->OnReplaced();
  }
  return count;
}

std::size_t ChartSearch::ReplaceIn(SearchPlace& place, const std::string& replacement,
                                   std::vector<Change>& changes) {
  std::size_t count = 0;
  for (std::string* stored : place.Texts()) {
    if (stored->empty() || gaveUp) continue;
    const std::string text = ToUtf8(*stored);
    std::string replaced;
    std::size_t done = 0;
    const std::size_t before = count;
    gaveUp = !matcher->ForEach(text, [&](const TextMatch& match) {
      if (match.whole.begin < done) return;
      replaced.append(text, done, match.whole.begin - done);
      AppendReplacement(replaced, replacement, text, match);
      done = match.whole.end;
      ++count;
    });
    if (count == before) continue;
    replaced.append(text, done);
    changes.push_back({&place, stored, EncodedLike(*stored, std::move(replaced))});
  }
  return count;
}

void ChartSearch::AppendReplacement(std::string& out, const std::string& replacement,
                                    const std::string& text, const TextMatch& match) const {
  if (!isExpression) {
    out += replacement;
    return;
  }
  for (std::size_t i = 0; i < replacement.size(); ++i) {
    const char next = i + 1 < replacement.size() ? replacement[i + 1] : '\0';
    const bool isGroup = next >= '0' && next <= '9';
    if (replacement[i] != '\\' || (!isGroup && next != '\\')) {
      out += replacement[i];
      continue;
    }
    ++i;
    const auto group = static_cast<std::size_t>(next - '0');
    if (!isGroup) {
      out += next;
    } else if (group <= match.groups.size()) {
      const auto [begin, end] = group == 0 ? match.whole : match.groups[group - 1];
      out.append(text, begin, end - begin);
    }
  }
}

}  // namespace morvane
