#pragma once

#include <QVariantMap>

#include "platform/Profile.h"

/// The user's settings in an INI file, each section a group, each number as decimal text. What
/// other running copies of the program store in it stays.
class QtProfile : public Profile {
 public:
  /// The user's own file.
  QtProfile();
  /// Another file.
  explicit QtProfile(const std::string& path);

  std::string GetString(const std::string& section, const std::string& key,
                        const std::string& fallback) override;
  void Write(const std::string& section, const std::vector<Setting>& settings) override;

 private:
  static QString NameOf(const std::string& section, const std::string& key);
  bool StoreInFile(const QVariantMap& changed);

  QString path;
  QVariantMap values;
  bool failureShown = false;  ///< the user knows: a run says it once
};
