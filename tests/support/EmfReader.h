#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "drawing/Metafile.h"

namespace morvane {

/// Reads an enhanced metafile record by record and holds it to the rules of the format; what breaks
/// one fails the test.
class EmfReader {
 public:
  enum RecordType : std::uint32_t {
    kHeader = 1,
    kPolygon = 3,
    kPolyline = 4,
    kPolyBezierTo = 5,
    kEndOfFile = 14,
    kSetTextColor = 24,
    kMoveTo = 27,
    kSaveDC = 33,
    kRestoreDC = 34,
    kSelectObject = 37,
    kCreatePen = 38,
    kCreateBrush = 39,
    kDeleteObject = 40,
    kEllipse = 42,
    kRectangle = 43,
    kArc = 45,
    kStrokeAndFillPath = 63,
    kCreateFont = 82,
    kExtTextOut = 84
  };

  explicit EmfReader(std::string bytes);

  template <class Value>
  Value Get(std::size_t at) const {
    Value v{};
    if (at + sizeof v <= emf.size()) std::memcpy(&v, emf.data() + at, sizeof v);
    return v;
  }
  std::uint32_t TypeOf(std::size_t record) const { return Get<std::uint32_t>(offsets[record]); }
  std::size_t CountOf(std::uint32_t type) const;
  POINT PointAtOffset(std::size_t at) const;
  RECT RectAtOffset(std::size_t at) const;

  /// Checks header, end and handles.
  void CheckFrame() const;
  /// The drawing calls, each with the objects that were selected.
  Metafile Replay() const;

  std::string emf;
  std::vector<std::size_t> offsets;

 private:
  void FollowHandles(std::size_t at);

  std::set<std::uint32_t> alive;
  std::uint32_t greatestHandle = 0;
};

}  // namespace morvane
