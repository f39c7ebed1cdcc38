#include "shell/SessionSettings.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/Profile.h"

namespace morvane {

namespace {

constexpr const char* kSection = "Session";
constexpr const char* kKey = "Reopen";

struct Name {
  Reopen reopen;
  std::string_view text;
};
constexpr std::array kNames = {Name{Reopen::Never, "never"}, Name{Reopen::AfterCrash, "crash"},
                               Name{Reopen::Always, "always"}};

}  // namespace

Reopen SessionSettings::Read() {
  const std::string text = Service<Profile>::Get().GetString(kSection, kKey, "");
  const auto* found = std::ranges::find(kNames, text, &Name::text);
  return found != kNames.end() ? found->reopen : Reopen::AfterCrash;
}

void SessionSettings::Write(Reopen reopen) {
  const auto* found = std::ranges::find(kNames, reopen, &Name::reopen);
  Service<Profile>::Get().WriteString(kSection, kKey, std::string(found->text));
}

}  // namespace morvane
