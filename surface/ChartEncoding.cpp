#include "surface/ChartEncoding.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "drawing/TextCodec.h"
#include "model/ModelMgr.h"
#include "model/ModelProperties.h"
#include "states/GenericState.h"

namespace morvane {

namespace {

bool IsAscii(const std::string& text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::vector<std::string*> TextsOf(Shape& object) {
  if (auto* mesg = dynamic_cast<Mesg*>(&object)) return mesg->GetText().Texts();
  if (auto* note = dynamic_cast<Note*>(&object)) return note->GetText().Texts();
  std::vector<std::string*> texts;
  if (auto* state = dynamic_cast<GenericState*>(&object)) texts = state->GetEntryExit().Texts();
  if (auto* state = dynamic_cast<State*>(&object)) texts.push_back(&state->NameText());
  return texts;
}

}  // namespace

ChartEncoding::ChartEncoding(const ModelMgr& model, ModelProperties& properties)
    : texts(properties.Texts()) {
  for (Shape* object : model.Objects()) {
    for (std::string* text : TextsOf(*object)) texts.push_back(text);
  }
  // The others are the same in either encoding.
  std::erase_if(texts, [](const std::string* text) { return IsAscii(*text); });
}

TextEncoding ChartEncoding::Found() const {
  const auto isUtf8 = [](const std::string* text) { return IsValidUtf8(*text); };
  if (std::ranges::all_of(texts, isUtf8)) return TextEncoding::Utf8;
  return std::ranges::any_of(texts, isUtf8) ? TextEncoding::Mixed : TextEncoding::Windows1252;
}

EncodingChange ChartEncoding::Unify(TextEncoding former) {
  if (former == TextEncoding::Utf8) {
    ConvertToUtf8();
    return EncodingChange::None;
  }
  std::vector<std::pair<std::string*, std::string>> changes;
  for (std::string* text : texts) {
    if (!IsValidUtf8(*text)) continue;
    std::optional<std::string> bytes = ToWindows1252(*text);
    if (!bytes) {
      ConvertToUtf8();
      return EncodingChange::MadeUtf8;
    }
    changes.emplace_back(text, std::move(*bytes));
  }
  if (changes.empty()) return EncodingChange::None;
  for (auto& [text, bytes] : changes) *text = std::move(bytes);
  return EncodingChange::KeptWindows1252;
}

void ChartEncoding::ConvertToUtf8() {
  for (std::string* text : texts) *text = ToUtf8(*text);
}

}  // namespace morvane
