#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "drawing/Geometry.h"
#include "platform/ModalLoop.h"
#include "platform/PictureOptions.h"
#include "platform/Service.h"

namespace morvane {

/// The desktop's own dialogs. The default service has no screen and answers every dialog with
/// Cancel.
class Dialogs {
 public:
  struct FileFilter {
    std::string text;        ///< "Morvane Files (*.mrv)"
    std::string extension;   ///< ".mrv", given to a name that is typed without one
    bool hasGround = false;  ///< a picture that may be transparent instead
  };
  struct ExportRequest {
    std::vector<FileFilter> kinds;
    std::size_t kind = 0;       ///< the one of `kinds` to start from
    std::string suggestion;     ///< a path
    bool hasSelection = false;  ///< the user may choose to export the selection only
    PictureOptions options;     ///< to start from
  };
  struct ExportAnswer {
    std::string path;
    PictureOptions options;
  };
  struct FontChoice {
    std::string face;
    std::int32_t tenths = 0;  ///< the size in tenths of a point
    COLORREF colour = 0;
  };

  virtual ~Dialogs() = default;
  /// The path of a file to open; nothing on Cancel.
  virtual std::optional<std::string> AskOpenPath(const FileFilter& filter) = 0;
  /// The path to save to, starting from `suggestion`; the dialog has asked before an existing file
  /// is replaced. Nothing on Cancel.
  virtual std::optional<std::string> AskSavePath(const FileFilter& filter,
                                                 const std::string& suggestion) = 0;
  /// Where to export to. A name that is typed without an extension gets that of the chosen kind;
  /// the dialog has asked before an existing file is replaced. Nothing on Cancel.
  virtual std::optional<ExportAnswer> AskExport(const ExportRequest& request) = 0;
  /// A colour, starting from one; nothing on Cancel.
  virtual std::optional<COLORREF> AskColour(COLORREF start) = 0;
  /// A face, a size and a colour for text on the screen; nothing on Cancel.
  virtual std::optional<FontChoice> AskFont(const FontChoice& start) = 0;
  static Dialogs& Default();
};

/// Ask for the path to open or to save to, as the service does.
inline std::optional<std::string> AskOpenPath(const Dialogs::FileFilter& filter) {
  const ModalLoop loop;
  return Service<Dialogs>::Get().AskOpenPath(filter);
}
inline std::optional<std::string> AskSavePath(const Dialogs::FileFilter& filter,
                                              const std::string& suggestion) {
  const ModalLoop loop;
  return Service<Dialogs>::Get().AskSavePath(filter, suggestion);
}
inline std::optional<Dialogs::ExportAnswer> AskExport(const Dialogs::ExportRequest& request) {
  const ModalLoop loop;
  return Service<Dialogs>::Get().AskExport(request);
}

/// Lets the user choose another colour for a field; on Cancel it stays.
inline void ChooseColour(COLORREF& field) {
  const ModalLoop loop;
  field = Service<Dialogs>::Get().AskColour(field).value_or(field);
}

}  // namespace morvane
