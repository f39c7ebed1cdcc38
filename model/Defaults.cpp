#include "model/Defaults.h"

#include <variant>
#include <vector>

#include "platform/Profile.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr const char* kSection = "Settings";

/// A number as it is, and one that is a colour.
struct Number {
  std::int32_t Defaults::*field;
  std::int32_t fallback;
};
struct Colour {
  COLORREF Defaults::*field;
  COLORREF fallback;
};
/// A text of one line, and one of several, which is empty at first.
struct Line {
  std::string Defaults::*field;
  const char* fallback;  ///< null: the name of a new state in the user's language
};
struct Lines {
  std::string Defaults::*field;
};

struct Setting {
  const char* key;
  std::variant<Number, Colour, Line, Lines> value;
};

const Setting kSettings[] = {
    {"StateName", Line{&Defaults::StateName, nullptr}},
    {"StateAnchor", Number{&Defaults::StateAnchor, 1}},
    {"Entry", Lines{&Defaults::Entry}},
    {"Exit", Lines{&Defaults::Exit}},
    {"StateBgTransparent", Number{&Defaults::StateBgTransparent, 0}},
    {"MesgAnchor", Number{&Defaults::MesgAnchor, 1}},
    {"MesgBorder", Number{&Defaults::MesgBorder, 1}},
    {"MesgBgTransparent", Number{&Defaults::MesgBgTransparent, 1}},
    {"ShowGrid", Number{&Defaults::ShowGrid, 1}},
    {"StateBgColor", Colour{&Defaults::StateBgColor, 0xBFFFFF}},
    {"MesgBorderColor", Colour{&Defaults::MesgBorderColor, 0x00FF00}},
    {"MesgBgColor", Colour{&Defaults::MesgBgColor, 0xFFFFFF}},
    {"LineColor", Number{&Defaults::LineColor, 0}},
    {"LineStyle", Number{&Defaults::LineStyle, 0}},
    {"FontName", Line{&Defaults::FontName, "Verdana"}},
    {"FontSize", Number{&Defaults::FontSize, 80}},
    {"FontColor", Colour{&Defaults::FontColor, 0x000080}},
};

/// Reads one setting into the store.
struct Reader {
  Defaults& defaults;
  const char* key;

  void operator()(const Number& number) const {
    defaults.*number.field = Service<Profile>::Get().GetInt(kSection, key, number.fallback);
  }
  void operator()(const Colour& colour) const {
    constexpr COLORREF colourBits = 0xFFFFFF;
    const auto fallback = static_cast<std::int32_t>(colour.fallback);
    const std::int32_t stored = Service<Profile>::Get().GetInt(kSection, key, fallback);
    defaults.*colour.field = static_cast<COLORREF>(stored) & colourBits;
  }
  /// What follows a line break in a damaged profile is dropped.
  void operator()(const Line& line) const {
    const std::string fallback =
        line.fallback != nullptr ? line.fallback : LoadText(IDS_STATE_NAME);
    const std::string text = Service<Profile>::Get().GetString(kSection, key, fallback);
    defaults.*line.field = text.substr(0, text.find_first_of("\r\n"));
  }
  /// As the model keeps such a text, every line break is CR LF.
  void operator()(const Lines& lines) const {
    std::string& text = defaults.*lines.field;
    text.clear();
    for (const char c : Service<Profile>::Get().GetString(kSection, key, "")) {
      if (c == '\r') continue;
      if (c == '\n') text += '\r';
      text += c;
    }
  }
};

std::string TextOf(const std::string& text) { return text; }
template <class Value>
std::string TextOf(Value number) {
  return std::to_string(number);
}

}  // namespace

Defaults& Defaults::Instance() {
  static Defaults instance = [] {
    Defaults loaded;
    loaded.Load();
    return loaded;
  }();
  return instance;
}

void Defaults::Load() {
  for (const Setting& setting : kSettings) std::visit(Reader{*this, setting.key}, setting.value);
}

void Defaults::Save() const {
  std::vector<Profile::Setting> values;
  for (const Setting& setting : kSettings) {
    std::visit(
        [&](const auto& value) {
          values.push_back({setting.key, TextOf(this->*value.field)});
        },
        setting.value);
  }
  Service<Profile>::Get().Write(kSection, values);
}

}  // namespace morvane
