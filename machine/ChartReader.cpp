#include "machine/ChartReader.h"

#include <algorithm>
#include <sstream>

#include "connectors/ChartFactory.h"
#include "connectors/Mesg.h"
#include "connectors/Transition.h"
#include "drawing/TextCodec.h"
#include "machine/TextLines.h"
#include "model/ModelData.h"
#include "model/ModelStream.h"
#include "persistence/ModelFile.h"
#include "persistence/ModelHeader.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"

namespace morvane {

namespace {

constexpr float kFirstVersionWithEvent = 3.0F;
constexpr float kFirstVersionWithCSharp = 3.1F;

/// Lines of a record, counted from its first one.
constexpr int kEntryLine = 8;
constexpr int kEventLine = 6;
constexpr int kGuardLine = 7;
/// From the length of a block to its first line of text.
constexpr int kBlockHead = 2;

/// One pass over a text. What the readers of the shapes leave open, the lines, it finds by the
/// fixed order of the format.
class Reading {
 public:
  explicit Reading(const std::string& text) : lines(text), in(text), stream(in) {}

  DrawnChart Run();

 private:
  std::size_t Position();
  void TakeShape(const Shape& shape, int line);
  DrawnState StateOf(const State& shape) const;
  DrawnState GenericStateOf(const GenericState& shape, int line) const;
  DrawnMessage MessageOf(const Mesg& shape, int line) const;
  void ReadProperties();
  MachineText TakeBlock(const std::string& text, int& next, const char* endTag) const;

  TextLines lines;
  std::istringstream in;
  ModelStream stream;
  DrawnChart chart;
};

DrawnChart Reading::Run() {
  ModelHeader::Read(stream);
  std::int16_t zoom = 0;
  stream >> zoom;
  SkipLine(in);
  ModelData::SkipToRecords(stream);
  ModelData data(ChartFactory());
  std::vector<int> starts;
  data.Read(stream, [this, &starts](const Shape& /*shape*/) {
    starts.push_back(lines.NumberAt(Position() - 1));
  });
  for (std::size_t i = 0; i < starts.size(); ++i) TakeShape(*data.Objects()[i], starts[i]);
  ReadProperties();
  return std::move(chart);
}

/// Asks the buffer, since the stream would take the end of the text for a failure.
std::size_t Reading::Position() {
  return static_cast<std::size_t>(
      std::streamoff(in.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in)));
}

void Reading::TakeShape(const Shape& shape, int line) {
  const auto add = [&shape, line](auto& list, auto object, DrawnObject::Kind kind) {
    object.kind = kind;
    object.keyword = shape.GetTypeName();
    object.id = shape.GetId();
    object.line = line;
    list.push_back(std::move(object));
  };
  using Kind = DrawnObject::Kind;
  if (const auto* state = dynamic_cast<const GenericState*>(&shape)) {
    add(chart.states, GenericStateOf(*state, line), Kind::State);
  } else if (const auto* start = dynamic_cast<const InitialState*>(&shape)) {
    add(chart.states, StateOf(*start), Kind::InitialMark);
  } else if (const auto* end = dynamic_cast<const FinalState*>(&shape)) {
    add(chart.states, StateOf(*end), Kind::FinalMark);
  } else if (const auto* arrow = dynamic_cast<const Transition*>(&shape)) {
    DrawnTransition transition;
    transition.sourceId = arrow->GetReadSourceId();
    transition.targetId = arrow->GetReadTargetId();
    add(chart.transitions, std::move(transition), Kind::Transition);
  } else if (const auto* box = dynamic_cast<const Mesg*>(&shape)) {
    add(chart.messages, MessageOf(*box, line), Kind::Message);
  } else {
    add(chart.annotations, DrawnObject{}, Kind::Annotation);
  }
}

DrawnState Reading::StateOf(const State& shape) const {
  DrawnState state;
  state.rect = shape.GetBounds();
  return state;
}

DrawnState Reading::GenericStateOf(const GenericState& shape, int line) const {
  DrawnState state = StateOf(shape);
  state.title = ToUtf8(shape.GetName());
  state.history = shape.KeepsHistory();
  int next = line + kEntryLine - kBlockHead;
  state.entry = TakeBlock(shape.GetEntryExit().GetEntry(), next, "TEXTEND");
  state.exit = TakeBlock(shape.GetEntryExit().GetExit(), next, "TEXTEND");
  return state;
}

DrawnMessage Reading::MessageOf(const Mesg& shape, int line) const {
  const EventEditorBox& text = shape.GetText();
  const bool hasEvent = stream.fileVersion >= kFirstVersionWithEvent;
  DrawnMessage message;
  message.transitionId = shape.GetReadTransitionId();
  message.event = {ToUtf8(text.GetEvent()), line + (hasEvent ? kEventLine : 0)};
  message.guard = {ToUtf8(text.GetGuard()), line + (hasEvent ? kGuardLine : 0)};
  int next = line + (hasEvent ? kGuardLine + 1 : kEventLine);
  message.effect = TakeBlock(text.GetEffect(), next, "TEXTEND");
  return message;
}

/// The text of a block whose length stands in the line `next`, which moves behind the block.
MachineText Reading::TakeBlock(const std::string& text, int& next, const char* endTag) const {
  MachineText block{ModelFile::FromDisk(ToUtf8(text)), next + kBlockHead};
  // An empty text is an empty line or none at all.
  const bool hasLines = !text.empty() || lines.Line(block.line) != endTag;
  const auto breaks = std::ranges::count(block.text, '\n');
  next = block.line + (hasLines ? static_cast<int>(breaks) + 1 : 0) + 1;
  return block;
}

void Reading::ReadProperties() {
  int next = lines.NumberAt(Position());
  ModelProperties& read = chart.properties;
  Machine::PropertyLines& at = chart.propertyLines;
  read.Read(stream);
  for (std::string* text : read.Texts()) *text = ToUtf8(*text);
  const auto take = [this, &next](std::string& text, const char* endTag, int linesBefore) {
    next += linesBefore;
    MachineText block = TakeBlock(text, next, endTag);
    text = std::move(block.text);
    return block.line;
  };
  constexpr int nameToNamespace = 4;
  constexpr int classAndPackage = 2;
  at.cppIncludes = take(read.CppIncludes, "INCLUDE END", nameToNamespace);
  at.cppDeclarations = take(read.CppDeclarations, "DECL END", 0);
  take(read.Description, "DESC END", 1);
  if (stream.fileVersion < kFirstVersionWithEvent) return;
  at.cIncludes = take(read.CIncludes, "INCLUDE END", 0);
  at.cDeclarations = take(read.CDeclarations, "DECL END", 0);
  at.javaDeclarations = take(read.JavaDeclarations, "DECL END", classAndPackage);
  if (stream.fileVersion < kFirstVersionWithCSharp) return;
  at.csharpDeclarations = take(read.CSharpDeclarations, "DECL END", classAndPackage);
}

}  // namespace

DrawnChart ChartReader::Read(const std::string& text) { return Reading(text).Run(); }

}  // namespace morvane
