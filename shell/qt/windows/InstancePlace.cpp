#include "shell/qt/InstancePlace.h"

#include <windows.h>

#include <QUuid>

#include "drawing/qt/QtText.h"
#include "platform/FileSystem.h"
#include "platform/Files.h"
#include "platform/windows/SystemHandle.h"

namespace morvane {

namespace {

/// A program with an administrator's rights takes nothing from one without.
bool HasMoreRights() {
  HANDLE opened = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened) == 0) return false;
  const SystemHandle token(opened);
  TOKEN_ELEVATION elevation = {};
  DWORD size = sizeof elevation;
  return GetTokenInformation(token.Get(), TokenElevation, &elevation, size, &size) != 0 &&
         elevation.TokenIsElevated != 0;
}

/// The session of the user, who may have several with a screen of its own each.
QString NameOfSession() {
  DWORD session = 0;
  ProcessIdToSessionId(GetCurrentProcessId(), &session);
  const QString name = QStringLiteral("session-%1").arg(session);
  return HasMoreRights() ? name + "-elevated" : name;
}

}  // namespace

InstancePlace InstancePlace::Default() {
  const std::string state = UserStateFolder();
  const std::string folder = state.empty() ? state : state + "/Halvern/Morvane";
  const bool usable = !folder.empty() && MakePrivateFolder(folder);
  return {usable ? ToQPath(folder) : QString(), NameOfSession()};
}

// Pipes are no files here, so that the link is a file with the name of one.

QString LinkTarget(const QString& link) {
  std::string name;
  return ReadWholeFile(FromQPath(link), name).Ok() ? QString::fromStdString(name) : QString();
}

bool TurnLink(const QString& link, const QString& target) {
  return ReplaceWholeFile(FromQPath(link), target.toStdString()).Ok();
}

/// All users share the names of pipes. Nobody can guess one that is random, and wait there.
QString OwnServer(const QString& /*link*/) {
  return "morvane-" + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

}  // namespace morvane
