#include "ui/settings_profile.h"

#include "ui/qt_text.h"

namespace pyxis::ui {

namespace {

// The parts of a section's name become groups within groups.
QString KeyOf(const std::string& section, const std::string& name) {
  return FromText(section).replace(QLatin1Char('\\'), QLatin1Char('/')) + QLatin1Char('/') + FromText(name);
}

}  // namespace

int SettingsProfile::GetProfileInt(const std::string& section, const std::string& name, int defaultValue) {
  bool good = false;
  const int value =
      settings_.value(KeyOf(section, name)).toString().toInt(&good);  // a variant would cut a large number
  return good ? value : defaultValue;
}

void SettingsProfile::WriteProfileInt(const std::string& section, const std::string& name, int value) {
  settings_.setValue(KeyOf(section, name), value);
}

}  // namespace pyxis::ui
