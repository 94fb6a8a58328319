// The system's default language identifier: primary language in the low ten bits, sublanguage above them.
#pragma once

#include <cstdint>
#include <string>

namespace pyxis {

class Language {
 public:
  virtual ~Language() = default;
  virtual std::uint16_t GetSystemDefaultLangID() = 0;
};

// The identifier of a locale name such as "zh_TW.UTF-8", by the published table of language identifiers; 0x0400 (no
// language, sublanguage 1) for names that the table doesn't hold.
std::uint16_t LangIdOfLocale(const std::string& locale);

}  // namespace pyxis
