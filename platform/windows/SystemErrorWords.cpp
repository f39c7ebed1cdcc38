#include "platform/SystemErrorWords.h"

#include <array>
#include <cerrno>

#include "platform/Wording.h"

namespace morvane {

namespace {

constexpr std::array kOwn = {SystemErrorWords{EBUSY, kOpenInAnotherProgram},
                             SystemErrorWords{ENXIO, kNameOfDevice}};

}  // namespace

std::span<const SystemErrorWords> OwnSystemErrors() { return kOwn; }

bool IsAdvice(int error) { return error == EBUSY || error == ENXIO; }

}  // namespace morvane
