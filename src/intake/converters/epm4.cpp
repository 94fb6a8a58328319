#include <algorithm>
#include <string>

#include "catalogue/chip_catalogue.h"
#include "intake/converters/dispatch.h"
#include "intake/converters/frame.h"

namespace pyxis {

namespace {

constexpr std::size_t kTemplateBytes = 128;  // all that these ICs take of their template
constexpr std::uint8_t kProtectSet = 2;

std::uint8_t ReadProtectByte(const Epm4Row& row, ConversionFrame& frame) {
  const std::uint8_t stored = frame.image.Byte(row.protectOffset);
  if (row.protect == ProtectByte::Plain) {
    frame.state.ImageUnprotected = stored == 1;
    return stored;
  }
  frame.state.ImageUnprotected = (stored & 1) == 0;
  return stored | kProtectSet;
}

void CopyBytes(ConversionFrame& frame, std::size_t from, std::size_t count, bool summed) {
  for (std::size_t at = from; at < from + count; at += 2) {
    frame.CopyPair(at);
    if (summed) frame.Sum(frame.image.Be16(at));
  }
}

void CopyOptionWords(const Epm4Row& row, ConversionFrame& frame) {
  for (std::size_t k = 0; k < row.options.notSummed + row.options.summed; ++k) {
    const std::size_t at = row.options.offset + 2 * k;
    frame.option.PutAt(Field::ExtraWords.offset + 2 * k, frame.image.Byte(at));
    frame.option.PutAt(Field::ExtraWords.offset + 2 * k + 1, frame.image.Byte(at + 1));
    if (k >= row.options.notSummed) frame.Sum(frame.image.Be16(at));
  }
}

void PatchExtraWords(const Epm4Row& row, ConversionFrame& frame) {
  const std::size_t first = Field::ExtraWords.offset;
  if (row.extra == ExtraPatch::ClearFirst) frame.option.PutAt(first, 0);
  if (row.extra != ExtraPatch::FromTemplate) return;
  const Image from(frame.templateBytes);
  frame.option.PutAt(first, from.Byte(Field::ConfigWord.offset) & kLowNibble);
  frame.option.PutAt(first + 1, from.Byte(Field::ConfigWord.offset + 1));
  frame.option.PutAt(first + 2, 0);
}

bool HasKey(const Epm4Key& key, const Image& image) { return key.offset == 0 || image.Byte(key.offset) == key.value; }

// The row, or that of its twin where this is the selected one.
const Epm4Row& SelectedOf(const Epm4Row& row, const std::string& selected) {
  if (row.twin == nullptr || selected != row.twin) return row;
  return *std::ranges::find(kEpm4Table, selected, &Epm4Row::ChipName);
}

}  // namespace

ConversionResults Convert(const Epm4Row& byCode, const ConvertRequest& request) {
  const Epm4Row& row = SelectedOf(byCode, request.SelectedChip);
  ConversionFrame frame(request);
  if (const auto code = frame.OpenProgramFile(); code != kConverted) return {code};
  if (!HasKey(row.key, frame.image)) return {frame.TellOpenError(kSourceFailed, frame.path)};
  if (row.serial) {
    if (const auto code = frame.OpenSerialFile(); code != kConverted) return {code};
  }
  frame.templateName = IcOfName(row.ChipName)->templateName;
  if (const auto code = frame.OpenPackages(); code != kConverted) return {code};

  const std::uint8_t protect = ReadProtectByte(row, frame);
  CopyBytes(frame, 0, row.imageBytes, true);
  CopyBytes(frame, row.imageBytes, row.tail.notSummed, false);
  CopyBytes(frame, row.imageBytes + row.tail.notSummed, row.tail.summed, true);

  frame.option.bytes.resize(std::min(frame.option.bytes.size(), kTemplateBytes));
  frame.option.bytes.resize(kTemplateBytes, 0xFF);
  CopyOptionWords(row, frame);
  PatchExtraWords(row, frame);
  frame.option.PutAt(Field::ProtectFlags.offset, protect);
  if (row.protect == ProtectByte::BitSet) frame.option.PutAt(Field::ProtectFlags.offset + 1, 0);
  frame.option.Put(Field::ImageChecksum, frame.state.ImageChecksum);
  return frame.Finish({.serial = row.serial, .zeroFillTo = row.packageLength}, ConversionFrame::Loaded::ProgramFile);
}

}  // namespace pyxis
