#include "data/cases.h"
#include "intake/file_readers.h"
#include "platform/hex_digits.h"
#include "shell/ground/messages.h"
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
  ForEachCase("readers.tsv", "digits",
              [](const Case& c) { EXPECT_EQ(ParseHexDigits(c[0], static_cast<int>(c.Number(1))), c.Number(2)); });
}

TEST_F(Readers, IntelHexImages) {
  ForEachCase("readers.tsv", "images", [this](const Case& c) {
    const auto image = ReadHex(c[1], static_cast<int>(c.Number(2)));
    const auto length = static_cast<std::size_t>(c.Number(3)), at = static_cast<std::size_t>(c.Number(4));
    ASSERT_TRUE(image && image->size() == length) << c[0];
    EXPECT_TRUE(at >= length || (*image)[at] == c.Number(5)) << c[0];
  });
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
    EXPECT_EQ(ReadEepromBin(Path("e.bin"), Path("e_new.bin"), "QVL11EEPROM", TellText), result);
    EXPECT_EQ(op.Heard(), told);
    if (result == 0) continue;
    const Bytes image = Contents("e_new.bin");
    ASSERT_EQ(image.size(), 525U);
    EXPECT_EQ(std::string(image.begin(), image.begin() + 14), std::string("QVL11EEPROM\0\0\7", 14));
    EXPECT_EQ(All(image[16], image[524]), All(0xB0, length > 254 ? 0xB0 : 0x00));
  }
  EXPECT_EQ(ReadEepromBin(Path("none.bin"), Path("e_new.bin"), "QVL11EEPROM", TellText), 0);
  EXPECT_EQ(op.Heard().back(), "Open bin file failed!");
  Write("e.bin", Bytes(3));
  EXPECT_EQ(ReadEepromBin(Path("e.bin"), folder.string(), "QVL11EEPROM", TellText), 1);
  EXPECT_EQ(op.Heard().back(), "Create bin file failed!");
}

}  // namespace
}  // namespace pyxis::test
