#include "tests/scenarios/Scenario.h"

#include "dialogs/CDefaultSettingDlg.h"
#include "model/Defaults.h"
#include "model/ModelClipboard.h"
#include "shell/FrameCommands.h"
#include "shell/MenuTable.h"
#include "surface/ViewGeometry.h"
#include "tests/support/Places.h"
#include "tests/support/Routes.h"
#include "tests/support/TreeRows.h"

namespace morvane {

namespace {

/// The command of an entry of the menu bar; 0 for none.
unsigned CommandOf(std::span<const MenuEntry> entries, const std::string& text) {
  unsigned id = 0;
  for (const MenuEntry& entry : entries) {
    if (id == 0 && entry.popup != nullptr) id = CommandOf(entry.popup->entries, text);
    if (id == 0 && entry.id != 0 && Plain(MenuText(entry)) == text) id = entry.id;
  }
  return id;
}
unsigned CommandOf(const std::string& text) {
  unsigned id = 0;
  for (const MenuPopup& popup : ChartMenu()) {
    if (id == 0) id = CommandOf(popup.entries, text);
  }
  return id;
}

/// The lines of a model text, each behind the record that it belongs to.
Lines TextLines(const std::string& text) {
  Lines lines;
  std::string record;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("BEGIN ") && line != "BEGIN DATA") record = line.substr(6) + ": ";
    if (line == "END DATA") record.clear();
    lines.push_back(record + Escaped(line));
    if (line == "END DATA") record = "model: ";
  }
  return lines;
}

std::string InOneLine(const Lines& lines) {
  std::string line;
  for (const std::string& part : lines) line += (line.empty() ? " " : ", ") + part;
  return line;
}

/// Changes of lines that stand behind one record, put into one line.
Lines Joined(const Lines& changes) {
  Lines joined;
  std::string last;
  for (const std::string& change : changes) {
    const std::size_t colon = change.find(": ");
    const std::string record = colon != std::string::npos ? change.substr(0, colon) : "";
    if (!record.empty() && record == last) {
      joined.back() += " |" + change.substr(colon + 1);
    } else {
      joined.push_back(change);
    }
    last = record;
  }
  return joined;
}

/// The records on a clipboard, by their first lines.
std::string Records(const FakeClipboard& clipboard) {
  std::string records;
  if (clipboard.items.empty()) return records;
  for (const std::string& line : TextLines(clipboard.items[0].bytes)) {
    if (const std::size_t at = line.find(": BEGIN "); at != std::string::npos) {
      records += " " + line.substr(0, at + 1);
    }
  }
  return records + (clipboard.items[0].bytes.ends_with('\0') ? "" : " without an end");
}

}  // namespace

Scenario::~Scenario() {
  manager.CloseAllDocuments();
  static_cast<MemoryProfile&>(settings) = {};
  Defaults::Instance().Load();
}

Scenario::Frame::Frame(CDocument& document)
    : document(document), chart(dynamic_cast<LayoutMgr&>(*document.GetView())) {
  chart.SetObjectTree(&tree);
}

void Scenario::CreateFrame(CDocument& document) {
  frames.push_back(std::make_unique<Frame>(document));
  ActivateFrame(document);
}

void Scenario::ActivateFrame(CDocument& document) {
  const auto isIts = [&](const auto& frame) { return &frame->document == &document; };
  std::stable_partition(frames.begin(), frames.end(), std::not_fn(isIts));
  chart = &frames.back()->chart;
}

void Scenario::CloseFrame(CDocument& document) {
  std::erase_if(frames, [&](const auto& frame) { return &frame->document == &document; });
  chart = frames.empty() ? nullptr : &frames.back()->chart;
}

const std::vector<std::string>& Scenario::RecentPaths() const {
  manager.Recent().Load();
  return manager.Recent().Paths();
}

CDocument* Scenario::ActiveDocument() const {
  return frames.empty() ? nullptr : &frames.back()->document;
}

