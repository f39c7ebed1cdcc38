#pragma once

#include "persistence/DocumentManager.h"
#include "shell/CObjectTree.h"
#include "shell/FrameActions.h"
#include "tests/scenarios/ScenarioUser.h"
#include "tests/support/FakeClipboard.h"
#include "tests/support/SizedPictures.h"
#include "tests/support/UiQueue.h"

namespace morvane {

/// The program with its charts, the active one beside its tree, and a user who does steps with
/// them. What comes of each is written down: the lines of the model text and of the tree that
/// change, the selection, the commands that can be given, the settings that are stored.
class Scenario : public FrameHost, public FrameActions {
 public:
  explicit Scenario(std::deque<std::string> steps) : user(std::move(steps)) {}
  ~Scenario() override;

  /// The steps, each followed by what comes of it.
  std::string Play();

  void CreateFrame(CDocument& document) override;
  void ShowFrame(CDocument& /*document*/) override {}
  void ActivateFrame(CDocument& document) override;
  void CloseFrame(CDocument& document) override;
  void UpdateTitle(CDocument& /*document*/) override {}

  DocumentManager& Manager() override { return manager; }
  const std::vector<std::string>& RecentPaths() const override;
  CDocument* ActiveDocument() const override;
  void CloseActive() override;
  bool IsPartShown(unsigned /*id*/) const override { return true; }
  void ShowPart(unsigned /*id*/, bool /*show*/) override {}
  void FocusPane(int /*step*/) override {}
  void ArrangeWindows(Arrangement /*arrangement*/) override {}
  CommandState RunStateOf(unsigned /*id*/) const override { return {}; }
  void ExecuteRun(unsigned /*id*/) override {}
  void ShowAbout() override {}
  void ShowComparison(CDocument& /*document*/, const std::string& /*file*/,
                      std::unique_ptr<ChartComparison> /*comparison*/) override {}
  void Exit() override {}

 private:
  /// Settings in memory that are written down in the order in which they are stored.
  struct Settings : public MemoryProfile {
    explicit Settings(ScenarioUser& user) : user(user) {}
    void Write(const std::string& section, const std::vector<Setting>& settings) override;
    ScenarioUser& user;
  };
  /// The window of a chart.
  struct Frame {
    explicit Frame(CDocument& document);
    ~Frame() { chart.SetObjectTree(nullptr); }
    CDocument& document;
    LayoutMgr& chart;
    CObjectTree tree;
    FakeWindow window{chart};
  };
  /// What shows of the active chart.
  struct Picture {
    std::string document;  ///< title, and whether it is modified or differs from its file
    Lines text;
    Lines tree;
    Lines commands;   ///< of the menu bar that can be given
    std::string row;  ///< the one that is selected in the tree
    std::string selection;
    std::string position;
    std::string clipboard;
  };

  void Do(const std::string& step);
  void UseMouse(const std::string& verb, POINT place, const std::string& entry);
  void Open(const std::string& name);
  void OpenRecent(const std::string& index);
  void Block(const std::string& path);
  void ListFiles(const std::string&);
  void ReadFile(const std::string& path);
  void GiveCommand(const std::string& text);
  void ListCommands(const std::string&);
  void PressKey(const std::string& name);
  void PressMenuKey(const std::string& entry);
  void OpenSettings(const std::string&);
  void UseTree(const std::string& rest);
  void Drag(const std::string& points);
  void Select(const std::string& ids);
  void Paint(const std::string&);
  void Set(const std::string& setting);
  void FillClipboard(const std::string& text);
  std::string DocumentState() const;
  Picture Now() const;
  void NoteChanges();

  ScenarioUser user;
  UiQueue queue;
  FakeClipboard clipboard;
  SizedPictures pictures;
  Settings settings{user};
  const UseService<Profile> useSettings{settings};
  std::vector<std::unique_ptr<Frame>> frames;  ///< the active one last
  LayoutMgr* chart = nullptr;                  ///< of the active one
  Picture before;
  const LayoutMgr* noted = nullptr;  ///< the chart of that picture
  mutable DocumentManager manager{{"Morvane_Diagram",
                                   {"Morvane Files (*.mrv)", ".mrv"},
                                   std::make_unique<CMorvaneDoc>,
                                   std::make_unique<LayoutMgr>},
                                  *this};
};

}  // namespace morvane
