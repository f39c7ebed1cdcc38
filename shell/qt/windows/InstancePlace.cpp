#include "shell/qt/InstancePlace.h"

#include <QUuid>

#include "drawing/qt/QtText.h"
#include "platform/FileSystem.h"
#include "platform/Files.h"
#include "platform/windows/UserSession.h"

namespace morvane {

InstancePlace InstancePlace::Default() {
  const std::string state = UserStateFolder();
  const std::string folder = state.empty() ? state : state + "/Halvern/Morvane";
  const bool usable = !folder.empty() && MakePrivateFolder(folder);
  return {usable ? ToQPath(folder) : QString(), QString::fromStdString(UserSessionName())};
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
