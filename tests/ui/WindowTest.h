#pragma once

// What most tests of windows need.

#include <QtWidgets>

#include "tests/support/ChartTest.h"
#include "tests/ui/Events.h"
#include "tests/ui/NextWindow.h"
