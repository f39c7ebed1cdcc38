#include <QAccessible>

#include "platform/qt/PartsTeller.h"
#include "platform/qt/QtView.h"
#include "surface/ChartHistory.h"
#include "tests/support/Routes.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

/// What was told to assistive technologies: the kind of an event and the name of what it is about.
std::vector<std::pair<QAccessible::Event, QString>> told;

void NoteEvent(QAccessibleEvent* event) {
  QAccessibleInterface* about = event->accessibleInterface();
  told.emplace_back(event->type(), about != nullptr ? about->text(QAccessible::Name) : QString());
}

class AccessibilityTest : public testing::Test {
 protected:
  AccessibilityTest() {
    chart = LoadChart(
        ChartText(StateRecord(1, {10, 10, 60, 50}, "Outer", "Begin();") +
                  InitialRecord(2, {15, 20, 19, 24}) + StateRecord(3, {30, 18, 45, 30}, "Inner") +
                  NoteRecord(4, {70, 20, 85, 26}, Block("why")) + LineRecord(5, 4, 1, "4 1 2 2") +
                  TransitionRecord(6, 2, 3, "2 1 4 2", LinkLines("19,22 20,22 29,22 29,24 30,24")) +
                  MesgRecord(7, 6, {20, 32, 30, 38}, "coin")));
    widget = std::make_unique<QtView>(*chart);
    widget->resize(700, 600);
    widget->show();
    chart->ApplyZoom();
    chart->TakeSnapshot();
    QAccessible::setActive(true);
    former = PartsTeller::SetSink(NoteEvent);
    QApplication::setActiveWindow(widget.get());
    widget->setFocus();
    QApplication::processEvents();
    told.clear();
  }
  ~AccessibilityTest() override {
    PartsTeller::SetSink(former);
    QAccessible::setActive(false);
  }

  QAccessibleInterface& View() const {
    return *QAccessible::queryAccessibleInterface(widget.get());
  }
  QAccessibleInterface& Part(int id) const {
    for (int i = 0; i < View().childCount(); ++i) {
      QAccessibleInterface* part = View().child(i);
      if (part->rect() == OnScreenOf(id)) return *part;
    }
    throw std::out_of_range("no such part");
  }
  QRect OnScreenOf(int id) const {
    const RECT r = chart->ToClient(FindShape(*chart, id)->GetBounds());
    return {widget->viewport()->mapToGlobal(QPoint(r.left, r.top)),
            QSize(r.right - r.left, r.bottom - r.top)};
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    SendKey(*widget, key, {}, modifiers);
    QApplication::processEvents();
  }
  static bool WasTold(QAccessible::Event kind, const QString& name) {
    return std::ranges::find(told, std::pair(kind, name)) != told.end();
  }

  std::unique_ptr<LayoutMgr> chart;
  std::unique_ptr<QtView> widget;
  PartsTeller::Sink former = nullptr;
};

TEST_F(AccessibilityTest, EachObjectHasItsRoleNameTextAndPlace) {
  const std::tuple<int, QAccessible::Role, QString, QString> objects[] = {
      {1, QAccessible::Graphic, "State Outer", "On entry: Begin();"},
      {2, QAccessible::Graphic, "Initial state in Outer", ""},
      {6, QAccessible::Graphic, "Transition from Initial state to Inner, event coin", "coin"},
      {7, QAccessible::StaticText, "Message coin", "coin"},
      {3, QAccessible::Graphic, "State Inner in Outer", ""},
      {4, QAccessible::Note, "Note why", "why"},
      {5, QAccessible::Graphic, "Line from Note why to State Outer", ""}};
  ASSERT_EQ(View().childCount(), std::ssize(objects));
  int index = 0;
  for (const auto& [id, role, name, text] : objects) {
    QAccessibleInterface* part = View().child(index);
    EXPECT_EQ(part->text(QAccessible::Name), name);
    EXPECT_EQ(part->text(QAccessible::Description), text) << name.toStdString();
    EXPECT_EQ(part->role(), role) << name.toStdString();
    EXPECT_EQ(part->rect(), OnScreenOf(id)) << name.toStdString();
    EXPECT_EQ(View().indexOfChild(part), index++);
    EXPECT_EQ(part->parent(), &View());
    EXPECT_TRUE(part->isValid() && part->state().selectable && part->state().focusable);
  }
  const QPoint inInner = OnScreenOf(3).center();
  EXPECT_EQ(View().childAt(inInner.x(), inInner.y()), &Part(3));
}

TEST_F(AccessibilityTest, WhatTheKeyboardComesToHasTheFocusAndIsSelected) {
  Part(1);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(WasTold(QAccessible::Focus, "State Outer"));
  EXPECT_TRUE(WasTold(QAccessible::StateChanged, "State Outer"));
  EXPECT_EQ(View().focusChild(), &Part(1));
  EXPECT_TRUE(Part(1).state().selected && Part(1).state().focused);
  Press(Qt::Key_Space, Qt::ShiftModifier);
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(Part(1).state().selected && !Part(1).state().focused);
  EXPECT_TRUE(Part(5).state().selected && Part(5).state().focused);
  auto* action = Part(3).actionInterface();
  action->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(chart->GetSelection().Members(), std::vector<Collectable*>{FindShape(*chart, 3)});
}

TEST_F(AccessibilityTest, AnObjectThatGoesIsToldAndItsInterfaceLivesOnUntilItComesAgain) {
  QAccessibleInterface* note = &Part(4);
  QAccessibleInterface* inner = &Part(3);
  chart->GetModel().SelectOnly(FindShape(*chart, 4));
  chart->GetModel().DeleteSelected(false);
  chart->TakeSnapshot();
  EXPECT_FALSE(note->isValid());
  EXPECT_EQ(note->text(QAccessible::Name), "");
  EXPECT_EQ(note->rect(), QRect());
  note->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  told.clear();
  QApplication::processEvents();
  EXPECT_TRUE(WasTold(QAccessible::ObjectDestroyed, ""));
  chart->GetHistory().Undo();
  QApplication::processEvents();
  EXPECT_TRUE(WasTold(QAccessible::ObjectCreated, "Note why"));
  EXPECT_TRUE(note->isValid());
  EXPECT_EQ(inner, &Part(3)) << "the whole chart was read anew";
  Find<GenericState>(*chart, 3)->NameText() = "Other";
  chart->TakeSnapshot();
  QApplication::processEvents();
  EXPECT_TRUE(WasTold(QAccessible::NameChanged, "State Other in Outer"));
  // The window goes before the chart, and an assistive technology asks once more.
  widget->Detach();
  EXPECT_FALSE(inner->isValid());
  EXPECT_EQ(View().childCount(), 0);
}

}  // namespace

}  // namespace morvane