void Scenario::CloseActive() {
  if (chart->OnClose()) manager.CloseDocument(frames.back()->document);
}

void Scenario::Settings::Write(const std::string& section, const std::vector<Setting>& values) {
  for (const auto& [key, value] : values) {
    if (section == "Settings") user.Note("setting " + key + " = " + Escaped(value));
  }
  MemoryProfile::Write(section, values);
}

std::string Scenario::Play() {
  while (const auto step = user.Next()) {
    Do(*step);
    NoteChanges();
  }
  return user.Transcript();
}

void Scenario::Do(const std::string& step) {
  using Verb = void (Scenario::*)(const std::string&);
  static const std::map<std::string, Verb> verbs = {{"open", &Scenario::Open},
                                                    {"recent", &Scenario::OpenRecent},
                                                    {"block", &Scenario::Block},
                                                    {"files", &Scenario::ListFiles},
                                                    {"read", &Scenario::ReadFile},
                                                    {"command", &Scenario::GiveCommand},
                                                    {"commands", &Scenario::ListCommands},
                                                    {"menu-key", &Scenario::PressMenuKey},
                                                    {"tree", &Scenario::UseTree},
                                                    {"drag", &Scenario::Drag},
                                                    {"key", &Scenario::PressKey},
                                                    {"select", &Scenario::Select},
                                                    {"paint", &Scenario::Paint},
                                                    {"settings", &Scenario::OpenSettings},
                                                    {"set", &Scenario::Set},
                                                    {"clipboard", &Scenario::FillClipboard}};
  const std::size_t blank = step.find(' ');
  const std::string verb = step.substr(0, blank);
  const std::string rest = blank != std::string::npos ? step.substr(blank + 1) : "";
  static const std::set<std::string> withoutChart = {
      "open", "recent", "block", "files", "read", "set", "settings", "command", "clipboard"};
  if (chart == nullptr && !withoutChart.contains(verb)) return user.Note("no chart is open");
  if (const auto found = verbs.find(verb); found != verbs.end()) {
    return (this->*found->second)(rest);
  }
  const std::size_t end = rest.find(' ');
  const std::vector<POINT> places = Points(rest.substr(0, end));
  if (places.empty()) return user.Note("no such step");
  UseMouse(verb, places[0], end != std::string::npos ? rest.substr(end + 1) : "");
}

void Scenario::UseMouse(const std::string& verb, POINT place, const std::string& entry) {
  if (verb == "menu") {
    user.WillChoose(entry);
    chart->OnContextMenu(place);
  } else if (verb == "hover" || verb == "shift-hover") {
    static constexpr const char* names[] = {
        "Arrow",   "SizeWE",         "SizeNS",         "SizeNWSE",   "SizeNESW",
        "SizeAll", "DiagonalDouble", "ArrowWithCross", "PlainArrow", "DiagonalHandle"};
    FakeWindow& window = frames.back()->window;
    window.cursorPos = place;
    window.shiftDown = verb != "hover";
    chart->OnSetCursor();
    user.Note(std::string("cursor ") + names[static_cast<int>(window.cursor)]);
  } else if (verb == "double") {
    chart->OnLButtonDblClk(0, place);
  } else if (verb == "release") {
    chart->OnLButtonUp(0, place);
  } else if (verb == "scroll") {
    chart->OnScrollBy({place.x, place.y});
  } else {
    user.Note("no such step");
  }
}

/// Opens a copy of a chart from this folder.
void Scenario::Open(const std::string& name) {
  std::string bytes;
  const std::string file = name + ".mrv";
  EXPECT_TRUE(ReadWholeFile(SourcePath("tests/scenarios/") + file, bytes).Ok());
  if (manager.OpenDocumentFile(user.Folder().Write(file, bytes)) == nullptr) return;
  if (!chart->GetGeometry().IsGridShown()) user.Note("no grid");
  before = Now();
  before.document.clear();
  noted = chart;
  before.text = TextLines(ModelFile::FromDisk(bytes));
}

