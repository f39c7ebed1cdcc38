#include "dialogs/SearchPlace.h"

#include <utility>

#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "drawing/TextCodec.h"
#include "model/Editors.h"
#include "model/ModelMgr.h"
#include "model/ModelProperties.h"
#include "model/SearchedChart.h"
#include "platform/Service.h"
#include "platform/Wording.h"
#include "resources/Texts.h"
#include "states/EndableState.h"
#include "states/GenericState.h"
#include "states/StartableState.h"

namespace morvane {

namespace {

std::string NameOf(const State* end) {
  return end != nullptr ? ToUtf8(end->GetName()) : LoadText(IDS_UNDEFINED);
}

std::string RouteOf(const Transition* transition) {
  const State* source = transition != nullptr ? transition->GetSource() : nullptr;
  const State* target = transition != nullptr ? transition->GetTarget() : nullptr;
  return NameOf(source) + " -> " + NameOf(target);
}

/// In UTF-8, since it is joined with other texts.
std::string FirstLine(const std::string& stored) {
  const std::string text = ToUtf8(stored);
  return text.substr(0, text.find_first_of("\r\n"));
}

/// The texts of an object that an editor of their own is for.
class HandlerPlace : public SearchPlace {
 public:
  HandlerPlace(Shape& object, TextHandler& handler) : object(object), handler(handler) {}
  std::vector<std::string*> Texts() override { return handler.Texts(); }
  void OnReplaced() override { object.OnTextsChanged(); }
  bool Edit() override {
    if (!handler.EditText(Detail())) return false;
    object.OnTextsChanged();
    return true;
  }
  Shape* Object() const override { return &object; }

 private:
  Shape& object;
  TextHandler& handler;
};

class StateTexts : public HandlerPlace {
 public:
  explicit StateTexts(GenericState& state)
      : HandlerPlace(state, state.GetEntryExit()), state(state) {}
  std::string Kind() const override { return LoadText(IDS_FIND_STATE); }
  std::string Detail() const override { return state.GetName(); }

 private:
  const GenericState& state;
};

class MesgTexts : public HandlerPlace {
 public:
  explicit MesgTexts(Mesg& mesg) : HandlerPlace(mesg, mesg.GetText()), mesg(mesg) {}
  std::string Kind() const override { return LoadText(IDS_FIND_MESSAGE); }
  std::string Detail() const override { return RouteOf(mesg.GetTransition()); }

 private:
  const Mesg& mesg;
};

class NoteText : public HandlerPlace {
 public:
  explicit NoteText(Note& note) : HandlerPlace(note, note.GetText()), text(note.GetText()) {}
  std::string Kind() const override { return LoadText(IDS_NOTE); }
  std::string Detail() const override { return FirstLine(text.GetText()); }

 private:
  const TextBox& text;
};

class StateName : public SearchPlace {
 public:
  explicit StateName(GenericState& state) : state(state) {}
  std::string Kind() const override { return LoadText(IDS_FIND_NAME); }
  std::string Detail() const override { return state.GetName(); }
  std::vector<std::string*> Texts() override { return {&state.NameText()}; }
  void OnReplaced() override { state.OnRenamed(); }
  bool Edit() override { return state.EditProperties(); }
  Shape* Object() const override { return &state; }

 private:
  GenericState& state;
};

/// A text of the chart itself, and what the dialogs that edit it call it.
struct Property {
  std::string ModelProperties::*field;
  const char* page;  ///< of the properties for the generators; null for those of the model
  const char* label;
};

using P = ModelProperties;

constexpr Property kProperties[] = {
    {&P::ModelName, nullptr, "&Model Name :"},
    {&P::Author, nullptr, "&Author :"},
    {&P::Description, nullptr, "&Description :"},
    {&P::CppClassName, "&C++", "Class Na&me :"},
    {&P::CppIncludeFile, "&C++", "&Include File :"},
    {&P::CppNamespace, "&C++", "Name&Space :"},
    {&P::CppIncludes, "&C++", "Include &Files"},
    {&P::CppDeclarations, "&C++", "Additional &Declarations :"},
    {&P::CIncludes, "&ANSI C", "Include &Files :"},
    {&P::CDeclarations, "&ANSI C", "Additional &Declarations :"},
    {&P::JavaClassName, "&Java", "Class Na&me :"},
    {&P::JavaPackage, "&Java", "&Package :"},
    {&P::JavaDeclarations, "&Java", "Additional &Declarations :"},
    {&P::CSharpClassName, "C# (.&Net)", "Class Na&me :"},
    {&P::CSharpPackage, "C# (.&Net)", "&Package :"},
    {&P::CSharpDeclarations, "C# (.&Net)", "Additional &Declarations :"},
};

class PropertyText : public SearchPlace {
 public:
  PropertyText(const SearchedChart& chart, const Property& property)
      : chart(chart), property(property) {}
  std::string Kind() const override { return LoadText(IDS_FIND_PROPERTY); }
  std::string Detail() const override {
    const std::string label = PlainLabel(Translate(property.label)) + ' ' + FirstLine(Text());
    return property.page != nullptr ? PlainLabel(Translate(property.page)) + ", " + label : label;
  }
  std::vector<std::string*> Texts() override { return {&Text()}; }
  void OnReplaced() override {
    if (Text().empty()) Text() = ModelProperties::DefaultOf(property.field);
  }
  bool Edit() override {
    if (property.page == nullptr) {
      return Service<Editors>::Get().EditModelProperties(chart.properties);
    }
    return chart.editCodeProperties && chart.editCodeProperties();
  }

 private:
  std::string& Text() const { return chart.properties.*property.field; }

  const SearchedChart& chart;
  const Property& property;
};

}  // namespace

std::vector<std::unique_ptr<SearchPlace>> SearchPlace::Of(const SearchedChart& chart,
                                                          const LookIn& lookIn) {
  std::vector<std::unique_ptr<SearchPlace>> places;
  if (lookIn.properties != 0) {
    for (const Property& property : kProperties) {
      places.push_back(std::make_unique<PropertyText>(chart, property));
    }
  }
  for (Shape* object : chart.model.Objects()) {
    if (auto* state = dynamic_cast<GenericState*>(object)) {
      if (lookIn.names != 0) places.push_back(std::make_unique<StateName>(*state));
      if (lookIn.states != 0) places.push_back(std::make_unique<StateTexts>(*state));
    } else if (auto* mesg = dynamic_cast<Mesg*>(object)) {
      if (lookIn.messages != 0) places.push_back(std::make_unique<MesgTexts>(*mesg));
    } else if (auto* note = dynamic_cast<Note*>(object)) {
      if (lookIn.notes != 0) places.push_back(std::make_unique<NoteText>(*note));
    }
  }
  return places;
}

}  // namespace morvane
