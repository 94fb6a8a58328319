// The text that the buffer area shows while data goes to the writer.
#pragma once

#include <cstdint>
#include <string>

namespace pyxis {

// `languageId`: the system's default language; only its sublanguage counts.
std::string ComposeReadyText(std::uint16_t languageId);

}  // namespace pyxis
