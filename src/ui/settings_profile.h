// The application profile in the desktop's settings of the user.
#pragma once

#include <QSettings>

#include "platform/profile.h"

namespace pyxis::ui {

class SettingsProfile : public Profile {
 public:
  // The settings of the program "PyxisLoad"; or a file of its own.
  SettingsProfile() : settings_(QStringLiteral("PyxisLoad"), QStringLiteral("PyxisLoad")) {}
  explicit SettingsProfile(const QString& file) : settings_(file, QSettings::IniFormat) {}

  // A value that isn't there, or is no integer, gives the default.
  int GetProfileInt(const std::string& section, const std::string& name, int defaultValue) override;
  void WriteProfileInt(const std::string& section, const std::string& name, int value) override;

 private:
  QSettings settings_;
};

}  // namespace pyxis::ui
