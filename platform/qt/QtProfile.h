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
  std::int32_t GetInt(const std::string& section, const std::string& key,
                      std::int32_t fallback) override;
  void WriteString(const std::string& section, const std::string& key,
                   const std::string& value) override;
  void WriteInt(const std::string& section, const std::string& key, std::int32_t value) override;

 private:
  static QString NameOf(const std::string& section, const std::string& key);
  void Store(const QString& name, const QVariant& value);
  bool StoreInFile(const QString& name, const QVariant& value);

  QString path;
  QVariantMap values;
  bool failureShown = false;  ///< the user knows: a run says it once
};
