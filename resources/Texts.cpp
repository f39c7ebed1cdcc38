#include "resources/Texts.h"

#include <algorithm>
#include <array>

namespace {

struct Text {
  unsigned id;
  const char* text;
};

/// The English texts, in the order of their numbers.
constexpr std::array kTexts = {
    Text{IDS_APP_TITLE, "Morvane"},
    Text{IDS_CODEGEN_CAPTION, "Code Generation Properties"},
    Text{IDS_CLIPBOARD_ERROR, "Error accessing clipboard"},
    Text{IDS_ENTRY_EXIT_EDITOR, "Entry/Exit Editor"},
    Text{IDS_ENTRY, "Entry"},
    Text{IDS_EXIT, "Exit"},
    Text{IDS_EDITOR, "Editor"},
    Text{IDS_EVENT_EMPTY, "Event Cannot Be Empty"},
    Text{IDS_ON_EVENT, "onEvent"},
    Text{IDS_METAFILE_COPIED, "Chart copied to clipboard as metafile successfully."},
    Text{IDS_CONFIRM_DELETION, "Please confirm deletion"},
    Text{IDS_MESG_PROPERTIES, "Message properties"},
    Text{IDS_CONFIRM_DELETE_SELECTED,
         "This will delete all the selected objects.\n\nDo you want to continue ?"},
    Text{IDS_INVALID_FILE, "Invalid File"},
    Text{IDS_CANNOT_PASTE,
         "The data from clipboard cannot be pasted. May be that dependant objects are not copied."},
    Text{IDS_NOTE, "Note"},
    Text{IDS_NOTE_PROPERTIES, "Note Properties"},
    Text{IDS_INITIAL_STATE, "InitialState"},
    Text{IDS_FINAL_STATE, "FinalState"},
    Text{IDS_UNKNOWN_ERROR, "Unknown Error"},
    Text{IDS_CANNOT_WRITE, "Unable to open for writing"},
    Text{IDS_COMMAND_FAILED, "Command Failed.\n\nReason: "},
    Text{IDS_UNTITLED, "Untitled"},
    Text{IDS_STATE_NAME, "State"},
    Text{IDS_INVALID_MODEL, "Not a valid Morvane model file"},
    Text{IDS_VERSION_FORMAT,
         "Version not compatible.\nDocument Version Supported:%2.1f\n"
         "Document Being Opened:%2.1f"},
    Text{IDS_CORRUPT_FILE, "Invalid or Corrupt File"},
    Text{IDS_ROUTE_REBUILT, "UnRecoverable error in the transition.. Re constructing..."},
    Text{IDS_CONFIRM_LINE_DELETION, "Please confirm deletion of line."},
    Text{IDS_SAVE_CHANGES, "Save changes to %1?"},
    Text{IDS_PICTURE_TOO_LARGE, "The chart is too large for a picture of this kind"},
    Text{IDS_PICTURE_KIND, "Pictures end in .png, .svg or .pdf"},
};

}  // namespace

std::string LoadText(unsigned id) {
  const auto found =
      std::lower_bound(kTexts.begin(), kTexts.end(), id,
                       [](const Text& text, unsigned wanted) { return text.id < wanted; });
  return found != kTexts.end() && found->id == id ? found->text : "-MISSING-";
}
