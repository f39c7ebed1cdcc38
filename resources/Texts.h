#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace morvane {

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
  IDS_TIDY_NO_ROOM = 33011,
  IDS_IMPORT_REMARKS = 33012,
  IDS_RECOVERY_CAPTION = 33050,
  IDS_RECOVERY_CRASHED = 33051,
  IDS_RECOVERY_ENDED = 33052,
  IDS_RECOVERY_REPORT = 33053,
  IDS_RECOVERY_LATER = 33054,
  IDS_CONFIRM_DISCARD = 33055,
  IDS_LAST_CHANGE = 33056,
  IDS_UNSAVED_CHANGES = 33057,
  IDS_NO_FILE_YET = 33058,
  IDS_NO_PREVIEW = 33059,
  IDS_RECOVER = 33060,
  IDS_RECOVER_SAVE_AS = 33061,
  IDS_DISCARD = 33062,
  IDS_RECOVER_ALL = 33063,
  IDS_CLOSE = 33064,
  IDS_FROM_NEXT_START = 33065,
  IDS_SYSTEM_LANGUAGE = 33066,
  IDS_REOPEN_NEVER = 33067,
  IDS_REOPEN_CRASH = 33068,
  IDS_REOPEN_ALWAYS = 33069,
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
  IDS_OLD_ENCODING = 33084,
  IDS_MIXED_ENCODING = 33085,
  IDS_BECAME_UTF8 = 33086,
  IDS_OBJECTS = 33088,
  IDS_TOOL_NOT_RUN = 33089,
  IDS_TOOL_RUNS = 33090,
  IDS_TOOL_FINISHED = 33091,
  IDS_TOOL_EXIT_CODE = 33092,
  IDS_TOOL_SIGNAL = 33093,
  IDS_TOOL_ENDED = 33094,
  IDS_TOOL_NOT_STARTED = 33095,
  IDS_PLACE_GONE = 33096,
  IDS_FOLDER_NOT_THERE = 33097,
  IDS_FOLDER_NOT_SHOWN = 33098,
  IDS_FIND_NAME = 33120,
  IDS_FIND_PROPERTY = 33121,
  IDS_NOTHING_FOUND = 33122,
  IDS_FOUND_COUNT = 33123,
  IDS_REPLACED_COUNT = 33124,
  IDS_BAD_EXPRESSION = 33125,
  IDS_SEARCH_TOO_LONG = 33126,
  IDS_READ_STATE = 33160,
  IDS_READ_INITIAL = 33161,
  IDS_READ_FINAL = 33162,
  IDS_READ_IN = 33163,
  IDS_READ_HISTORY = 33164,
  IDS_READ_TRANSITION = 33165,
  IDS_READ_EVENT = 33166,
  IDS_FREE_END = 33167,
  IDS_READ_MESSAGE = 33168,
  IDS_READ_NOTE = 33169,
  IDS_READ_LINE = 33170,
  IDS_READ_ENTRY = 33171,
  IDS_READ_EXIT = 33172,
  IDS_READ_EFFECT = 33173,
  IDS_READ_CHART = 33174,
  IDS_CHARTS_SAME = 33180,
  IDS_EXPORTING = 33181,
  IDS_PROBLEM_OF_OBJECT = 33190,
  IDS_OBJECT_OF_NUMBER = 33191,
  IDS_STATE_OF_NAME = 33192,
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

/// A text with parts in the places "%1" to "%9", in whatever order it has these. What a part holds
/// is not looked at, and a place without a part stays.
std::string Filled(std::string_view text, std::span<const std::string> parts);

/// What the current text source has for an English text of a menu, a prompt or a dialog; the
/// English text itself if it has nothing.
std::string Translate(std::string_view english);

/// The same for a sentence with places to fill.
std::string Said(std::string_view english, std::initializer_list<std::string> parts = {});
/// The same for the text with that id.
std::string Said(TextId id, std::initializer_list<std::string> parts);

}  // namespace morvane
