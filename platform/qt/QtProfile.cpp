#include "platform/qt/QtProfile.h"

#include <charconv>
#include <optional>

#include "platform/TextCodec.h"
#include "platform/qt/QtText.h"

namespace {

constexpr const char* kOrganisation = "Halvern";
constexpr const char* kApplication = "Morvane";

/// The text of a value; nothing if it is no text at all. A comma in a line that somebody wrote by
/// hand makes a list of it, whose pieces belong together.
std::optional<std::string> TextOf(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::QString: return ToBytes(value.toString());
    case QMetaType::QByteArray: return value.toByteArray().toStdString();
    case QMetaType::QStringList: return ToBytes(value.toStringList().join(", "));
    default: return std::nullopt;
  }
}

}  // namespace

QtProfile::QtProfile()
    : settings(QSettings::IniFormat, QSettings::UserScope, kOrganisation, kApplication) {
  settings.setFallbacksEnabled(false);
}

QtProfile::QtProfile(const std::string& path) : settings(ToQPath(path), QSettings::IniFormat) {}

QString QtProfile::NameOf(const std::string& section, const std::string& key) {
  return section.empty() ? ToQString(key) : ToQString(section) + '/' + ToQString(key);
}

std::string QtProfile::GetString(const std::string& section, const std::string& key,
                                 const std::string& fallback) {
  return TextOf(settings.value(NameOf(section, key))).value_or(fallback);
}

std::int32_t QtProfile::GetInt(const std::string& section, const std::string& key,
                               std::int32_t fallback) {
  const std::string text = TextOf(settings.value(NameOf(section, key))).value_or("");
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, failure] = std::from_chars(text.data(), end, number);
  return failure == std::errc() && stop == end ? number : fallback;
}

void QtProfile::WriteString(const std::string& section, const std::string& key,
                            const std::string& value) {
  // Bytes that are no UTF-8, as a path may have, go to the file as they are.
  settings.setValue(NameOf(section, key), IsValidUtf8(value)
                                              ? QVariant(FromUtf8(value))
                                              : QVariant(QByteArray::fromStdString(value)));
  settings.sync();
}

void QtProfile::WriteInt(const std::string& section, const std::string& key, std::int32_t value) {
  settings.setValue(NameOf(section, key), QString::number(value));
  settings.sync();
}
