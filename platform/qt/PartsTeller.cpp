#include "platform/qt/PartsTeller.h"

#include <utility>
#include <vector>

#include "drawing/qt/QtText.h"
#include "platform/CScrollView.h"
#include "platform/qt/QtView.h"
#include "platform/qt/ViewInterface.h"

namespace morvane {

namespace {

/// More parts than these that come or go at once are told in one event.
constexpr std::size_t kMostSingleEvents = 100;

PartsTeller::Sink sink = QAccessible::updateAccessibility;

void Send(QAccessibleInterface* part, QAccessible::Event kind) {
  QAccessibleEvent event(part, kind);
  sink(&event);
}

}  // namespace

PartsTeller::PartsTeller(QtView& view) : view(view), listening(QAccessible::isActive()) {
  QAccessible::installActivationObserver(this);
  timer.setSingleShot(true);
  timer.setInterval(0);
  QObject::connect(&timer, &QTimer::timeout, [this] { Tell(); });
}

PartsTeller::Sink PartsTeller::SetSink(Sink taken) { return std::exchange(sink, taken); }

PartsTeller::~PartsTeller() { QAccessible::removeActivationObserver(this); }

void PartsTeller::accessibilityActiveChanged(bool active) {
  listening = active;
  started = false;
  present.clear();
  told.clear();
  OnFocusChanged();
}

void PartsTeller::OnChanged() {
  if (listening && !timer.isActive()) timer.start();
}

void PartsTeller::OnFocusChanged() {
  focused = ReadableParts::kNone;
  OnChanged();
}

void PartsTeller::Tell() {
  ReadableParts* parts = view.View() != nullptr ? view.View()->Parts() : nullptr;
  auto* own = dynamic_cast<ViewInterface*>(QAccessible::queryAccessibleInterface(&view));
  if (parts == nullptr || own == nullptr || view.IsWaiting()) return;
  TellParts(*parts, *own);
  TellStates(*parts, *own);
  TellFocus(*parts, *own);
}

void PartsTeller::TellParts(ReadableParts& parts, ViewInterface& own) {
  const std::unordered_set<ReadableParts::Key> now(parts.Keys().begin(), parts.Keys().end());
  std::vector<ReadableParts::Key> gone;
  std::vector<ReadableParts::Key> come;
  for (const ReadableParts::Key key : present) {
    if (!now.contains(key)) gone.push_back(key);
  }
  for (const ReadableParts::Key key : parts.Keys()) {
    if (!present.contains(key)) come.push_back(key);
  }
  present = now;
  for (const ReadableParts::Key key : gone) told.erase(key);
  // Whoever has just begun to listen knows nothing yet that could have changed.
  if (!std::exchange(started, true)) return;
  if (gone.size() + come.size() > kMostSingleEvents) return Send(&own, QAccessible::ObjectReorder);
  for (const ReadableParts::Key key : gone) {
    if (QAccessibleInterface* part = own.Known(key)) Send(part, QAccessible::ObjectDestroyed);
  }
  for (const ReadableParts::Key key : come) Send(own.Of(key), QAccessible::ObjectCreated);
}

void PartsTeller::TellStates(ReadableParts& parts, ViewInterface& own) {
  bool selectionChanged = false;
  for (const ReadableParts::Key key : present) {
    QAccessibleInterface* known = own.Known(key);
    ReadablePart part;
    if (known == nullptr || !parts.Describe(key, part)) continue;
    const auto [entry, isNew] = told.try_emplace(key);
    Told& before = entry->second;
    const QString name = ToQString(part.name);
    if (!isNew && before.name != name) Send(known, QAccessible::NameChanged);
    if (before.selected != part.selected) {
      selectionChanged = true;
      QAccessible::State changed;
      changed.selected = true;
      QAccessibleStateChangeEvent event(known, changed);
      sink(&event);
    }
    before = {name, part.selected};
  }
  if (selectionChanged) Send(&own, QAccessible::SelectionWithin);
}

void PartsTeller::TellFocus(ReadableParts& parts, ViewInterface& own) {
  if (!view.hasFocus()) return;
  const ReadableParts::Key current = parts.Current();
  if (current == std::exchange(focused, current)) return;
  QAccessibleInterface* part = own.Of(current);
  Send(part != nullptr ? part : &own, QAccessible::Focus);
}

}  // namespace morvane
