// The two package files. OptionPackage (buffer_option.prog) is the header of a job: fixed offsets, started from the
// IC's template; the writer returns its copy as the 512 bytes of WriterInfoBlock. DataPackage (buffer_data.prog) is the
// bytes to burn, without header or trailer. Fields wider than a byte are big-endian, except DownloadTime.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace pyxis {

enum class ByteOrder { Big, Little, Bytes };

struct FieldPlace {
  std::size_t offset;
  std::size_t width;
  ByteOrder order;
};

namespace Field {
inline constexpr FieldPlace ChipNameField{0, 10, ByteOrder::Bytes};
inline constexpr FieldPlace ImageChecksum{16, 2, ByteOrder::Big};
inline constexpr FieldPlace ChecksumLength{20, 2, ByteOrder::Big};
inline constexpr FieldPlace UsedLength{22, 2, ByteOrder::Big};
inline constexpr FieldPlace ImageLength{24, 2, ByteOrder::Big};
inline constexpr FieldPlace ConfigAddress{26, 2, ByteOrder::Big};
inline constexpr FieldPlace LengthUnit{30, 1, ByteOrder::Bytes};
inline constexpr FieldPlace ReadBackOrder{31, 1, ByteOrder::Bytes};
inline constexpr FieldPlace ConfigWord{36, 2, ByteOrder::Big};
inline constexpr FieldPlace ConfigKind{38, 1, ByteOrder::Bytes};
inline constexpr FieldPlace DualStart{39, 2, ByteOrder::Big};
inline constexpr FieldPlace ProtectFlags{43, 2, ByteOrder::Bytes};
inline constexpr FieldPlace OptionWords{48, 4, ByteOrder::Bytes};
inline constexpr FieldPlace SerialHead{53, 6, ByteOrder::Bytes};
inline constexpr FieldPlace HeaderChecksum{59, 2, ByteOrder::Big};
inline constexpr FieldPlace SerialUnit{62, 1, ByteOrder::Bytes};  // for the writer alone
inline constexpr FieldPlace ChipClass{71, 1, ByteOrder::Bytes};
inline constexpr FieldPlace ProgramParameter{72, 2, ByteOrder::Big};
inline constexpr FieldPlace IspFlags{76, 1, ByteOrder::Bytes};
inline constexpr FieldPlace EepromImage{77, 1, ByteOrder::Bytes};
inline constexpr FieldPlace ProductionFlags{78, 1, ByteOrder::Bytes};
inline constexpr FieldPlace ProductionLimit{80, 4, ByteOrder::Bytes};  // packed decimal
inline constexpr FieldPlace PartialChecksum{84, 2, ByteOrder::Big};
inline constexpr FieldPlace SerialBlock{96, 32, ByteOrder::Bytes};
inline constexpr FieldPlace ExtraWords{128, 32, ByteOrder::Bytes};
inline constexpr FieldPlace DownloadTime{192, 16, ByteOrder::Little};
inline constexpr FieldPlace WriterModelByte{207, 1, ByteOrder::Bytes};
inline constexpr FieldPlace WriterStatus{244, 1, ByteOrder::Bytes};
inline constexpr FieldPlace ChipInfo{248, 8, ByteOrder::Bytes};
}  // namespace Field

inline constexpr char kOptionPackageName[] = "buffer_option.prog";
inline constexpr char kDataPackageName[] = "buffer_data.prog";
inline constexpr char kSerialFileName[] = "serial.txt";
// Bits of IspFlags.
inline constexpr std::uint8_t kExhvIspBit = 1;
inline constexpr std::uint8_t kIspBit = 2;
// SerialHead: direction and road, length in bytes, then start address and end mark, big-endian.
inline constexpr std::size_t kSerialLengthOffset = Field::SerialHead.offset + 1;
inline constexpr std::size_t kSerialStartOffset = Field::SerialHead.offset + 2;
inline constexpr std::size_t kSerialEndMarkOffset = Field::SerialHead.offset + 4;
// High half of SerialHead's first byte: the road on which a series reaches the writer.
inline constexpr std::uint8_t kSerialByMenu = 0x10;
inline constexpr std::uint8_t kSerialBySelection = 0x20;
inline constexpr std::uint8_t kSerialRoadBits = 0xF0;
// The whole byte: a series by the menu, low byte first, whose job has to be loaded anew.
inline constexpr std::uint8_t kSerialNeedsReload = kSerialByMenu;
// Second half of SerialBlock: the first serial of the series. The first half is the one behind the last.
inline constexpr std::size_t kSerialBytes = Field::SerialBlock.width / 2;  // of the longest serial number
inline constexpr std::size_t kFirstSerialOffset = Field::SerialBlock.offset + kSerialBytes;
inline constexpr std::uint8_t kSerialUnitLowFirst = 1;  // words, low byte first
inline constexpr std::uint8_t kChipClassOneTime = 1;
inline constexpr std::uint8_t kChipClassFlash = 17;  // MTP/Flash
// Low nibble of LengthUnit: what ImageLength counts. One configuration byte goes with kCountsBytesOfOne.
inline constexpr std::uint8_t kCountsBytesOfOne = 0;
inline constexpr std::uint8_t kCountsWords = 1;
inline constexpr std::uint8_t kCountsBytes = 2;
// Low nibble of ReadBackOrder: the words stand as in the program file, or their bytes are exchanged.
inline constexpr std::uint8_t kOrderExchanged = 1;
inline constexpr std::uint8_t kOrderOfData = 2;
// Low nibble of ConfigKind: whether Read Chip Info works.
inline constexpr std::uint8_t kTellsChipInfo = 0;
inline constexpr std::uint8_t kTellsNoChipInfo = 1;
// High half of WriterStatus: the production limit is used up.
inline constexpr std::uint8_t kStatusBits = 0xF0;
inline constexpr std::uint8_t kLimitUsedUp = 0x10;
// Of a 14-bit IC's configuration word: 0 means dual mode.
inline constexpr std::uint16_t kNotDualBit = 0x1000;
inline constexpr std::uint8_t kProductionMass = 16;
inline constexpr std::uint8_t kProductionLimit = 17;
// Of fields that hold a number in half a byte.
inline constexpr std::uint8_t kLowNibble = 0x0F;

std::string OptionPackagePath();  // in AppDir
std::string DataPackagePath();
std::string SerialFilePath();
// AppDir, HwFolder, separator, name, ".txt".
std::string TemplatePath(const std::string& name);

// Reads of a block or package that is long enough for the field.
std::uint8_t FieldByte(std::span<const std::uint8_t> package, FieldPlace field);
std::uint16_t FieldWord(std::span<const std::uint8_t> package, FieldPlace field);  // big-endian
// The words of DownloadTime; the day of the week and the milliseconds are nobody's business.
enum class TimePart : std::size_t { Year = 0, Month = 1, Day = 3, Hour = 4, Minute = 5, Second = 6 };
std::uint16_t DownloadTimePart(std::span<const std::uint8_t> package, TimePart part);
// kSerialByMenu or kSerialBySelection; anything else where the package tells no series.
std::uint8_t SerialRoadOf(std::span<const std::uint8_t> package);
// ChipNameField up to its first zero byte, at most 10 characters.
std::string ChipNameOf(std::span<const std::uint8_t> package);

}  // namespace pyxis
