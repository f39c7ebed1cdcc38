#include "drawing/PdfWriter.h"

#include <array>
#include <cstdio>
#include <utility>

namespace morvane {

// The bytes behind the first line tell programs that move files that this one is no text.
PdfWriter::PdfWriter() : file("%PDF-1.6\n%\xE2\xE3\xCF\xD3\n") {}

int PdfWriter::Reserve() {
  offsets.push_back(0);
  return static_cast<int>(offsets.size());
}

void PdfWriter::Begin(int number) {
  offsets[static_cast<std::size_t>(number) - 1] = file.size();
  file += std::to_string(number) + " 0 obj\n<< ";
}

void PdfWriter::Dictionary(int number, std::string_view entries) {
  Begin(number);
  file.append(entries) += " >>\nendobj\n";
}

void PdfWriter::Stream(int number, std::string_view entries, std::string_view bytes) {
  Begin(number);
  file.append(entries).append(" /Length ") += std::to_string(bytes.size());
  file.append(" >>\nstream\n").append(bytes) += "\nendstream\nendobj\n";
}

std::string PdfWriter::Finish(int catalogue, int info, std::string_view mark) {
  const std::size_t table = file.size();
  const std::string count = std::to_string(offsets.size() + 1);
  file += "xref\n0 " + count + "\n0000000000 65535 f \n";
  for (const std::size_t offset : offsets) {
    constexpr std::size_t longestEntry = 32;
    std::array<char, longestEntry> entry{};
    std::snprintf(entry.data(), entry.size(), "%010zu 00000 n \n", offset);
    file += entry.data();
  }
  file += "trailer\n<< /Size " + count + " /Root " + Ref(catalogue) + " /Info " + Ref(info);
  file.append(" /ID [<").append(mark).append("> <").append(mark) += ">] >>\nstartxref\n";
  file += std::to_string(table) + "\n%%EOF\n";
  return std::move(file);
}

}  // namespace morvane
