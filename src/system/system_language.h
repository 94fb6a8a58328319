// The language identifier of the system's locale.
#pragma once

#include "platform/language.h"

namespace pyxis {

class SystemLanguage : public Language {
 public:
  std::uint16_t GetSystemDefaultLangID() override;
};

}  // namespace pyxis
