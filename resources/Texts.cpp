#include "resources/Texts.h"

#include <algorithm>
#include <array>
#include <utility>

#include "resources/TextSource.h"

namespace morvane {

namespace {

using Text = EnglishText;

constexpr std::array kTexts = {
    Text{IDS_APP_TITLE, "Morvane"},
    Text{IDS_CODEGEN_CAPTION, "Code Generation Properties"},
    Text{IDS_OBJECT_BROWSER, "Object Browser"},
    Text{IDS_CLIPBOARD_ERROR, "Error accessing clipboard"},
    Text{IDS_ENTRY_EXIT_EDITOR, "Entry/Exit Editor"},
    Text{IDS_ENTRY, "Entry"},
    Text{IDS_EXIT, "Exit"},
    Text{IDS_EDITOR, "Editor"},
    Text{IDS_WEB_NO_BROWSER, "No default browser found for web files.\n\nPlease go to web page : "},
    Text{IDS_EVENT_EMPTY, "Event Cannot Be Empty"},
    Text{IDS_ON_EVENT, "onEvent"},
    Text{IDS_FIND_OBJECT, "Object"},
    Text{IDS_FIND_DETAIL, "Detail"},
    Text{IDS_FIND_EMPTY, "Please enter a search string"},
    Text{IDS_FIND_STATE, "State Entry/Exit"},
    Text{IDS_UNDEFINED, "Undefined"},
    Text{IDS_FIND_MESSAGE, "Transition Message"},
    Text{IDS_GENERATE_CPP, "C++ Code Generation"},
    Text{IDS_GENERATE_C, "ANSI C Code Generation"},
    Text{IDS_GENERATE_CSHARP, "C# (.Net) Code Generation"},
    Text{IDS_GENERATE_JAVA, "Java Code Generation"},
    Text{IDS_GENERATE_XML, "XML Generation"},
    Text{IDS_METAFILE_COPIED, "Chart copied to clipboard as metafile successfully."},
    Text{IDS_SAVE_BEFORE_GENERATE,
         "The model has to be saved before proceeding.\n\n"
         "Press OK to save and continue, Cancel to abort this operation."},
    Text{IDS_NOTHING_TO_GENERATE, "Empty model. Cannot generate file."},
    Text{IDS_CONFIRM_DELETION, "Please confirm deletion"},
    Text{IDS_MESG_PROPERTIES, "Message properties"},
    Text{IDS_HELP_NOT_FOUND, "Help file not found. Please reinstall Morvane"},
    Text{IDS_HELP_NO_VIEWER, "No default viewer found for help file.\n\nPlease manually open : "},
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
    Text{IDS_SPLASH_FAILED, "Morvane: Initialization error (E130), Please reinstall."},
    Text{IDS_SPLASH_CORRUPT, "Corrupted Installation. Please reinstall."},
    Text{IDS_VERSION, "Version"},
    Text{IDS_UNTITLED, "Untitled"},
    Text{IDS_STATE_NAME, "State"},
    Text{IDS_CHART_BROWSER, "Chart Browser"},
    Text{IDS_INVALID_MODEL, "Not a valid Morvane model file"},
    Text{IDS_VERSION_FORMAT,
         "Version not compatible.\nDocument Version Supported:%2.1f\n"
         "Document Being Opened:%2.1f"},
    Text{IDS_CORRUPT_FILE, "Invalid or Corrupt File"},
    Text{IDS_ROUTE_REBUILT, "UnRecoverable error in the transition.. Re constructing..."},
    Text{IDS_CONFIRM_LINE_DELETION, "Please confirm deletion of line."},
    Text{IDS_SAVE_CHANGES, "Save changes to %1?"},
    Text{IDS_PICTURE_TOO_LARGE, "The chart is too large for a picture of this kind"},
    Text{IDS_PICTURE_KIND, "Pictures end in .png, .svg, .pdf or .emf"},
    Text{IDS_TIDY_NO_ROOM,
         "There is no room to tidy up without putting something into another state. Nothing has "
         "been changed."},
    Text{IDS_IMPORT_REMARKS,
         "Some of the file has no counterpart in a chart. It stands in a note of the chart:"},
    Text{IDS_RECOVERY_CAPTION, "Recover Charts"},
    Text{IDS_RECOVERY_CRASHED, "Morvane has crashed before these changes were saved."},
    Text{IDS_RECOVERY_ENDED, "Morvane has ended before these changes were saved."},
    Text{IDS_RECOVERY_REPORT, "What is known of the crash stands in this file:"},
    Text{IDS_RECOVERY_LATER,
         "What is still in this list when you close it is offered again at the next start."},
    Text{IDS_CONFIRM_DISCARD,
         "The unsaved changes of %1 will be lost.\n\nDo you want to continue ?"},
    Text{IDS_LAST_CHANGE, "Last change: %1"},
    Text{IDS_UNSAVED_CHANGES, "Unsaved: %1"},
    Text{IDS_NO_FILE_YET, "Not in a file yet"},
    Text{IDS_NO_PREVIEW, "No preview"},
    Text{IDS_RECOVER, "Recover"},
    Text{IDS_RECOVER_SAVE_AS, "Save As..."},
    Text{IDS_DISCARD, "Discard"},
    Text{IDS_RECOVER_ALL, "Recover All"},
    Text{IDS_CLOSE, "Close"},
    Text{IDS_FROM_NEXT_START, "from the next start on"},
    Text{IDS_SYSTEM_LANGUAGE, "System language"},
    Text{IDS_REOPEN_NEVER, "Never"},
    Text{IDS_REOPEN_CRASH, "After a crash"},
    Text{IDS_REOPEN_ALWAYS, "Always"},
    Text{IDS_OBJECTS_ADDED, "%1 added"},
    Text{IDS_OBJECTS_CHANGED, "%1 changed"},
    Text{IDS_OBJECTS_REMOVED, "%1 removed"},
    Text{IDS_PROPERTIES_CHANGED, "properties or view changed"},
    Text{IDS_NEVER_SAVED, "never saved"},
    Text{IDS_FILE_CHANGED, "Another program has changed the file of this chart."},
    Text{IDS_FILE_GONE, "The file of this chart is no longer there."},
    Text{IDS_OPEN_ELSEWHERE, "This chart is open in another running Morvane, too."},
    Text{IDS_FILE_EMPTY, "this file is empty"},
    Text{IDS_OVERWRITE_CHANGED,
         "The file %1 is not the one that was read: another program has changed it.\n\n"
         "Do you want to save over it ?"},
    Text{IDS_OPEN_IN_OTHER_WINDOW,
         "The chart %1 is open in another window.\n\nPlease close it first, or choose another "
         "name."},
    Text{IDS_CONFIRM_REVERT,
         "This will go back to the chart that the file %1 holds.\n\nDo you want to continue ?"},
    Text{IDS_NOT_KEPT,
         "Changes of this chart cannot be kept for a recovery: the disk may be full."},
    Text{IDS_OLD_ENCODING,
         "This chart has texts in Windows-1252. Texts that you enter are saved in that encoding, "
         "too, until you convert the chart."},
    Text{IDS_MIXED_ENCODING,
         "This chart has texts in Windows-1252 and others in UTF-8. The next change puts all of "
         "them into one encoding."},
    Text{IDS_BECAME_UTF8,
         "Windows-1252 lacks a letter that was entered, so that all texts of this chart were "
         "converted to UTF-8. Undo takes that back."},
    Text{IDS_OBJECTS, "Objects: %1"},
    Text{IDS_TOOL_NOT_RUN, "Not started yet"},
    Text{IDS_TOOL_RUNS, "Running..."},
    Text{IDS_TOOL_FINISHED, "Finished"},
    Text{IDS_TOOL_EXIT_CODE, "Failed with exit code %1"},
    Text{IDS_TOOL_SIGNAL, "Ended by signal %1"},
    Text{IDS_TOOL_ENDED, "Ended"},
    Text{IDS_TOOL_NOT_STARTED, "Could not be started"},
    Text{IDS_PLACE_GONE, "What this message is about is no longer on the chart."},
    Text{IDS_FOLDER_NOT_THERE, "The folder %1 is not there."},
    Text{IDS_FOLDER_NOT_SHOWN, "The folder %1 cannot be shown: there is no program for that."},
    Text{IDS_FIND_NAME, "State Name"},
    Text{IDS_FIND_PROPERTY, "Property"},
    Text{IDS_NOTHING_FOUND, "Nothing found"},
    Text{IDS_FOUND_COUNT, "Occurrences found: %1"},
    Text{IDS_REPLACED_COUNT, "Occurrences replaced: %1"},
    Text{IDS_BAD_EXPRESSION, "This is no regular expression. At character %1"},
    Text{
        IDS_SEARCH_TOO_LONG,
        "The search takes too long and was given up; nothing was replaced. Please make the regular "
        "expression simpler."},
    Text{IDS_READ_STATE, "State %1"},
    Text{IDS_READ_INITIAL, "Initial state"},
    Text{IDS_READ_FINAL, "Final state"},
    Text{IDS_READ_IN, "%1 in %2"},
    Text{IDS_READ_HISTORY, "%1, with history"},
    Text{IDS_READ_TRANSITION, "Transition from %1 to %2"},
    Text{IDS_READ_EVENT, "%1, event %2"},
    Text{IDS_FREE_END, "free end"},
    Text{IDS_READ_MESSAGE, "Message %1"},
    Text{IDS_READ_NOTE, "Note %1"},
    Text{IDS_READ_LINE, "Line from %1 to %2"},
    Text{IDS_READ_ENTRY, "On entry: %1"},
    Text{IDS_READ_EXIT, "On exit: %1"},
    Text{IDS_READ_EFFECT, "Effect: %1"},
    Text{IDS_READ_CHART, "Chart %1"},
    Text{IDS_CHARTS_SAME, "The chart does not differ from %1."},
    Text{IDS_EXPORTING, "Exporting the chart..."},
    Text{IDS_PROBLEM_OF_OBJECT, "%1 %2"},
    Text{IDS_OBJECT_OF_NUMBER, "%1 %2"},
    Text{IDS_STATE_OF_NAME, "%1 %2 \"%3\""},
};

class BuiltInEnglish : public TextSource {
 public:
  std::optional<std::string> Text(unsigned id) const override {
    const auto found = std::ranges::lower_bound(kTexts, id, {}, &EnglishText::id);
    if (found == kTexts.end() || found->id != id) return std::nullopt;
    return found->text;
  }
  std::optional<std::string> Translation(std::string_view) const override { return std::nullopt; }
  std::string Locale() const override { return "en"; }
};

TextSource* current = nullptr;

}  // namespace

TextSource& TextSource::Current() {
  static BuiltInEnglish english;
  if (current != nullptr) return *current;
  return english;
}

TextSource* TextSource::Use(TextSource* source) { return std::exchange(current, source); }

std::span<const EnglishText> EnglishTexts() { return kTexts; }

std::string LoadText(unsigned id) { return TextSource::Current().Text(id).value_or("-MISSING-"); }

std::string WithName(std::string text, std::string_view name) {
  const std::size_t place = text.find("%1");
  if (place != std::string::npos) text.replace(place, 2, name);
  return text;
}

std::string Filled(std::string_view text, std::span<const std::string> parts) {
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isPlace = text[i] == '%' && i + 1 < text.size() && text[i + 1] >= '1' &&
                         static_cast<std::size_t>(text[i + 1] - '1') < parts.size();
    if (isPlace) {
      filled += parts[static_cast<std::size_t>(text[++i] - '1')];
    } else {
      filled += text[i];
    }
  }
  return filled;
}

std::string Translate(std::string_view english) {
  return TextSource::Current().Translation(english).value_or(std::string(english));
}

std::string Said(std::string_view english, std::initializer_list<std::string> parts) {
  return Filled(Translate(english), std::span(parts.begin(), parts.size()));
}

std::string Said(TextId id, std::initializer_list<std::string> parts) {
  return Filled(LoadText(id), std::span(parts.begin(), parts.size()));
}

}  // namespace morvane
