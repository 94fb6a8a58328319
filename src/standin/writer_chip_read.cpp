// The chip read of the stand-in writer: the order in which a chip's contents go out.
#include <algorithm>

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "shell/ground/app_state.h"
#include "standin/writer_model.h"

namespace pyxis::standin {

namespace {

// A single byte at the end stays: an IC of bytes may have an odd number of them.
void ExchangeWords(std::vector<std::uint8_t>& bytes) {
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
}

void DropFront(std::vector<std::uint8_t>& bytes, std::size_t count) {
  bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(count, bytes.size())));
}

}  // namespace

std::vector<std::uint8_t> WriterModel::ChipData() {
  const bool asked = chipReadStarts_ == kChipReadStarts;
  chipReadStarts_ = 0;
  if (!asked) {
    Violate("chip data read without a chip read, which is started twice");
    return {};
  }
  // Shorter while a load is open.
  const ChipEntry* row = optionArea_.size() == kInfoBlockSize ? RowOfChip(ChipNameOf(optionArea_)) : nullptr;
  if (row == nullptr) {
    Violate("a chip read without a job or a template that names the chip");
    return {};
  }
  std::vector<std::uint8_t> bytes = chip.burnt;
  DropFront(bytes, row->ic->comparison.configBytes);  // in front of the data, and no part of the memory
  // The data of an EEPROM image begins at DualStart; of any other one at word 0.
  if (FieldByte(optionArea_, Field::EepromImage) == 0)
    DropFront(bytes, 2 * std::size_t{FieldWord(optionArea_, Field::DualStart)});
  const bool asInFile = (FieldByte(optionArea_, Field::ReadBackOrder) & kLowNibble) == kOrderOfData;
  if (asInFile == row->ReadSwapBytes) ExchangeWords(bytes);
  return bytes;
}

}  // namespace pyxis::standin
