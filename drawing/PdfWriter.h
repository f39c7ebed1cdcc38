#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// Writes the frame of a PDF file: numbered objects, the table of where they are, and the end.
class PdfWriter {
 public:
  PdfWriter();

  /// A number for an object that will be written.
  int Reserve();
  /// Writes what stands between the brackets of a dictionary.
  void Dictionary(int number, std::string_view entries);
  /// Writes a stream with the further entries of its dictionary.
  void Stream(int number, std::string_view entries, std::string_view bytes);
  /// Ends the file and hands it over. `mark` tells it from others, hexadecimal digits.
  std::string Finish(int catalogue, int info, std::string_view mark);

  /// A reference to an object.
  static std::string Ref(int number) { return std::to_string(number) + " 0 R"; }

 private:
  void Begin(int number);

  std::string file;
  std::vector<std::size_t> offsets;  ///< of the object with the number that is one greater
};

}  // namespace morvane
