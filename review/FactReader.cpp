#include "review/FactReader.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <string_view>

#include "connectors/ChainRecord.h"
#include "drawing/TextCodec.h"
#include "model/AnchorKey.h"
#include "model/ModelStream.h"
#include "persistence/ModelFile.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Aspect = Fact::Aspect;

std::string PointText(POINT p) { return std::to_string(p.x) + ',' + std::to_string(p.y); }

std::string ColourText(std::int64_t stored) {
  const auto colour = static_cast<COLORREF>(stored);
  std::array<char, sizeof "#rrggbb"> text{};
  std::snprintf(text.data(), text.size(), "#%02x%02x%02x", GetRValue(colour), GetGValue(colour),
                GetBValue(colour));
  // A chart can store more than a colour has.
  return stored <= 0xFFFFFF ? text.data() : std::to_string(stored);
}

/// A flag that isn't set is nothing to tell. A chart can store another number than 0 and 1.
Fact Flag(Aspect aspect, const char* label, std::int64_t stored) {
  if (stored == 0) return {aspect, label, {}, {}};
  return {aspect, label, std::to_string(stored), stored == 1 ? Translate("yes") : std::string()};
}

std::string AnchorText(std::int64_t side, std::int64_t index) {
  constexpr std::array names{"top", "right", "bottom", "left"};
  if (side == AnchorKey::kUnset && index == AnchorKey::kUnset) return "free";
  const bool known = side >= SIDE_TOP && side <= SIDE_LEFT;
  return (known ? names[static_cast<std::size_t>(side - SIDE_TOP)] : std::to_string(side)) + ' ' +
         std::to_string(index);
}

}  // namespace

bool FactReader::Read(DescribedObject& object, std::int32_t parentId) {
  struct Row {
    std::string_view keyword;
    void (FactReader::*read)(DescribedObject&);
  };
  constexpr std::array rows{
      Row{"GenericState", &FactReader::ReadState}, Row{"InitialState", &FactReader::ReadMark},
      Row{"FinalState", &FactReader::ReadMark},    Row{"Transition", &FactReader::ReadTransition},
      Row{"Mesg", &FactReader::ReadMessage},       Row{"Note", &FactReader::ReadNote},
      Row{"Line", &FactReader::ReadLine}};
  const auto* row = std::ranges::find(rows, std::string_view(object.keyword), &Row::keyword);
  if (row == rows.end()) return false;
  parent = parentId;
  Line();
  Line();
  (this->*row->read)(object);
  return true;
}

std::int64_t FactReader::Number() {
  std::int64_t number = 0;
  in >> number;
  return number;
}

POINT FactReader::ReadPoint() {
  POINT p;
  p.x = static_cast<std::int32_t>(Number());
  p.y = static_cast<std::int32_t>(Number());
  return p;
}

std::string FactReader::Line() { return ToUtf8(morvane::ReadLine(in)); }

std::string FactReader::Block(const char* beginTag, const char* endTag) {
  std::string text;
  ReadTextBlock(in, text, beginTag, endTag);
  return ModelFile::FromDisk(ToUtf8(text));
}

Fact FactReader::Reference(const char* label, std::int64_t id) const {
  if (id == 0) return {Aspect::Meaning, label, {}, {}};
  return {Aspect::Meaning, label, std::to_string(id), nameOf(static_cast<std::int32_t>(id))};
}

void FactReader::ReadBox(DescribedObject& object) {
  const POINT from = ReadPoint();
  const POINT to = ReadPoint();
  object.outline = {from, to};
  object.facts.push_back({Aspect::Place,
                          "place",
                          PointText(from) + ", " + std::to_string(std::int64_t{to.x} - from.x) +
                              " x " + std::to_string(std::int64_t{to.y} - from.y),
                          {}});
  object.facts.push_back(Flag(Aspect::Look, "anchors shown", Number()));
  Line();
}

