// The USB ICs whose program file may be an EEPROM image as well.
#pragma once

#include <array>
#include <cstdint>

#include "intake/converters/argument_class.h"
#include "intake/converters/made_eeprom.h"
#include "intake/file_readers.h"

namespace pyxis {

// The bytes that tell the IC: the low byte, and the two low bits of the high byte.
struct UsbEepromId {
  std::uint32_t offset;  // bytes; 0: the image isn't tested
  std::uint8_t low, high;
};
inline constexpr UsbEepromId kNoId{.offset = 0, .low = 0, .high = 0};

struct UsbEepromRow {
  const char* ChipName;
  UsbEepromId id;
  std::uint32_t words;
  ArgumentClass argumentClass;
  const char* eepromName;    // that an EEPROM image must carry
  std::uint8_t eepromStart;  // of an EEPROM image, in units of 256 words
  bool loadsImage;           // LoadedFilePath is the image, else the data package
  ReadMode mode;
  std::uint32_t forcedLength;  // of the temporary image; 0: up to the highest address
  bool plainBytes;             // bytes go out and are summed in file order; OptionValue is the configuration byte
};

// clang-format off
inline constexpr auto kUsbEepromTable = std::to_array<UsbEepromRow>({
    {.ChipName = "QVL09", .id = {.offset = 16404, .low = 0x45, .high = 3}, .words = 8192, .argumentClass = ArgumentClass::C,
     .eepromName = "QVL09EEPROM", .eepromStart = 0x17, .loadsImage = false, .mode = kReadBlankWords,
     .forcedLength = 0, .plainBytes = false},
    {.ChipName = "QVL12", .id = {.offset = 16404, .low = 0x55, .high = 2}, .words = 8192, .argumentClass = ArgumentClass::C,
     .eepromName = "QVL12EEPROM", .eepromStart = 0x17, .loadsImage = false, .mode = kReadBlankWords,
     .forcedLength = 0, .plainBytes = false},
    {.ChipName = "QVL10", .id = {.offset = 12308, .low = 0x46, .high = 3}, .words = 6144, .argumentClass = ArgumentClass::B,
     .eepromName = "QVL10EEPROM", .eepromStart = 0x17, .loadsImage = true, .mode = kReadBlankWords, .forcedLength = 0,
     .plainBytes = false},
    {.ChipName = "QVL11", .id = {.offset = 8212, .low = 0x50, .high = 3}, .words = 4096, .argumentClass = ArgumentClass::B,
     .eepromName = kMadeEepromName, .eepromStart = 0x0F, .loadsImage = true, .mode = kReadBlankWords, .forcedLength = 0,
     .plainBytes = false},
    {.ChipName = "QVL07", .id = kNoId, .words = 12288, .argumentClass = ArgumentClass::B,
     .eepromName = "QVL07EEPROM", .eepromStart = 0x0F, .loadsImage = true, .mode = kReadZeroWords,
     .forcedLength = 0x6020, .plainBytes = true},
    {.ChipName = "QVX03", .id = kNoId, .words = 8192, .argumentClass = ArgumentClass::C,
     .eepromName = "QVL09EEPROM", .eepromStart = 0x17, .loadsImage = false, .mode = kReadBytes, .forcedLength = 0,
     .plainBytes = false},
});
// clang-format on

}  // namespace pyxis
