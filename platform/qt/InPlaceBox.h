#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QObject>
#include <QPointer>
#include <QRect>

#include "platform/Dialog.h"

class QWidget;

namespace morvane {

class DialogWidget;
struct InPlaceText;

/// A box over a window in which a text is edited where it stands. It grows with what is typed, as
/// far as the window reaches. Return ends the editing, or Ctrl+Return in a box of several lines,
/// Tab does, and so does the keyboard going elsewhere; Escape gives it up.
class InPlaceBox : public QObject {
 public:
  using OnLeft = std::function<void(bool keep)>;

  /// Takes the keyboard. `left` is called once, when the user ends the editing; it may destroy the
  /// box.
  InPlaceBox(const InPlaceText& text, QWidget* window, OnLeft left);
  ~InPlaceBox() override;

  /// Puts the box elsewhere, device pixels of the window.
  void Move(const QRect& area);
  bool HasFocus() const;
  /// The text, with CR LF between lines.
  std::string Text();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Leave(bool keep);
  bool TakeKey(int key, Qt::KeyboardModifiers modifiers);
  void Fit();
  QSize RoomForText() const;

  QWidget* window;
  OnLeft left;
  DialogControl control;
  bool severalLines;
  bool centred;
  QRect area;
  std::unique_ptr<DialogWidget> box;
  QPointer<QWidget> widget;
};

}  // namespace morvane