/// Opens a file of the recent ones, or lists them.
void Scenario::OpenRecent(const std::string& index) {
  if (index.empty()) return user.Note(manager.Recent().Paths(), "recent ");
  manager.OnOpenRecentFile(std::stoul(index));
}

/// Puts a folder in the place of a file, so that nothing can be written there.
void Scenario::Block(const std::string& path) {
  std::filesystem::remove(path);
  std::filesystem::create_directory(path);
}

void Scenario::ListFiles(const std::string&) {
  std::set<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(user.Folder().Root())) {
    names.insert(file.path().filename().string());
  }
  for (const std::string& name : names) user.Note("file " + name);
}

void Scenario::ReadFile(const std::string& path) {
  std::ifstream in(path);
  for (std::string line; std::getline(in, line);) user.Note(Escaped(line));
}

void Scenario::GiveCommand(const std::string& text) {
  const unsigned id = CommandOf(text);
  if (chart != nullptr && chart->OnCommand(id)) return;
  if (!FrameCommands().Run(*this, id)) user.Note("disabled");
}

/// What can be done with the chart now.
void Scenario::ListCommands(const std::string&) { user.Note("can" + InOneLine(before.commands)); }

void Scenario::PressKey(const std::string& name) {
  static const std::map<std::string, VirtualKey> keys = {
      {"Escape", VirtualKey::Escape}, {"Prior", VirtualKey::Prior},   {"Next", VirtualKey::Next},
      {"Home", VirtualKey::Home},     {"End", VirtualKey::End},       {"Left", VirtualKey::Left},
      {"Up", VirtualKey::Up},         {"Right", VirtualKey::Right},   {"Down", VirtualKey::Down},
      {"Delete", VirtualKey::Delete}, {"Return", VirtualKey::Return}, {"Tab", VirtualKey::Tab},
      {"Space", VirtualKey::Space}};
  const std::size_t plus = name.find('+');
  const unsigned flags = plus != std::string::npos ? +MK_SHIFT : 0U;
  if (!chart->OnKeyDown(keys.at(name.substr(plus + 1)), flags)) user.Note("not used");
}

void Scenario::PressMenuKey(const std::string& entry) {
  user.WillChoose(entry);
  chart->OnMenuKey();
}

void Scenario::OpenSettings(const std::string&) { CDefaultSettingDlg::Instance().ShowDialog(); }

void Scenario::UseTree(const std::string& rest) {
  if (rest.empty()) return user.Note(before.tree, "tree ");
  const std::size_t blank = rest.find(' ');
  const std::string action = rest.substr(0, blank);
  const std::size_t colon = rest.find(": ");
  CObjectTree& tree = frames.back()->tree;
  TreeItem* row = FindRow(tree, rest.substr(blank + 1, colon - blank - 1));
  if (action == "menu") {
    user.WillChoose(colon != std::string::npos ? rest.substr(colon + 2) : "");
    if (!tree.OnRButtonDown(row, {300, 200})) user.Note("no menu");
  } else if (row != nullptr && action == "close") {
    tree.Collapse(*row);
  } else if (row != nullptr && action == "open") {
    tree.Expand(*row);
  } else if (row != nullptr && action == "choose") {
    tree.Select(row);
    tree.OnChosen(*row);
  } else if (action == "delete") {
    if (!tree.OnKeyDown(VirtualKey::Delete)) user.Note("not used");
  } else {
    tree.OnLButtonDown(row);
  }
}

/// A press at the first point, a move to each other one, and a release at the last.
void Scenario::Drag(const std::string& points) {
  const std::vector<POINT> way = Points(points);
  FakeWindow& window = frames.back()->window;
  chart->OnMouseMove(0, way.front());
  for (std::size_t i = 1; i < way.size(); ++i) window.Move(way[i]);
  window.Release(way.back());
  chart->OnLButtonDown(MK_LBUTTON, way.front());
  while (!window.IsDrained()) {
    const Message left = window.NextMessage();
    if (left.kind == Message::Kind::MouseMove) chart->OnMouseMove(MK_LBUTTON, left.point);
    if (left.kind == Message::Kind::LButtonUp) chart->OnLButtonUp(0, left.point);
  }
}

