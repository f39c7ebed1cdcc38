#include "persistence/ModelFile.h"

#include <exception>
#include <sstream>
#include <string_view>

#include "model/ModelStream.h"
#include "persistence/ChartText.h"
#include "platform/Files.h"
#include "platform/SystemError.h"
#include "resources/Texts.h"

namespace morvane {

std::string ModelFile::ReadText(const std::string& path, std::string& text) {
  try {
    std::string bytes;
    const FileResult read = ReadWholeFile(path, bytes);
    if (!read.Ok()) return read.ErrorText();
    text = FromDisk(WithoutMark(std::move(bytes)));
    return {};
  } catch (const std::exception&) {
    return LoadText(IDS_UNKNOWN_ERROR);
  }
}

std::string ModelFile::Parse(const std::string& text, ChartText& chart) {
  try {
    std::istringstream in(text);
    ModelStream stream(in);
    chart.Read(stream);
    return {};
  } catch (const std::string& reason) {
    return reason;
  } catch (const std::exception&) {
    return LoadText(IDS_UNKNOWN_ERROR);
  }
}

std::string ModelFile::Load(const std::string& path, ChartText& chart) {
  std::string text;
  std::string reason = ReadText(path, text);
  return reason.empty() ? Parse(text, chart) : reason;
}

std::string ModelFile::Save(const std::string& path, const std::string& text) {
  try {
    return ReasonOf(WriteWholeFile(path, ToDisk(text)));
  } catch (const std::exception&) {
    return LoadText(IDS_UNKNOWN_ERROR);
  }
}

std::string ModelFile::ReasonOf(const FileResult& written) {
  const bool isRefused = written.stage == FileResult::Stage::Open && !IsAdvice(written.error);
  if (isRefused) return LoadText(IDS_CANNOT_WRITE);
  return written.Ok() ? std::string() : written.ErrorText();
}

std::string ModelFile::FromDisk(std::string bytes) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const bool pair = bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n';
    if (!pair) bytes[kept++] = bytes[i];
  }
  bytes.resize(kept);
  return bytes;
}

std::string ModelFile::WithoutMark(std::string bytes) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (bytes.starts_with(mark)) bytes.erase(0, mark.size());
  return bytes;
}

std::string ModelFile::ToDisk(const std::string& text) {
  std::string bytes;
  bytes.reserve(text.size() + text.size() / 8);
  for (const char c : text) {
    if (c == '\n') bytes += '\r';
    bytes += c;
  }
  return bytes;
}

}  // namespace morvane
