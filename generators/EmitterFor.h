#pragma once

#include <memory>

#include "generators/Emitter.h"
#include "generators/TargetLanguage.h"

namespace morvane {

std::unique_ptr<Emitter> EmitterFor(TargetLanguage language);

}  // namespace morvane
