#pragma once

#include <map>
#include <optional>

#include <QVariantMap>

#include "platform/Profile.h"

namespace morvane {

/// The user's settings in an INI file, each section a group, each number as decimal text. What
/// other running copies of the program store in it stays.
class QtProfile : public Profile {
 public:
  /// The texts of all values by their names; nothing for a value that is no text at all.
  using Texts = std::map<QString, std::optional<std::string>>;

  /// The user's own file.
  QtProfile();
  /// Another file.
  explicit QtProfile(const std::string& path);

  std::optional<std::string> Find(const std::string& section, const std::string& key) override;
  bool IsDamaged(const std::string& section, const std::string& key) override;
  void Write(const std::string& section, const std::vector<Setting>& settings) override;
  void Change(const std::string& section,
              const std::function<void(Section& values)>& change) override;
  void Refresh() override;

 private:
  /// The values of a file, and whether there is more in it than could be read.
  struct Stored {
    QVariantMap values;
    bool damaged = false;
  };

  static QString NameOf(const std::string& section, const std::string& key);
  static Stored ReadIni(const QString& file);
  Section SectionOf(const std::string& section) const;
  void Note(const std::string& section, const Section& former, const Section& changed);
  void Note(const std::string& section, const std::string& key, const std::string& text);
  void Take(const Stored& stored);
  bool StoreInFile();
  void ShowFailure();

  QString path;
  Texts values;
  bool damaged = false;
  QVariantMap unsaved;        ///< what the file did not take yet; a null value is to go from it
  bool failureShown = false;  ///< the user knows: a run says it once
};

}  // namespace morvane
