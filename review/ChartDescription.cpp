#include "review/ChartDescription.h"

#include <algorithm>
#include <exception>
#include <sstream>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "connectors/ChartFactory.h"
#include "drawing/TextBreaks.h"
#include "drawing/TextCodec.h"
#include "machine/DrawnChart.h"
#include "machine/Nesting.h"
#include "machine/ProblemList.h"
#include "model/ModelData.h"
#include "model/ModelProperties.h"
#include "model/ModelStream.h"
#include "model/Shape.h"
#include "persistence/ModelFile.h"
#include "persistence/ModelHeader.h"
#include "resources/Texts.h"
#include "review/FactReader.h"
#include "review/LineDiff.h"
#include "states/GenericState.h"
#include "states/State.h"

namespace morvane {

namespace {

/// No more than this of a text stands behind a name.
constexpr std::size_t kMaxDetail = 60;

struct PropertyRow {
  const char* label;
  std::string ModelProperties::*text;
};

constexpr PropertyRow kProperties[] = {
    {"Model name", &ModelProperties::ModelName},
    {"Author", &ModelProperties::Author},
    {"Description", &ModelProperties::Description},
    {"C++ class", &ModelProperties::CppClassName},
    {"C++ include file", &ModelProperties::CppIncludeFile},
    {"C++ namespace", &ModelProperties::CppNamespace},
    {"C++ includes", &ModelProperties::CppIncludes},
    {"C++ declarations", &ModelProperties::CppDeclarations},
    {"C includes", &ModelProperties::CIncludes},
    {"C declarations", &ModelProperties::CDeclarations},
    {"Java class", &ModelProperties::JavaClassName},
    {"Java package", &ModelProperties::JavaPackage},
    {"Java declarations", &ModelProperties::JavaDeclarations},
    {"C# class", &ModelProperties::CSharpClassName},
    {"C# package", &ModelProperties::CSharpPackage},
    {"C# declarations", &ModelProperties::CSharpDeclarations},
};

/// One pass over a text. The shapes read it; what they hold is asked of the records that they
/// write, which have the form of the present version whatever the text's is.
class Describing {
 public:
  explicit Describing(ChartDescription& description) : description(description) {}
  /// Throws a text for the user.
  void Read(const std::string& text);
  void TakeProperties(const ModelProperties& read);

 private:
  void TakeName(const Shape& shape);
  void FindParents();
  void TakeFacts();
  void AddDetails();
  const DescribedObject* Find(std::int64_t id) const;
  std::string NameOf(std::int32_t id) const;
  std::string ShortNameOf(const std::string& id) const;

