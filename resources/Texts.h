#pragma once

#include <span>
#include <string>
#include <string_view>

/// The numbers of the texts that a user sees.
enum TextId : unsigned {
  IDS_APP_TITLE = 128,
  IDS_CODEGEN_CAPTION = 171,
  IDS_OBJECT_BROWSER = 32894,
  IDS_CLIPBOARD_ERROR = 32895,
  IDS_ENTRY_EXIT_EDITOR = 32896,
  IDS_ENTRY = 32897,
  IDS_EXIT = 32898,
  IDS_EDITOR = 32899,
  IDS_WEB_NO_BROWSER = 32907,
  IDS_EVENT_EMPTY = 32910,
  IDS_ON_EVENT = 32911,
  IDS_FIND_OBJECT = 32912,
  IDS_FIND_DETAIL = 32913,
  IDS_FIND_EMPTY = 32914,
  IDS_FIND_STATE = 32915,
  IDS_UNDEFINED = 32916,
  IDS_FIND_MESSAGE = 32917,
  IDS_GENERATE_CPP = 32918,
  IDS_GENERATE_C = 32919,
  IDS_GENERATE_CSHARP = 32920,
  IDS_GENERATE_JAVA = 32921,
  IDS_GENERATE_XML = 32922,
  IDS_METAFILE_COPIED = 32924,
  IDS_SAVE_BEFORE_GENERATE = 32925,
  IDS_NOTHING_TO_GENERATE = 32926,
  IDS_CONFIRM_DELETION = 32927,
  IDS_MESG_PROPERTIES = 32928,
  IDS_HELP_NOT_FOUND = 32929,
  IDS_HELP_NO_VIEWER = 32930,
  IDS_CONFIRM_DELETE_SELECTED = 32931,
  IDS_INVALID_FILE = 32932,
  IDS_CANNOT_PASTE = 32933,
  IDS_NOTE = 32934,
  IDS_NOTE_PROPERTIES = 32935,
  IDS_INITIAL_STATE = 32936,
  IDS_FINAL_STATE = 32937,
  IDS_UNKNOWN_ERROR = 32939,
  IDS_CANNOT_WRITE = 32940,
  IDS_COMMAND_FAILED = 32941,
  IDS_SPLASH_FAILED = 32942,
  IDS_SPLASH_CORRUPT = 32945,
  IDS_VERSION = 32946,
  IDS_UNTITLED = 32952,
  IDS_STATE_NAME = 32955,
  IDS_CHART_BROWSER = 32959,

  // Texts of this program that have no number in older language libraries
  IDS_INVALID_MODEL = 33000,
  IDS_VERSION_FORMAT = 33001,
  IDS_CORRUPT_FILE = 33002,
  IDS_ROUTE_REBUILT = 33003,
  IDS_CONFIRM_LINE_DELETION = 33004,
  IDS_SAVE_CHANGES = 33008,
  IDS_PICTURE_TOO_LARGE = 33009,
  IDS_PICTURE_KIND = 33010,
  IDS_PRINT_NO_ROOM = 33011,
  IDS_PRINT_TOO_LARGE = 33012,
  IDS_PRINT_NO_SUCH_PAGE = 33013,
  IDS_PRINT_FAILED = 33014,
  IDS_PRINT_PAGE = 33015,
  IDS_SETTINGS_UNSAVED = 33016,
  IDS_LINE_TOO_LONG = 33020,
  IDS_OBJECTS_ADDED = 33070,
  IDS_OBJECTS_CHANGED = 33071,
  IDS_OBJECTS_REMOVED = 33072,
  IDS_PROPERTIES_CHANGED = 33073,
  IDS_NEVER_SAVED = 33074,
  IDS_FILE_CHANGED = 33075,
  IDS_FILE_GONE = 33076,
  IDS_OPEN_ELSEWHERE = 33077,
  IDS_FILE_EMPTY = 33078,
  IDS_OVERWRITE_CHANGED = 33079,
  IDS_OPEN_IN_OTHER_WINDOW = 33080,
  IDS_CONFIRM_REVERT = 33081,
  IDS_NOT_KEPT = 33083,
  IDS_OBJECTS = 33088,
};

struct EnglishText {
  unsigned id;
  const char* text;
};

/// The texts that are built into the program, in the order of their numbers.
std::span<const EnglishText> EnglishTexts();

/// The text with that id from the current text source, "-MISSING-" if there is none.
std::string LoadText(unsigned id);

/// A text with a name in the place of its "%1".
std::string WithName(std::string text, std::string_view name);

/// What the current text source has for an English text of a menu, a prompt or a dialog; the
/// English text itself if it has nothing. A key behind a tab stays as it is.
std::string Translate(std::string_view english);
