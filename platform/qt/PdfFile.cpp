#include "platform/qt/PdfFile.h"

#include <algorithm>
#include <vector>

#include <QByteArray>
#include <QCryptographicHash>

#include "drawing/Decimal.h"
#include "drawing/PdfDC.h"
#include "drawing/PdfText.h"
#include "drawing/qt/PdfFace.h"
#include "drawing/qt/QtPdfFonts.h"

namespace morvane {

namespace {

constexpr int kFastCompression = 1;
constexpr qsizetype kLengthBytes = 4;  ///< that the toolkit puts in front

std::string Ref(int number) { return PdfWriter::Ref(number); }

}  // namespace

PdfFile::PdfFile(SIZE size, const PictureInfo& info)
    : size(size),
      info(info),
      catalogue(writer.Reserve()),
      pages(writer.Reserve()),
      page(writer.Reserve()),
      document(writer.Reserve()) {}

std::optional<std::string> PdfFile::Make(SIZE size, const PictureInfo& info,
                                         const Pictures::Paint& paint, CDC& reference,
                                         QtFontCache& fonts) {
  const double most = kMaxPoints / PdfDC::kPointsPerUnit / info.scale;
  if (size.cx <= 0 || size.cy <= 0 || size.cx > most || size.cy > most) return std::nullopt;
  QtPdfFonts used(fonts);
  PdfDC dc(reference, size, used);
  paint(dc);
  const std::string content = dc.Close();

  PdfFile file(size, info);
  file.WriteInfo();
  file.WriteOutline();
  std::string names;
  int number = 0;
  for (const auto& face : used.Faces()) {
    const std::string name = PdfDC::NameOfFace(number++);
    if (face->Kind() == PdfFace::Outlines::None) continue;
    names.append("/").append(name).append(" ").append(Ref(file.WriteFont(*face))) += ' ';
  }
  const int contents = file.writer.Reserve();
  file.WriteStream(contents, "", file.Scaling() + content);
  file.writer.Dictionary(file.page, "/Type /Page /Parent " + Ref(file.pages) + " /MediaBox [0 0 " +
                                        file.Points(size.cx) + " " + file.Points(size.cy) +
                                        "] /Contents " + Ref(contents) +
                                        " /Resources << /Font << " + names + ">> >>");
  file.writer.Dictionary(file.pages, "/Type /Pages /Count 1 /Kids [" + Ref(file.page) + "]");
  std::string view;
  if (file.outline != 0) view.append(" /PageMode /UseOutlines /Outlines ") += Ref(file.outline);
  file.writer.Dictionary(file.catalogue, "/Type /Catalog /Pages " + Ref(file.pages) +
                                             " /ViewerPreferences << /DisplayDocTitle true >>" +
                                             view);
  QCryptographicHash hash(QCryptographicHash::Md5);
  for (const std::string& text : {content, info.title, info.author}) {
    hash.addData(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  }
  return file.writer.Finish(file.catalogue, file.document, hash.result().toHex().toStdString());
}

std::string PdfFile::Points(double units) const {
  return Decimal(units * PdfDC::kPointsPerUnit * info.scale, 2);
}

std::string PdfFile::Scaling() const {
  if (info.scale == 1) return {};
  constexpr int digits = 6;
  const std::string factor = Decimal(info.scale, digits);
  return factor + " 0 0 " + factor + " 0 0 cm\n";
}

void PdfFile::WriteInfo() {
  const std::string creator = PdfText(PictureInfo::kCreator);
  std::string entries = "/Creator " + creator + " /Producer " + creator;
  if (!info.title.empty()) entries += " /Title " + PdfText(info.title);
  if (!info.author.empty()) entries += " /Author " + PdfText(info.author);
  writer.Dictionary(document, entries);
}

void PdfFile::WriteStream(int number, const std::string& entries, const std::string& bytes) {
  const QByteArray packed = qCompress(reinterpret_cast<const uchar*>(bytes.data()),
                                      static_cast<qsizetype>(bytes.size()), kFastCompression);
  const std::string_view stream(packed.constData() + kLengthBytes,
                                static_cast<std::size_t>(packed.size() - kLengthBytes));
  writer.Stream(number, "/Filter /FlateDecode" + entries, stream);
}

int PdfFile::WriteFont(PdfFace& face) {
  const int font = writer.Reserve();
  const int letters = writer.Reserve();
  const int characters = writer.Reserve();
  const std::string name = face.Name();
  const bool isTrueType = face.Kind() == PdfFace::Outlines::TrueType;
  writer.Dictionary(font, "/Type /Font /Subtype /Type0 /BaseFont /" + name +
                              " /Encoding /Identity-H /DescendantFonts [" + Ref(letters) +
                              "] /ToUnicode " + Ref(characters));
  writer.Dictionary(
      letters, "/Type /Font /Subtype /CIDFontType" + std::string(isTrueType ? "2" : "0") +
                   " /BaseFont /" + name +
                   " /CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >>" +
                   (isTrueType ? " /CIDToGIDMap /Identity" : "") + " /FontDescriptor " +
                   WriteDescriptor(face, name) + " /DW 0 /W " + face.Widths());
  WriteStream(characters, "", face.ToUnicode());
  return font;
}

/// Gives a reference to it.
std::string PdfFile::WriteDescriptor(PdfFace& face, const std::string& name) {
  constexpr int symbolic = 4;
  constexpr int italic = 64;
  const bool isTrueType = face.Kind() == PdfFace::Outlines::TrueType;
  const int descriptor = writer.Reserve();
  const int program = writer.Reserve();
  const std::string bytes = face.Subset();
  const std::string up = std::to_string(face.Ascent());
  const std::string down = std::to_string(-face.Descent());
  writer.Dictionary(
      descriptor, "/Type /FontDescriptor /FontName /" + name + " /Flags " +
                      std::to_string(symbolic | (face.IsItalic() ? italic : 0)) +
                      " /FontBBox [-1000 " + down + " 2000 " + up + "] /ItalicAngle 0 /Ascent " +
                      up + " /Descent " + down + " /CapHeight " + std::to_string(face.CapHeight()) +
                      " /StemV 80 /FontFile" + (isTrueType ? "2 " : "3 ") + Ref(program));
  WriteStream(program,
              isTrueType ? " /Length1 " + std::to_string(bytes.size()) : " /Subtype /OpenType",
              bytes);
  return Ref(descriptor);
}

std::string PdfFile::Destination(POINT corner) const {
  std::string text = "[";
  text.append(Ref(page)).append(" /XYZ ").append(Points(corner.x)) += ' ';
  return text.append(Points(static_cast<double>(size.cy) - corner.y)) += " null]";
}

/// Each entry knows its neighbours, what it stands in and the first and last of what stands in it.
void PdfFile::WriteOutline() {
  struct Entry {
    int number = 0;
    int parent = -1;
    int first = -1;
    int last = -1;
    int former = -1;
    int next = -1;
    int count = 0;  ///< of all that stand in it, however deep
  };
  if (info.outline.empty()) return;
  std::vector<Entry> entries(info.outline.size() + 1);
  for (Entry& entry : entries) entry.number = writer.Reserve();
  outline = entries[0].number;
  std::vector<int> open{0};  // from the root down to the last entry
  for (std::size_t i = 0; i < info.outline.size(); ++i) {
    const int own = static_cast<int>(i) + 1;
    const auto depth = static_cast<std::size_t>(std::max(info.outline[i].depth, 0));
    open.resize(std::min(open.size(), depth + 1));
    Entry& entry = entries[static_cast<std::size_t>(own)];
    Entry& parent = entries[static_cast<std::size_t>(open.back())];
    entry.parent = open.back();
    entry.former = parent.last;
    if (parent.last >= 0) entries[static_cast<std::size_t>(parent.last)].next = own;
    if (parent.first < 0) parent.first = own;
    parent.last = own;
    for (const int around : open) ++entries[static_cast<std::size_t>(around)].count;
    open.push_back(own);
  }
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const Entry& entry = entries[i];
    std::string text = i == 0 ? "/Type /Outlines" : "/Title " + PdfText(info.outline[i - 1].name);
    const auto link = [&](const char* key, int other) {
      if (other >= 0) text.append(key) += Ref(entries[static_cast<std::size_t>(other)].number);
    };
    link(" /Parent ", entry.parent);
    link(" /Prev ", entry.former);
    link(" /Next ", entry.next);
    link(" /First ", entry.first);
    link(" /Last ", entry.last);
    if (entry.count > 0) text += " /Count " + std::to_string(entry.count);
    if (i > 0) text += " /Dest " + Destination(info.outline[i - 1].corner);
    writer.Dictionary(entry.number, text);
  }
}

}  // namespace morvane
