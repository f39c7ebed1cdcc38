#pragma once

// What most tests of charts and windows need.

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "drawing/CMetaFileDC.h"
#include "drawing/NullDC.h"
#include "model/Collection.h"
#include "model/ModelMgr.h"
#include "persistence/CMorvaneDoc.h"
#include "persistence/ModelFile.h"
#include "platform/Files.h"
#include "platform/Profile.h"
#include "platform/UseService.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "states/GenericState.h"
#include "states/InitialState.h"
#include "surface/ChartPicture.h"
#include "surface/HiddenWindow.h"
#include "surface/LayoutMgr.h"
#include "tests/support/Charts.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/ScriptedMessageBoxes.h"
#include "tests/support/TempFolder.h"