void Scenario::Select(const std::string& ids) {
  chart->GetModel().DeselectAll();
  std::istringstream in(ids);
  for (int id = 0; in >> id;) {
    chart->GetSelection().Add(FindShape(*chart, id));
    FindShape(*chart, id)->OnBroadcast(BROADCAST_SELECTED, nullptr);
  }
}

/// What a picture of the selection shows.
void Scenario::Paint(const std::string&) {
  std::istringstream svg(ChartPicture(*chart, {.selectionOnly = true}).MakeSvg());
  for (std::string line; std::getline(svg, line);) user.Note(line);
}

/// "Key=Value", stored before the program looks.
void Scenario::Set(const std::string& setting) {
  const std::size_t equals = setting.find('=');
  settings.MemoryProfile::Write(
      "Settings", {{setting.substr(0, equals), Unescaped(setting.substr(equals + 1))}});
  Defaults::Instance().Load();
}

/// What another program put there, or that it keeps the clipboard to itself.
void Scenario::FillClipboard(const std::string& text) {
  clipboard.failure = text == "refuses" ? ClipboardError::Open : ClipboardError::None;
  if (text != "refuses") clipboard.items = {{ModelClipboard::kFormat, Unescaped(text)}};
}

std::string Scenario::DocumentState() const {
  CDocument& document = frames.back()->document;
  std::string state = document.GetTitle() + (document.IsModified() ? ", modified" : "");
  if (document.GetPathName().empty()) return state;
  std::string bytes;
  ReadWholeFile(document.GetPathName(), bytes);
  return bytes != ModelFile::ToDisk(chart->ModelText()) ? state + ", not as in its file" : state;
}

Scenario::Picture Scenario::Now() const {
  Picture now;
  if (chart == nullptr) return now;
  now.document = DocumentState();
  now.text = TextLines(chart->ModelText());
  CObjectTree& tree = frames.back()->tree;
  tree.BringUpToDate();
  now.tree = TreeRows(tree);
  if (tree.Selected() != nullptr) now.row = " " + tree.Selected()->Text();
  now.clipboard = Records(clipboard);
  for (const Collectable* member : chart->GetSelection().Members()) {
    now.selection += " " + std::to_string(dynamic_cast<const Shape*>(member)->GetId());
  }
  for (const MenuPopup& popup : ChartMenu()) {
    for (const MenuEntry& entry : popup.entries) {
      const CommandState state = chart->OnUpdateCommand(entry.id);
      if (state.enabled)
        now.commands.push_back((state.checked ? "+" : "") + Plain(MenuText(entry)));
    }
  }
  now.position =
      " " + Text({chart->GetScrollPosition()}) + " of " + std::to_string(chart->GetTotalSize().cx);
  return now;
}

void Scenario::NoteChanges() {
  if (chart != nullptr) frames.back()->window.Paint();
  const Picture now = Now();
  if (chart != std::exchange(noted, chart)) {
    user.Note("document " + now.document);
    before = now;
    return;
  }
  user.Note(Joined(LineDiff(before.text, now.text)));
  user.Note(LineDiff(before.tree, now.tree), "tree ");
  if (now.document != before.document) user.Note("document " + now.document);
  if (now.row != before.row) user.Note("tree selected" + now.row);
  if (now.selection != before.selection) user.Note("selected" + now.selection);
  if (now.commands != before.commands) {
    user.Note("can" + InOneLine(LineDiff(before.commands, now.commands)));
  }
  if (now.position != before.position) user.Note("scrolled to" + now.position);
  if (now.clipboard != before.clipboard) user.Note("clipboard:" + now.clipboard);
  before = now;
}

}  // namespace morvane