  ChartDescription& description;
  ModelData data{ChartFactory()};
  std::vector<DrawnState> states;
  std::vector<std::size_t> statePositions;
  std::vector<std::int32_t> parents;  ///< an id for each object
  std::vector<std::string> titles;    ///< of each object, in UTF-8
  std::unordered_map<std::int64_t, std::size_t> positions;
};

void Describing::Read(const std::string& text) {
  std::istringstream in(text);
  ModelStream stream(in);
  ModelHeader::Read(stream);
  std::int16_t zoom = 0;
  stream >> zoom;
  SkipLine(in);
  ModelData::SkipToRecords(stream);
  data.Read(stream);
  ModelProperties properties;
  properties.Read(stream);
  for (const Shape* shape : data.Objects()) TakeName(*shape);
  FindParents();
  TakeFacts();
  AddDetails();
  std::ranges::stable_sort(description.objects, {}, [](const DescribedObject& object) {
    return std::tie(object.id, object.keyword);
  });
  TakeProperties(properties);
}

void Describing::TakeName(const Shape& shape) {
  DrawnState drawn;
  drawn.id = shape.GetId();
  drawn.keyword = shape.GetTypeName();
  if (const auto* state = dynamic_cast<const State*>(&shape)) {
    const bool isMark = dynamic_cast<const GenericState*>(state) == nullptr;
    drawn.kind = isMark ? DrawnObject::Kind::InitialMark : DrawnObject::Kind::State;
    if (!isMark) drawn.title = ToUtf8(state->GetName());
    drawn.rect = state->GetBounds();
    statePositions.push_back(description.objects.size());
    states.push_back(drawn);
  }
  DescribedObject object;
  object.id = drawn.id;
  object.keyword = drawn.keyword;
  object.position = description.objects.size();
  object.name = LineDiff::Readable(drawn.Name());
  titles.push_back(drawn.title);
  positions[object.id] = object.position;
  description.objects.push_back(std::move(object));
}

void Describing::FindParents() {
  parents.resize(description.objects.size());
  // What it finds wrong is not a matter of what there is.
  ProblemList problems;
  const std::vector<int> found = Nesting(states, problems).Parents();
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (found[i] == Nesting::kOutermost) continue;
    parents[statePositions[i]] = states[static_cast<std::size_t>(found[i])].id;
  }
}

void Describing::TakeFacts() {
  std::ostringstream out;
  ModelStream written(out);
  std::vector<std::size_t> starts;
  for (const Shape* shape : data.Objects()) {
    starts.push_back(static_cast<std::size_t>(out.tellp()));
    written << shape;
  }
  const std::string records = std::move(out).str();
  starts.push_back(records.size());
  std::istringstream in(records);
  FactReader reader(in, [this](std::int32_t id) { return NameOf(id); });
  for (DescribedObject& object : description.objects) {
    const std::size_t start = starts[object.position];
    in.clear();
    in.seekg(static_cast<std::streamoff>(start));
    if (reader.Read(object, parents[object.position])) continue;
    const std::size_t end = starts[object.position + 1];
    object.facts.push_back({Fact::Aspect::Text, "record", records.substr(start, end - start), {}});
  }
}

const DescribedObject* Describing::Find(std::int64_t id) const {
  const auto found = positions.find(id);
  return found != positions.end() ? &description.objects[found->second] : nullptr;
}

std::string Describing::NameOf(std::int32_t id) const {
  const DescribedObject* object = Find(id);
  return object != nullptr ? object->name : std::to_string(id);
}

/// For a few words behind a name: the title of a state, else the name.
std::string Describing::ShortNameOf(const std::string& id) const {
  const DescribedObject* object = id.empty() ? nullptr : Find(std::stoll(id));
  if (object == nullptr) return id.empty() ? "?" : id;
  const std::string& title = titles[object->position];
  return title.empty() ? object->name : LineDiff::Readable(title);
}

/// A transition is known by its ends, a message by its event, a note by its first line.
void Describing::AddDetails() {
  const auto valueOf = [](const DescribedObject& object, std::string_view label) {
    const auto fact = std::ranges::find(object.facts, label, &Fact::label);
    return fact != object.facts.end() ? fact->value : std::string();
  };
  for (DescribedObject& object : description.objects) {
    if (object.keyword == "Transition") {
      object.detail =
          ShortNameOf(valueOf(object, "from")) + " -> " + ShortNameOf(valueOf(object, "to"));
    } else if (object.keyword == "Mesg") {
      object.detail = LineDiff::Readable(valueOf(object, "event"));
    } else if (object.keyword == "Note") {
      const std::string text = valueOf(object, "text");
      object.detail = LineDiff::Readable(text.substr(0, text.find('\n')));
    }
    object.detail.resize(LetterPrefix(object.detail, kMaxDetail).size());
  }
}

void Describing::TakeProperties(const ModelProperties& read) {
  for (const PropertyRow& row : kProperties) {
    description.properties.push_back(
        {Fact::Aspect::Text, row.label, ModelFile::FromDisk(ToUtf8(read.*row.text)), {}});
  }
}

}  // namespace

std::string ChartDescription::Read(const std::string& text, ChartDescription& description) {
  try {
    description = {};
    Describing describing(description);
    if (text.empty()) {
      describing.TakeProperties(ModelProperties());
    } else {
      describing.Read(text);
    }
    return {};
  } catch (const std::string& reason) {
    return reason;
  } catch (const std::exception&) {
    return LoadText(IDS_UNKNOWN_ERROR);
  }
}

std::string ChartDescription::ReadText(const std::string& path, std::string& text) {
  text.clear();
  return path == "/dev/null" ? std::string() : ModelFile::ReadText(path, text);
}

std::string ChartDescription::Load(const std::string& path, ChartDescription& description) {
  std::string text;
  std::string reason = ReadText(path, text);
  return reason.empty() ? Read(text, description) : reason;
}

}  // namespace morvane