void FactReader::ReadState(DescribedObject& object) {
  ReadBox(object);
  object.holdsContents = true;
  object.facts.push_back({Aspect::Name, "name", Line(), {}});
  object.facts.push_back(Reference("inside", parent));
  object.facts.push_back(Flag(Aspect::Meaning, "history", Number()));
  object.facts.push_back({Aspect::Look, "fill", ColourText(Number()), {}});
  object.facts.push_back(Flag(Aspect::Look, "transparent", Number()));
  Line();
  for (const char* label : {"entry", "exit"}) {
    object.facts.push_back({Aspect::Text, label, Block("TEXTBEGIN", "TEXTEND"), {}});
  }
}

/// The name of a mark shows nowhere.
void FactReader::ReadMark(DescribedObject& object) {
  ReadBox(object);
  std::string stored = Line();
  if (stored == object.keyword) stored.clear();
  object.facts.push_back({Aspect::Look, "stored name", std::move(stored), {}});
  object.facts.push_back(Reference("inside", parent));
}

void FactReader::ReadEnds(DescribedObject& object) {
  object.facts.push_back(Reference("from", Number()));
  object.facts.push_back(Reference("to", Number()));
  Line();
  std::string anchors;
  for (int end = 0; end < 2; ++end) {
    const std::int64_t side = Number();
    anchors += (end == 0 ? "" : ", ") + AnchorText(side, Number());
  }
  Line();
  object.facts.push_back({Aspect::Route, "anchors", std::move(anchors), {}});
}

/// Gives what is compared of it. A reader is shown where the route bends.
std::string FactReader::ReadRoute(DescribedObject& object) {
  std::string stored;
  std::string shown;
  for (std::int64_t kind = LINK_HEAD; kind != LINK_TAIL && in;) {
    kind = Number();
    const POINT from = ReadPoint();
    const POINT to = ReadPoint();
    Line();
    object.outline.insert(object.outline.end(), {from, to});
    stored += std::to_string(kind) + ' ' + PointText(from) + ' ' + PointText(to) + '\n';
    shown += PointText(from) + ' ';
    if (kind == LINK_TAIL) shown += PointText(to);
  }
  object.facts.push_back({Aspect::Route, "route", {}, std::move(shown)});
  return stored;
}

void FactReader::ReadTransition(DescribedObject& object) {
  const POINT from = ReadPoint();
  const POINT to = ReadPoint();
  Line();
  object.outline = {from, to};
  ReadEnds(object);
  const std::string links = ReadRoute(object);
  object.facts.back().value = PointText(from) + ' ' + PointText(to) + '\n' + links;
}

void FactReader::ReadBoxLook(DescribedObject& object) {
  object.facts.push_back(Flag(Aspect::Look, "transparent", Number()));
  object.facts.push_back(Flag(Aspect::Look, "no border", Number()));
  object.facts.push_back({Aspect::Look, "fill", ColourText(Number()), {}});
  object.facts.push_back({Aspect::Look, "border colour", ColourText(Number()), {}});
  Line();
}

void FactReader::ReadMessage(DescribedObject& object) {
  ReadBox(object);
  ReadBoxLook(object);
  object.facts.push_back(Reference("of", Number()));
  Line();
  object.facts.push_back({Aspect::Text, "event", Line(), {}});
  object.facts.push_back({Aspect::Text, "guard", Line(), {}});
  object.facts.push_back({Aspect::Text, "effect", Block("TEXTBEGIN", "TEXTEND"), {}});
}

void FactReader::ReadNote(DescribedObject& object) {
  ReadBox(object);
  ReadBoxLook(object);
  object.facts.push_back({Aspect::Text, "text", Block("TEXTBEGIN", "TEXTEND"), {}});
}

void FactReader::ReadLine(DescribedObject& object) {
  const POINT from = ReadPoint();
  const POINT to = ReadPoint();
  Line();
  object.outline = {from, to};
  ReadEnds(object);
  object.facts.push_back({Aspect::Route, "route", PointText(from) + ' ' + PointText(to), {}});
  object.facts.push_back({Aspect::Look, "line colour", std::to_string(Number()), {}});
  object.facts.push_back({Aspect::Look, "line style", std::to_string(Number()), {}});
  Line();
}

}  // namespace morvane
