// The language identifier of the system's locale.
#pragma once

#include <string>

#include "platform/language.h"

namespace pyxis {

// The identifier of a locale name such as "zh_TW.UTF-8", by the published table of language identifiers; 0x0400 (no
// language, sublanguage 1) for names that the table doesn't hold.
std::uint16_t LangIdOfLocale(const std::string& locale);

class SystemLanguage : public Language {
 public:
  std::uint16_t GetSystemDefaultLangID() override;
};

}  // namespace pyxis
