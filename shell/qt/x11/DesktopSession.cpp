#include "shell/qt/DesktopSession.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <xcb/xcb.h>

#include <QApplication>
#include <QWidget>

#include "shell/InstanceRequest.h"

namespace morvane {

namespace {

constexpr std::uint32_t kFromProgram = 1;
constexpr std::size_t kMessageBytes = 20;

xcb_atom_t AtomOf(xcb_connection_t* connection, std::string_view name) {
  const auto asked =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(connection, asked, nullptr);
  const xcb_atom_t atom = reply != nullptr ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  std::free(reply);
  return atom;
}

/// The moment of the user's click, which stands at the end of a startup id; 0 if it doesn't.
xcb_timestamp_t TimeOf(const std::string& startupId) {
  constexpr std::string_view mark = "_TIME";
  const std::size_t place = startupId.rfind(mark);
  xcb_timestamp_t time = 0;
  if (place == std::string::npos) return time;
  std::from_chars(startupId.data() + place + mark.size(), startupId.data() + startupId.size(),
                  time);
  return time;
}

void SendToRoot(xcb_connection_t* connection, const xcb_client_message_event_t& message,
                std::uint32_t mask) {
  const xcb_setup_t* setup = xcb_get_setup(connection);
  const xcb_window_t root = xcb_setup_roots_iterator(setup).data->root;
  xcb_send_event(connection, 0, root, mask, reinterpret_cast<const char*>(&message));
}

/// Asks the window manager with the time of the click, by which it tells the user's wish from a
/// program that puts itself forward.
void Activate(xcb_connection_t* connection, xcb_window_t window, xcb_timestamp_t time) {
  xcb_client_message_event_t message = {};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = AtomOf(connection, "_NET_ACTIVE_WINDOW");
  message.data.data32[0] = kFromProgram;
  message.data.data32[1] = time;
  SendToRoot(connection, message,
             XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

/// Tells the desktop that the start has its window, so that it stops to show that it waits.
void EndStartup(xcb_connection_t* connection, xcb_window_t window, const std::string& startupId) {
  std::string text = "remove: ID=\"";
  for (const char c : startupId) {
    if (c == '"' || c == '\\') text += '\\';
    text += c;
  }
  text += '"';
  text += '\0';
  xcb_client_message_event_t message = {};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 8;
  message.window = window;
  message.type = AtomOf(connection, "_NET_STARTUP_INFO_BEGIN");
  for (std::size_t at = 0; at < text.size(); at += kMessageBytes) {
    std::string piece = text.substr(at, kMessageBytes);
    piece.resize(kMessageBytes);
    std::ranges::copy(piece, message.data.data8);
    SendToRoot(connection, message, XCB_EVENT_MASK_PROPERTY_CHANGE);
    message.type = AtomOf(connection, "_NET_STARTUP_INFO");
  }
}

}  // namespace

bool IsDisplayNamed() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

void AskDesktopForward(QWidget& window, const InstanceRequest& start) {
  const std::string& startupId = start.startupId;
  auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr || x11->connection() == nullptr || startupId.empty()) return;
  const auto id = static_cast<xcb_window_t>(window.winId());
  if (const xcb_timestamp_t time = TimeOf(startupId)) Activate(x11->connection(), id, time);
  EndStartup(x11->connection(), id, startupId);
  xcb_flush(x11->connection());
}

void LetRunningCopyForward() {
  // The tokens of the request do that.
}

void RegisterFileTypes() {
  // The package does that.
}

}  // namespace morvane
