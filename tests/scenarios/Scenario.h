#pragma once

#include "shell/CObjectTree.h"
#include "tests/scenarios/ScenarioUser.h"
#include "tests/support/FakeClipboard.h"

/// A chart beside its tree, and a user who does steps with it. What comes of each is written down:
/// the lines of the model text and of the tree that change, the selection, what can be undone, the
/// settings that are stored.
class Scenario {
 public:
  explicit Scenario(std::deque<std::string> steps) : user(std::move(steps)) {}
  ~Scenario();

  /// The steps, each followed by what comes of it.
  std::string Play();

 private:
  /// Settings in memory that are written down in the order in which they are stored.
  struct Settings : public MemoryProfile {
    explicit Settings(ScenarioUser& user) : user(user) {}
    void Write(const std::string& section, const std::vector<Setting>& settings) override;
    ScenarioUser& user;
  };
  /// What shows of a chart.
  struct Picture {
    Lines text;
    Lines tree;
    std::string row;  ///< the one that is selected in the tree
    std::string selection;
    std::string history;
    std::string position;
    std::string clipboard;
  };

  void Do(const std::string& step);
  void Open(const std::string& name);
  void GiveCommand(const std::string& text);
  void UseTree(const std::string& rest);
  void Drag(const std::string& points);
  void Select(const std::string& ids);
  void Set(const std::string& setting);
  void FillClipboard(const std::string& text);
  Picture Now() const;
  void NoteChanges();

  ScenarioUser user;
  FakeClipboard clipboard;
  Settings settings{user};
  const UseService<Profile> useSettings{settings};
  CObjectTree tree;
  std::unique_ptr<LayoutMgr> chart;
  std::unique_ptr<FakeWindow> window;
  Picture before;
};
