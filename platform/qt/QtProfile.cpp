#include "platform/qt/QtProfile.h"

#include <optional>

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QTemporaryDir>

#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/TextCodec.h"
#include "platform/qt/QtText.h"
#include "resources/Texts.h"

namespace {

constexpr const char* kOrganisation = "Halvern";
constexpr const char* kApplication = "Morvane";
constexpr int kLockMilliseconds = 1000;

/// The text of a value; nothing if it is no text at all. A comma in a line that somebody wrote by
/// hand makes a list of it, whose pieces belong together.
std::optional<std::string> TextOf(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::QString: return ToBytes(value.toString());
    case QMetaType::QByteArray: return value.toByteArray().toStdString();
    case QMetaType::QStringList:
    case QMetaType::QVariantList: {
      const QStringList pieces = value.toStringList();
      return pieces.isEmpty() ? std::nullopt : std::optional(ToBytes(pieces.join(", ")));
    }
    default: return std::nullopt;
  }
}

/// Bytes that are no UTF-8, as a path may have, go to the file as they are.
QVariant ValueOf(const std::string& text) {
  return IsValidUtf8(text) ? QVariant(FromUtf8(text)) : QVariant(QByteArray::fromStdString(text));
}

QString UserPath() {
  return QSettings(QSettings::IniFormat, QSettings::UserScope, kOrganisation, kApplication)
      .fileName();
}

QVariantMap ValuesOf(const QSettings& settings) {
  QVariantMap values;
  for (const QString& key : settings.allKeys()) values.insert(key, settings.value(key));
  return values;
}

QtProfile::Texts TextsOf(const QVariantMap& values) {
  QtProfile::Texts texts;
  for (auto i = values.begin(); i != values.end(); ++i) texts[i.key()] = TextOf(i.value());
  return texts;
}

/// The values that read back as they were written. Of another kind, which this program does not
/// store, only the key is sure to come back.
QVariantMap SteadyOf(QVariantMap values) {
  for (QVariant& value : values) {
    const int type = value.typeId();
    if (type != QMetaType::QString && type != QMetaType::QByteArray) value.clear();
  }
  return values;
}

}  // namespace

QtProfile::QtProfile() : QtProfile(FromQPath(UserPath())) {}

QtProfile::QtProfile(const std::string& file)
    : path(ToQPath(file)), values(TextsOf(ValuesOf(QSettings(path, QSettings::IniFormat)))) {}

QString QtProfile::NameOf(const std::string& section, const std::string& key) {
  return section.empty() ? ToQString(key) : ToQString(section) + '/' + ToQString(key);
}

std::string QtProfile::GetString(const std::string& section, const std::string& key,
                                 const std::string& fallback) {
  const auto found = values.find(NameOf(section, key));
  return found != values.end() ? found->second.value_or(fallback) : fallback;
}

void QtProfile::Write(const std::string& section, const std::vector<Setting>& settings) {
  for (const auto& [key, value] : settings) {
    const QString name = NameOf(section, key);
    values[name] = value;
    unsaved.insert(name, ValueOf(value));
  }
  if (StoreInFile() || failureShown) return;
  failureShown = true;
  ShowMessage(LoadText(IDS_SETTINGS_UNSAVED) + "\n\n" + FromQPath(path), MB_ICONEXCLAMATION);
}

bool QtProfile::StoreInFile() {
  // QSettings takes a file that it could write but half for a whole one, as on a full disk. So it
  // writes a copy, which is read back before it takes the place of the file.
  const QTemporaryDir folder;
  const QString copy = folder.filePath("settings.ini");
  QDir().mkpath(QFileInfo(path).path());
  QLockFile lock(path + ".lock");
  // Where no lock can be had, as in a folder that takes no new files, the file may still take this.
  static_cast<void>(lock.tryLock(kLockMilliseconds));
  QFile::copy(path, copy);
  QVariantMap wanted;
  {
    QSettings settings(copy, QSettings::IniFormat);
    for (auto i = unsaved.begin(); i != unsaved.end(); ++i) settings.setValue(i.key(), i.value());
    wanted = ValuesOf(settings);
  }
  std::string bytes;
  if (!ReadWholeFile(FromQPath(copy), bytes).Ok()) return false;
  const QString again = folder.filePath("again.ini");
  QFile::copy(copy, again);
  const QVariantMap written = ValuesOf(QSettings(again, QSettings::IniFormat));
  if (SteadyOf(written) != SteadyOf(wanted)) return false;
  if (!ReplaceWholeFile(FromQPath(path), bytes).Ok()) return false;
  unsaved.clear();
  values = TextsOf(wanted);
  return true;
}
