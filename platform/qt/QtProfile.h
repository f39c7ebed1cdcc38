#pragma once

#include <memory>

#include <QSettings>

#include "platform/Profile.h"

/// The user's settings in an INI file, each section a group, each number as decimal text.
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
  QSettings settings;
};
