#include "platform/CWnd.h"

#include "drawing/CRgn.h"
#include "platform/Feedback.h"
#include "platform/WindowPeer.h"

namespace morvane {

CWnd::~CWnd() {
  while (!feedback.empty()) (*feedback.begin())->Hide();
}

RECT CWnd::GetClientRect() const { return peer != nullptr ? peer->ClientRect() + drift : RECT{}; }

void CWnd::InvalidateRect(const RECT& r) {
  if (peer != nullptr) peer->InvalidateRect(r - drift);
}

void CWnd::InvalidateRgn(const CRgn& region) {
  if (peer == nullptr) return;
  if (drift != POINT{}) return peer->InvalidateAll();
  peer->InvalidateRgn(region);
}

void CWnd::Invalidate() {
  if (peer != nullptr) peer->InvalidateAll();
}

void CWnd::UpdateWindow() {
  if (peer != nullptr) peer->Update();
}

void CWnd::SetRedraw(bool on) {
  if (peer != nullptr) peer->SetRedraw(on);
}

void CWnd::InvalidateFeedback(const RECT& r) {
  if (peer != nullptr) peer->InvalidateFeedback(r - drift);
}

void CWnd::SetCapture() {
  if (peer != nullptr) peer->SetCapture();
}

void CWnd::ReleaseCapture() {
  if (peer != nullptr) peer->ReleaseCapture();
}

bool CWnd::HasCapture() const { return peer != nullptr && peer->HasCapture(); }

POINT CWnd::GetCursorPos() const { return peer != nullptr ? peer->CursorPos() + drift : POINT{}; }

bool CWnd::IsShiftDown() const { return peer != nullptr && peer->IsShiftDown(); }

bool CWnd::IsAltDown() const { return peer != nullptr && peer->IsAltDown(); }

int CWnd::GetDragDistance() const { return peer != nullptr ? peer->DragDistance() : 0; }

void CWnd::OpenTextBox(const InPlaceText& text) {
  if (peer != nullptr) peer->OpenTextBox(text);
}

void CWnd::MoveTextBox(const RECT& client) {
  if (peer != nullptr) peer->MoveTextBox(client);
}

std::optional<std::string> CWnd::CloseTextBox() {
  return peer != nullptr ? peer->CloseTextBox() : std::nullopt;
}

void CWnd::SetCursor(Cursor cursor) {
  if (peer != nullptr) peer->SetCursor(cursor);
}

POINT CWnd::ClientToScreen(POINT p) const {
  return peer != nullptr ? peer->ClientToScreen(p - drift) : p;
}

POINT CWnd::ScreenToClient(POINT p) const {
  return peer != nullptr ? peer->ScreenToClient(p) + drift : p;
}

Message CWnd::NextMessage() {
  Message message;
  message.kind = Message::Kind::Quit;
  if (peer != nullptr) message = peer->NextMessage();
  message.point = message.point + drift;
  return message;
}

void CWnd::TellPartsChanged() {
  if (peer != nullptr) peer->OnPartsChanged();
}

void CWnd::DispatchMessage(const Message& message) {
  switch (message.kind) {
    case Message::Kind::MouseMove: OnMouseMove(message.flags, message.point); break;
    case Message::Kind::LButtonDown: OnLButtonDown(message.flags, message.point); break;
    case Message::Kind::LButtonUp: OnLButtonUp(message.flags, message.point); break;
    case Message::Kind::LButtonDblClk: OnLButtonDblClk(message.flags, message.point); break;
    case Message::Kind::KeyDown: OnKeyDown(message.key, message.flags); break;
    case Message::Kind::RButtonDown:
    case Message::Kind::RButtonUp:
    case Message::Kind::Other:
    case Message::Kind::Quit: break;
  }
}

}  // namespace morvane
