// The system's default language identifier: primary language in the low ten bits, sublanguage above them.
#pragma once

#include <cstdint>

namespace pyxis {

class Language {
 public:
  virtual ~Language() = default;
  virtual std::uint16_t GetSystemDefaultLangID() = 0;
};

}  // namespace pyxis
