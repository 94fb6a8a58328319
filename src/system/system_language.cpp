#include "system/system_language.h"

#include <cstdlib>
#include <string_view>

namespace pyxis {

namespace {

struct LocaleId {
  std::string_view locale;
  std::uint16_t id;
};

// From the published table of language identifiers. A language alone stands for its first sublanguage.
constexpr LocaleId kLocales[] = {
    {"zh_TW", 0x0404}, {"zh_CN", 0x0804}, {"zh_HK", 0x0C04}, {"zh_SG", 0x1004}, {"zh_MO", 0x1404}, {"zh", 0x0804},
    {"en_US", 0x0409}, {"en_GB", 0x0809}, {"en_AU", 0x0C09}, {"en_CA", 0x1009}, {"en_NZ", 0x1409}, {"en_IE", 0x1809},
    {"en", 0x0409},    {"de_DE", 0x0407}, {"de_CH", 0x0807}, {"de_AT", 0x0C07}, {"de", 0x0407},    {"fr_FR", 0x040C},
    {"fr_BE", 0x080C}, {"fr_CA", 0x0C0C}, {"fr_CH", 0x100C}, {"fr", 0x040C},    {"it_IT", 0x0410}, {"it_CH", 0x0810},
    {"it", 0x0410},    {"es_MX", 0x080A}, {"es_ES", 0x0C0A}, {"es", 0x0C0A},    {"pt_BR", 0x0416}, {"pt_PT", 0x0816},
    {"pt", 0x0416},    {"nl_NL", 0x0413}, {"nl_BE", 0x0813}, {"nl", 0x0413},    {"sv_SE", 0x041D}, {"sv_FI", 0x081D},
    {"ja", 0x0411},    {"ko", 0x0412},    {"ru", 0x0419},    {"pl", 0x0415},    {"cs", 0x0405},    {"da", 0x0406},
    {"fi", 0x040B},    {"nb", 0x0414},    {"nn", 0x0814},    {"tr", 0x041F},    {"th", 0x041E},    {"vi", 0x042A},
};
constexpr std::uint16_t kNoLanguage = 0x0400;

}  // namespace

std::uint16_t LangIdOfLocale(const std::string& locale) {
  const std::string_view name = std::string_view(locale).substr(0, locale.find_first_of(".@"));
  if (name == "C" || name == "POSIX") return LangIdOfLocale("en_US");
  for (const std::string_view key : {name, name.substr(0, name.find('_'))})
    for (const LocaleId& entry : kLocales)
      if (entry.locale == key) return entry.id;
  return kNoLanguage;
}

std::uint16_t SystemLanguage::GetSystemDefaultLangID() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
    if (const char* value = std::getenv(variable); value != nullptr && *value != '\0') return LangIdOfLocale(value);
  return LangIdOfLocale("C");
}

}  // namespace pyxis
