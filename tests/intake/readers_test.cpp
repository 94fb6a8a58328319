#include "intake/file_readers.h"
#include "platform/hex_digits.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class Readers : public Bench {
 protected:
  std::optional<Bytes> ReadHex(const std::string& text, int mode) {
    WriteText("a.hex", text);
    testing::internal::CaptureStdout();
    const int result = ReadIntelHex(Path("a.hex"), Path("a.bin"), mode);
    printed = testing::internal::GetCapturedStdout();
    if (result != 0) return std::nullopt;
    return Contents("a.bin");
  }
  std::string printed;
};

std::uint16_t SumOf(std::initializer_list<std::uint16_t> words) {
  TheAppState().conversion.ImageChecksum = 0xFFFF;
  for (const std::uint16_t word : words) {
    TheAppState().conversion.ChecksumInput = word;
    UpdateChecksum();
    EXPECT_EQ(TheAppState().conversion.ChecksumInput, 0);
  }
  return TheAppState().conversion.ImageChecksum;
}

TEST_F(Readers, Checksum) {
  EXPECT_EQ(SumOf({0x0061, 0x0062, 0x0063}), 0x1742);
  EXPECT_EQ(SumOf({0x6162, 0x0063}), 0x12D7);
  // Bit by bit, as the polynomial is defined.
  for (unsigned seed = 1; seed < 0x10000; seed += 251) {
    unsigned expected = seed ^ 0x5A5A, word = seed * 7 & 0xFFFF;
    for (int i = 0; i < 16; ++i, word <<= 1)
      expected = ((expected << 1) ^ (((expected ^ word) & 0x8000) != 0 ? 0x8005U : 0U)) & 0xFFFF;
    ASSERT_EQ(ChecksumAfter(static_cast<std::uint16_t>(seed ^ 0x5A5A), static_cast<std::uint16_t>(seed * 7)), expected);
  }
}

TEST_F(Readers, ParsesDigits) {
  for (const auto& [text, value] : Table<const char*, std::uint32_t>{
           {"", 0}, {"00 0a", 10}, {"FFFFFFFF1", 0xFFFFFFFF}, {"12g4", 0x12}, {"  7", 7}, {"xyz", 0}})
    EXPECT_EQ(ParseHexDigits(text), value) << text;
}

TEST_F(Readers, IntelHexImages) {
  // clang-format off
  for (const auto& [why, text, mode, length, at, value] :
       Table<const char*, const char*, int, std::size_t, std::size_t, std::uint8_t>{
           {"word addresses", ":020100001234B7\n", 2, 0x202, 0x200, 0x12},
           {"byte addresses", ":020100001234B7\n", 1, 0x102, 0x100, 0x12},
           {"the low digit decides", ":12000200000102030405060708090A0B0C0D0E0F1011\n", 2, 0x16, 0x04, 0x00},
           {"fill of words", ":0200020012347\n", 2, 6, 1, 0x3F},
           {"fill of zeros", ":0200020012347\n", 3, 6, 1, 0x00},
           {"fill of words behind zeros", ":0200020012347\n", 2, 6, 2, 0xFF},
           {"only an end record", ":00000001FF\n", 2, 0, 0, 0},
           {"type 4 is data", ":01000500AAF0\n:020000040001F9\n", 1, 6, 1, 0x01},
           {"types 2 and 3 are passed over", ":01000000AA00\n:020000021234\n:020000031234\n", 1, 1, 0, 0xAA},
           {"lower case, wrong checksum", ":01000000ab00\n", 1, 1, 0, 0xAB},
           {"a strange digit is 0", ":01000000G700\n", 1, 1, 0, 0x07},
           {"a cut line gives zeros", ":04000000AABB", 1, 4, 3, 0x00},
           {"no line after the strange one", ":01000000AA55\nx\n:01000100BB44\n", 1, 1, 0, 0xAA},
           {"nothing after the end record", ":01000000AA55\n:00000001FF\n:01000100BB44\n", 1, 1, 0, 0xAA},
           {"nothing behind the buffer", ":04FFFE0001020304F4\n", 1, 0x10000, 0xFFFF, 0x02},
           {"nor in words", ":02800000FFFF\n", 2, 0, 0, 0}}) {
    // clang-format on
    SCOPED_TRACE(why);
    const auto image = ReadHex(text, mode);
    ASSERT_TRUE(image);
    ASSERT_EQ(image->size(), length);
    if (at < length) {
      EXPECT_EQ((*image)[at], value);
    }
  }
}

TEST_F(Readers, IntelHexFailures) {
  EXPECT_FALSE(ReadHex("", 1));
  EXPECT_FALSE(ReadHex("hello\n", 1));
  EXPECT_EQ(printed, "File " + Path("a.hex") + " Not Intel HEX format ???\n");
  std::filesystem::create_directories(folder / "a.bin");
  EXPECT_FALSE(ReadHex(":00000001FF\n", 1));
  testing::internal::CaptureStdout();
  EXPECT_EQ(ReadIntelHex(Path("none"), Path("b.bin"), 1), 1);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), Path("none") + " open failed !\n");
}

TEST_F(Readers, EepromFiles) {
  // clang-format off
  for (const auto& [length, result, told] : Table<std::size_t, int, Texts>{
           {3, 1, {}}, {256, 1, {}}, {257, 0, {"bin file Length over 256 Byte"}}}) {
    // clang-format on
    Write("e.bin", Bytes(length, 0xB0));
    EXPECT_EQ(ReadEepromBin(Path("e.bin"), Path("e_new.bin")), result);
    EXPECT_EQ(op.Heard(), told);
    if (result == 0) continue;
    const Bytes image = Contents("e_new.bin");
    ASSERT_EQ(image.size(), 525U);
    EXPECT_EQ(std::string(image.begin(), image.begin() + 14), std::string("QVL11EEPROM\0\0\7", 14));
    EXPECT_EQ(All(image[16], image[524]), All(0xB0, length > 254 ? 0xB0 : 0x00));
  }
  EXPECT_EQ(ReadEepromBin(Path("none.bin"), Path("e_new.bin")), 0);
  EXPECT_EQ(op.Heard().back(), "Open bin file failed!");
}

}  // namespace
}  // namespace pyxis::test
