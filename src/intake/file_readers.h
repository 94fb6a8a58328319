// The running image checksum and the readers that turn a program file into a flat temporary image.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "intake/read_mode.h"
#include "shell/ground/outcome.h"

namespace pyxis {

// One step of the 16-bit checksum (x^16 + x^15 + x^2 + 1, most significant bit first, no reflection, no final xor):
// takes ChecksumInput, which is 0 afterwards, into the ImageChecksum accumulator. All converters sum through it.
void UpdateChecksum();
// The step itself: the accumulator after the word.
std::uint16_t ChecksumAfter(std::uint16_t accumulator, std::uint16_t word);

// What the operator has to hear, at its moment; whoever asks for the work shows it.
using Report = std::function<void(const std::string&)>;

// Reads Intel HEX text, writes the flat image up to the highest data address. Addresses count words when the low digit
// of the first record's byte count is 2 (modes 2 and 3). A line ends with LF, with any number of CR before an LF, or
// with a lone CR. When forcedImageLength isn't 0, the image has exactly that many bytes.
// Failed: NotReadable and NotIntelHex, both with a line on standard output, and NotWritable.
Outcome MakeHexImage(const std::string& sourcePath, const std::string& imagePath, int mode,
                     std::uint32_t forcedImageLength = 0);
// The same: 0 on success, 1 on any failure.
int ReadIntelHex(const std::string& sourcePath, const std::string& imagePath, int mode,
                 std::uint32_t forcedImageLength = 0);

// 1 on success, 0 on failure (the other way round from ReadIntelHex). Wraps at most 256 EEPROM bytes into an image that
// bears `name`, of at most 12 characters.
int ReadEepromBin(const std::string& sourcePath, const std::string& imagePath, std::string_view name,
                  const Report& tell);

}  // namespace pyxis
