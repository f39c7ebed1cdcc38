#include "tests/scenarios/Scenario.h"

#include "dialogs/CDefaultSettingDlg.h"
#include "persistence/ModelClipboard.h"
#include "shell/MenuTable.h"
#include "tests/support/Routes.h"
#include "tests/support/TreeRows.h"

namespace {

/// The command of an entry of the menu bar; 0 for none.
unsigned CommandOf(const std::string& text) {
  for (const MenuPopup& popup : ChartMenu()) {
    for (const MenuEntry& entry : popup.entries) {
      if (entry.id != 0 && Plain(entry.text) == text) return entry.id;
    }
  }
  return 0;
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
  if (chart) chart->SetObjectTree(nullptr);
  static_cast<MemoryProfile&>(settings) = {};
  CDefaultSettingDlg::Instance().LoadSettings();
}

void Scenario::Settings::Write(const std::string& section, const std::vector<Setting>& values) {
  for (const auto& [key, value] : values) {
    user.Note("setting " + section + "/" + key + " = " + Escaped(value));
  }
  MemoryProfile::Write(section, values);
}

std::string Scenario::Play() {
  while (const auto step = user.Next()) {
    Do(*step);
    if (chart) NoteChanges();
  }
  return user.Transcript();
}

void Scenario::Do(const std::string& step) {
  using Verb = void (Scenario::*)(const std::string&);
  static const std::map<std::string, Verb> verbs = {{"open", &Scenario::Open},
                                                    {"command", &Scenario::GiveCommand},
                                                    {"tree", &Scenario::UseTree},
                                                    {"drag", &Scenario::Drag},
                                                    {"select", &Scenario::Select},
                                                    {"set", &Scenario::Set},
                                                    {"clipboard", &Scenario::FillClipboard}};
  const std::size_t blank = step.find(' ');
  const std::string verb = step.substr(0, blank);
  const std::string rest = blank != std::string::npos ? step.substr(blank + 1) : "";
  if (const auto found = verbs.find(verb); found != verbs.end()) {
    return (this->*found->second)(rest);
  }
  const std::size_t end = rest.find(' ');
  const std::vector<POINT> place = Points(rest.substr(0, end));
  if (verb == "settings") {
    CDefaultSettingDlg::Instance().ShowDialog();
  } else if (verb == "menu" && !place.empty()) {
    user.WillChoose(end != std::string::npos ? rest.substr(end + 1) : "");
    chart->OnContextMenu(place[0]);
  } else if (verb == "double" && !place.empty()) {
    chart->OnLButtonDblClk(0, place[0]);
  } else if (verb == "release" && !place.empty()) {
    chart->OnLButtonUp(0, place[0]);
  } else if (verb == "scroll" && !place.empty()) {
    chart->OnScrollBy({place[0].x, place[0].y});
  } else {
    user.Note("no such step");
  }
}

/// Opens a chart of this folder as its window does, or a new one.
void Scenario::Open(const std::string& name) {
  chart = std::make_unique<LayoutMgr>();
  chart->SetObjectTree(&tree);
  const std::string path = MORVANE_SOURCE_DIR "/tests/scenarios/" + name + ".mrv";
  EXPECT_EQ(name.empty() ? "" : ModelFile::Load(path, *chart), "");
  window = std::make_unique<FakeWindow>(*chart);
  chart->OnInitialUpdate();
  chart->ApplyZoom();
  if (!chart->IsGridShown()) user.Note("no grid");
  before = Now();
}

void Scenario::GiveCommand(const std::string& text) {
  if (!chart->OnCommand(CommandOf(text))) user.Note("disabled");
}

void Scenario::UseTree(const std::string& rest) {
  if (rest.empty()) return user.Note(before.tree, "tree ");
  const std::size_t blank = rest.find(' ');
  const std::string action = rest.substr(0, blank);
  const std::size_t colon = rest.find(": ");
  TreeItem* row = FindRow(tree, rest.substr(blank + 1, colon - blank - 1));
  if (action == "menu") {
    user.WillChoose(colon != std::string::npos ? rest.substr(colon + 2) : "");
    if (!tree.OnRButtonDown(row, {300, 200})) user.Note("no menu");
  } else if (row != nullptr && action == "close") {
    tree.Collapse(*row);
  } else {
    tree.OnLButtonDown(row);
  }
}

/// A press at the first point, a move to each other one, and a release at the last.
void Scenario::Drag(const std::string& points) {
  const std::vector<POINT> way = Points(points);
  for (std::size_t i = 1; i < way.size(); ++i) window->Move(way[i]);
  window->Release(way.back());
  chart->OnLButtonDown(MK_LBUTTON, way.front());
  while (!window->IsDrained()) {
    const Message left = window->NextMessage();
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

/// "Key=Value", stored before the program looks.
void Scenario::Set(const std::string& setting) {
  const std::size_t equals = setting.find('=');
  settings.MemoryProfile::Write(
      "Settings", {{setting.substr(0, equals), Unescaped(setting.substr(equals + 1))}});
  CDefaultSettingDlg::Instance().LoadSettings();
}

/// What another program put there, or that it keeps the clipboard to itself.
void Scenario::FillClipboard(const std::string& text) {
  clipboard.failure = text == "refuses" ? ClipboardError::Open : ClipboardError::None;
  if (text != "refuses") clipboard.items = {{ModelClipboard::kFormat, Unescaped(text)}};
}

Scenario::Picture Scenario::Now() const {
  Picture now;
  now.text = TextLines(chart->ModelText());
  now.tree = TreeRows(tree);
  if (tree.Selected() != nullptr) now.row = " " + tree.Selected()->Text();
  now.clipboard = Records(clipboard);
  for (const Collectable* member : chart->GetSelection().Members()) {
    now.selection += " " + std::to_string(dynamic_cast<const Shape*>(member)->GetId());
  }
  for (const auto& [id, name] : {std::pair{ID_EDIT_UNDO, " undo"}, {ID_EDIT_REDO, " redo"}}) {
    if (chart->OnUpdateCommand(id).enabled) now.history += name;
  }
  now.position = " " + Text({chart->GetScrollPosition()});
  return now;
}

void Scenario::NoteChanges() {
  chart->OnDraw(*window->CreateClientDC());
  const Picture now = Now();
  user.Note(Joined(LineDiff(before.text, now.text)));
  user.Note(LineDiff(before.tree, now.tree), "tree ");
  if (now.row != before.row) user.Note("tree selected" + now.row);
  if (now.selection != before.selection) user.Note("selected" + now.selection);
  if (now.history != before.history) user.Note("possible:" + now.history);
  if (now.position != before.position) user.Note("scrolled to" + now.position);
  if (now.clipboard != before.clipboard) user.Note("clipboard:" + now.clipboard);
  before = now;
}
