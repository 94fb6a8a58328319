#include <array>

#include "intake/file_readers.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::uint16_t kPolynomial = 0x8005;

constexpr std::array<std::uint16_t, 256> MakeTable() {
  std::array<std::uint16_t, 256> table{};
  for (unsigned i = 0; i < 256; ++i) {
    unsigned value = i << 8;
    for (int bit = 0; bit < 8; ++bit) value = (value & 0x8000) ? (value << 1) ^ kPolynomial : value << 1;
    table[i] = static_cast<std::uint16_t>(value);
  }
  return table;
}

constexpr std::array<std::uint16_t, 256> kTable = MakeTable();

constexpr std::uint16_t AfterByte(std::uint16_t accumulator, unsigned byte) {
  return static_cast<std::uint16_t>((accumulator << 8) ^ kTable[((accumulator >> 8) ^ byte) & 0xFF]);
}

}  // namespace

std::uint16_t ChecksumAfter(std::uint16_t accumulator, std::uint16_t word) {
  return AfterByte(AfterByte(accumulator, word >> 8), word & 0xFF);
}

void UpdateChecksum() {
  AppState& app = TheAppState();
  app.conversion.ImageChecksum = ChecksumAfter(app.conversion.ImageChecksum, app.conversion.ChecksumInput);
  app.conversion.ChecksumInput = 0;
}

}  // namespace pyxis
