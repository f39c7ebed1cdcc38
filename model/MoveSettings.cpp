#include "model/MoveSettings.h"

#include "platform/Profile.h"

namespace morvane {

namespace {

constexpr const char* kSection = "Settings";
constexpr const char* kKey = "MoveContents";

}  // namespace

bool MoveSettings::MovesContents() {
  return Service<Profile>::Get().GetInt(kSection, kKey, 0) != 0;
}

void MoveSettings::SetMovesContents(bool moves) {
  Service<Profile>::Get().WriteString(kSection, kKey, moves ? "1" : "0");
}

}  // namespace morvane
