#include <algorithm>
#include <array>

#include "intake/converters/families.h"
#include "intake/converters/frame.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

// What becomes of ExtraWords' first bytes.
enum class ExtraPatch { None, ClearFirst, FromTemplate };
// Which byte the image's protect byte is.
enum class ProtectByte { BitSet, Plain };  // or-ed with 2, bit 0 set: protected; taken as it is, 1: not protected

constexpr std::size_t kNoOffset = 0;

struct Epm4Row {
  std::uint32_t ChipCode;
  const char* name;  // of the template
  std::size_t imageBytes;
  std::size_t protectOffset;
  std::size_t optionOffset;    // of the option words behind the image
  std::size_t wordsNotSummed;  // option words
  std::size_t wordsSummed;     // option words behind them
  std::size_t tailNotSummed;   // bytes behind the image that belong to the data, without checksum
  std::size_t tailSummed;      // bytes behind those, with checksum
  ProtectByte protect;
  ExtraPatch extra;
  bool serial;
  std::size_t packageLength;  // zero-filled up to it; 0: as it comes out
  std::size_t keyOffset;      // the byte that tells two ICs' images apart
  const char* keyChip;        // the selected chip that needs kKeyValue there, and the template's name then
};

constexpr std::uint8_t kKeyValue = 1;
constexpr auto kSet = ProtectByte::BitSet;
constexpr auto kPlain = ProtectByte::Plain;
constexpr auto kTemplate = ExtraPatch::FromTemplate;
constexpr auto kClear = ExtraPatch::ClearFirst;

// clang-format off
constexpr std::array<Epm4Row, 10> kTable{{
    // code    name      image  protect  option   words  tail     protect extra serial length key
    {0x1390,  "QV4301", 49152, 0x10002, 0x10000,  2, 13, 0, 0,    kSet,   kTemplate, false, 0,   kNoOffset, nullptr},
    {0x1393,  "QV4206", 65536, 0x10002, 0x10000,  2, 13, 0, 0,    kSet,   kTemplate, false, 256, 65598, "QV4207"},
    {0x13931, "QV4206", 65536, 0x10002, 0x10000,  2, 13, 0, 0,    kSet,   kTemplate, false, 256, 65598, "QV4207"},
    {0x1384,  "QV4205", 49152, 0x10002, 0x10000,  2, 13, 0, 0,    kSet,   kTemplate, false, 256, kNoOffset, nullptr},
    {0x1392,  "QV4204", 32768, 32770,   32768,    2, 13, 0, 0,    kSet,   kTemplate, true,  256, kNoOffset, nullptr},
    {0x1388,  "QV4202", 32768, 32770,   32768,    2, 13, 0, 0,    kSet,   kTemplate, false, 256, kNoOffset, nullptr},
    {0x1387,  "QV4201", 16384, 16386,   16384,    2, 13, 0, 0,    kSet,   kTemplate, true,  256, kNoOffset, nullptr},
    {0x1385,  "QV4107", 8192,  8192,    8192,     1, 13, 0, 0,    kSet,   kClear,    true,  256, kNoOffset, nullptr},
    {0x1357,  "QV4104", 8192,  8194,    8192,    16, 0,  0, 0,    kPlain, kClear,    true,  256, kNoOffset, nullptr},
    {0x1382,  "QV4101", 32768, 32770,   kNoOffset, 0, 0, 4, 2044, kSet,   ExtraPatch::None, false, 256, kNoOffset, nullptr},
}};
// clang-format on
static_assert(KeysAreUnique(kTable));

constexpr std::size_t kTemplateBytes = 128;  // all that these ICs take of their template
constexpr std::uint8_t kProtectSet = 2;

std::uint8_t ReadProtectByte(const Epm4Row& row, const Image& image) {
  const std::uint8_t stored = image.Byte(row.protectOffset);
  AppState& app = TheAppState();
  if (row.protect == ProtectByte::Plain) {
    app.conversion.ImageUnprotected = stored == 1;
    return stored;
  }
  app.conversion.ImageUnprotected = (stored & 1) != 0 ? 0 : 1;
  return stored | kProtectSet;
}

void CopyBytes(ConversionFrame& frame, std::size_t from, std::size_t count, bool summed) {
  for (std::size_t at = from; at < from + count; at += 2) {
    frame.WriteByte(frame.image.Byte(at));
    frame.WriteByte(frame.image.Byte(at + 1));
    if (summed) ConversionFrame::Sum(frame.image.Be16(at));
  }
}

void CopyOptionWords(const Epm4Row& row, ConversionFrame& frame) {
  const std::size_t words = row.wordsNotSummed + row.wordsSummed;
  for (std::size_t k = 0; k < words; ++k) {
    const std::size_t at = row.optionOffset + 2 * k;
    frame.option.PutAt(Field::ExtraWords.offset + 2 * k, frame.image.Byte(at));
    frame.option.PutAt(Field::ExtraWords.offset + 2 * k + 1, frame.image.Byte(at + 1));
    if (k >= row.wordsNotSummed) ConversionFrame::Sum(frame.image.Be16(at));
  }
}

void PatchExtraWords(const Epm4Row& row, ConversionFrame& frame) {
  const std::size_t first = Field::ExtraWords.offset;
  if (row.extra == ExtraPatch::ClearFirst) frame.option.PutAt(first, 0);
  if (row.extra != ExtraPatch::FromTemplate) return;
  const Image from(frame.templateBytes);
  frame.option.PutAt(first, from.Byte(Field::ConfigWord.offset) & 0x0F);
  frame.option.PutAt(first + 1, from.Byte(Field::ConfigWord.offset + 1));
  frame.option.PutAt(first + 2, 0);
}

int Convert(const Epm4Row& row, const ConvertRequest& request) {
  ConversionFrame frame(request, request.Path);
  if (int code = frame.OpenProgramFile(); code != 0) return code;
  const bool keyed = row.keyChip != nullptr && TheAppState().selection.SelectedChip == row.keyChip;
  if (keyed && frame.image.Byte(row.keyOffset) != kKeyValue) return frame.TellOpenError(kSourceFailed, frame.path);
  if (row.serial) {
    if (int code = frame.OpenSerialFile(); code != 0) return code;
  }
  if (int code = frame.OpenPackages(keyed ? row.keyChip : row.name); code != 0) return code;

  const std::uint8_t protect = ReadProtectByte(row, frame.image);
  CopyBytes(frame, 0, row.imageBytes, true);
  CopyBytes(frame, row.imageBytes, row.tailNotSummed, false);
  CopyBytes(frame, row.imageBytes + row.tailNotSummed, row.tailSummed, true);

  frame.option.bytes.resize(std::min(frame.option.bytes.size(), kTemplateBytes));
  frame.option.bytes.resize(kTemplateBytes, 0xFF);
  CopyOptionWords(row, frame);
  PatchExtraWords(row, frame);
  frame.option.PutAt(Field::ProtectFlags.offset, protect);
  if (row.protect == ProtectByte::BitSet) frame.option.PutAt(Field::ProtectFlags.offset + 1, 0);
  frame.option.Put(Field::ImageChecksum, TheAppState().conversion.ImageChecksum);
  return frame.Finish({.serial = row.serial, .zeroFillTo = row.packageLength}, frame.path);
}

}  // namespace

bool ConvertEpm4(const ConvertRequest& request, int& code) {
  const Epm4Row* row = FindRow(kTable, request.ChipCode);
  if (row != nullptr) code = Convert(*row, request);
  return row != nullptr;
}

}  // namespace pyxis
