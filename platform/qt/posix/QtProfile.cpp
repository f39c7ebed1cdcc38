#include "platform/qt/posix/QtProfile.h"

#include <cerrno>
#include <fstream>
#include <optional>

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QTemporaryDir>

#include "drawing/TextCodec.h"
#include "drawing/qt/QtText.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Wording.h"

namespace morvane {

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

/// False only where there is surely none: a file that can't be looked at may be there.
bool IsThere(const QString& file) {
  std::string bytes;
  const FileResult read = ReadWholeFile(FromQPath(file), bytes);
  return read.error != ENOENT && read.error != ENOTDIR;
}

/// Makes a copy that nobody needs for long: it does not wait for the disk. False if it could not be
/// made with all bytes, as on a full disk.
bool CopyWhole(const QString& from, const QString& to) {
  std::string bytes;
  if (!ReadWholeFile(FromQPath(from), bytes).Ok()) return false;
  std::ofstream copy(FromQPath(to), std::ios::binary);
  copy << bytes;
  copy.close();
  return copy.good();
}

/// Keeps other running copies of the program from a file of settings.
class FileLock {
 public:
  explicit FileLock(const QString& path) : lock(path + ".lock") {
    QDir().mkpath(QFileInfo(path).path());
    // Where no lock can be had, as in a folder that takes no new files, the file may still take
    // what is to be stored.
    static_cast<void>(lock.tryLock(kLockMilliseconds));
  }

 private:
  QLockFile lock;
};

}  // namespace

QtProfile::QtProfile() : QtProfile(FromQPath(UserPath())) {}

QtProfile::QtProfile(const std::string& file) : path(ToQPath(file)) { Take(ReadIni(path)); }

QString QtProfile::NameOf(const std::string& section, const std::string& key) {
  return section.empty() ? ToQString(key) : ToQString(section) + '/' + ToQString(key);
}

std::optional<std::string> QtProfile::Find(const std::string& section, const std::string& key) {
  const auto found = values.find(NameOf(section, key));
  return found != values.end() ? found->second : std::nullopt;
}

bool QtProfile::IsDamaged(const std::string& section, const std::string& key) {
  const auto found = values.find(NameOf(section, key));
  return found != values.end() ? !found->second : damaged;
}

void QtProfile::Write(const std::string& section, const std::vector<Setting>& settings) {
  for (const auto& [key, value] : settings) Note(section, key, value);
  bool stored = false;
  {
    const FileLock lock(path);
    stored = StoreInFile();
  }
  if (!stored) ShowFailure();
}

void QtProfile::Change(const std::string& section,
                       const std::function<void(Section& values)>& change) {
  bool stored = true;
  {
    const FileLock lock(path);
    Refresh();
    const Section former = SectionOf(section);
    Section changed = former;
    change(changed);
    if (changed != former) {
      Note(section, former, changed);
      stored = StoreInFile();
    }
  }
  if (!stored) ShowFailure();
}

void QtProfile::Refresh() {
  // The toolkit takes a file of the same length and time for the one that it knows. Under the name
  // of a copy it knows none.
  const QTemporaryDir folder;
  const QString copy = folder.filePath("settings.ini");
  if (CopyWhole(path, copy)) Take(ReadIni(copy));
}

QtProfile::Stored QtProfile::ReadIni(const QString& file) {
  std::string bytes;
  if (!ReadWholeFile(FromQPath(file), bytes).Ok()) return {{}, IsThere(file)};
  const QSettings settings(file, QSettings::IniFormat);
  QVariantMap found = ValuesOf(settings);
  return {found, settings.status() != QSettings::NoError};
}

Profile::Section QtProfile::SectionOf(const std::string& section) const {
  const QString group = NameOf(section, "");
  Section texts;
  for (const auto& [name, text] : values) {
    const bool isIn = section.empty() ? !name.contains('/') : name.startsWith(group);
    const QString key = section.empty() ? name : name.mid(group.size());
    if (isIn) texts[ToBytes(key)] = text.value_or("");
  }
  return texts;
}

/// Puts down what has changed in a section, for the file and for those who ask.
void QtProfile::Note(const std::string& section, const Section& former, const Section& changed) {
  for (const auto& [key, text] : former) {
    if (changed.contains(key)) continue;
    values.erase(NameOf(section, key));
    unsaved.insert(NameOf(section, key), QVariant());
  }
  for (const auto& [key, text] : NewIn(changed, former)) Note(section, key, text);
}

void QtProfile::Note(const std::string& section, const std::string& key, const std::string& text) {
  const QString name = NameOf(section, key);
  values[name] = text;
  unsaved.insert(name, ValueOf(text));
}

/// What the file holds, and over it what it did not take yet.
void QtProfile::Take(const Stored& stored) {
  QVariantMap all = stored.values;
  for (auto i = unsaved.begin(); i != unsaved.end(); ++i) {
    if (i.value().isValid()) {
      all.insert(i.key(), i.value());
    } else {
      all.remove(i.key());
    }
  }
  values = TextsOf(all);
  damaged = stored.damaged;
}

bool QtProfile::StoreInFile() {
  // QSettings takes a file that it could write but half for a whole one, as on a full disk. So it
  // writes a copy, which is read back before it takes the place of the file.
  const QTemporaryDir folder;
  const QString copy = folder.filePath("settings.ini");
  if (IsThere(path) && !CopyWhole(path, copy)) return false;
  QVariantMap wanted;
  {
    QSettings settings(copy, QSettings::IniFormat);
    for (auto i = unsaved.begin(); i != unsaved.end(); ++i) {
      if (i.value().isValid()) {
        settings.setValue(i.key(), i.value());
      } else {
        settings.remove(i.key());
      }
    }
    wanted = ValuesOf(settings);
  }
  std::string bytes;
  if (!ReadWholeFile(FromQPath(copy), bytes).Ok()) return false;
  const QString again = folder.filePath("again.ini");
  if (!CopyWhole(copy, again)) return false;
  const QVariantMap written = ValuesOf(QSettings(again, QSettings::IniFormat));
  if (SteadyOf(written) != SteadyOf(wanted)) return false;
  if (!ReplaceWholeFile(FromQPath(path), bytes).Ok()) return false;
  unsaved.clear();
  values = TextsOf(wanted);
  damaged = false;  // what could not be read is gone
  return true;
}

void QtProfile::ShowFailure() {
  if (failureShown) return;
  failureShown = true;
  ShowMessage(Worded(kSettingsUnsaved) + "\n\n" + FromQPath(path), MB_ICONEXCLAMATION);
}

}  // namespace morvane
