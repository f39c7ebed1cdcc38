#pragma once

#include <map>
#include <optional>

#include <QVariantMap>

#include "platform/Profile.h"

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

  std::string GetString(const std::string& section, const std::string& key,
                        const std::string& fallback) override;
  void Write(const std::string& section, const std::vector<Setting>& settings) override;

 private:
  static QString NameOf(const std::string& section, const std::string& key);
  bool StoreInFile();

  QString path;
  Texts values;
  QVariantMap unsaved;        ///< what the file did not take yet
  bool failureShown = false;  ///< the user knows: a run says it once
};
