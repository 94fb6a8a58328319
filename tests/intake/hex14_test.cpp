// The 14-bit families: what the vectors of tests/data can't see.
#include "converter_bench.h"

namespace pyxis::test {
namespace {

constexpr std::uint32_t kQv8348 = 0x2700, kQv8366 = 0x2750;
constexpr std::uint32_t kQv8344 = 0x2709, kQv8336 = 0x27091;
constexpr std::uint32_t kQv8309 = 0x2738;

class Hex14 : public ConverterBench {};

// QV8348 with a configuration word and a used word.
Bytes Image8348(unsigned config, std::size_t used = 99) {
  return Image14(1023, {{used, 0x0123}, {1020, config}, {1022, 0x0210}});
}

TEST_F(Hex14, PartialChecksumAndUsedLengthOutliveAConversion) {
  const Bytes blank = Image14(2047, {{2044, 0x2FFF}, {2046, 0x0250}});
  ASSERT_EQ(Job("QV8366", kQv8366, blank), 0);
  ExpectWords({{84, 0xFFFF}, {22, 0}});
  ASSERT_EQ(Job("QV8348", kQv8348, Image8348(0x3FFF, 9)), 0);
  const unsigned partial = Word(84);
  ASSERT_EQ(Job("QV8336", kQv8336, Image14(4095, {{4000, 1}, {4094, 0x0109}})), 0);
  EXPECT_EQ(Word(22), 4092U);
  EXPECT_EQ(TheAppState().conversion.UsedLength, 10U);
  ASSERT_EQ(Job("QV8366", kQv8366, blank), 0);
  EXPECT_NE(Word(84), partial);  // QV8336 has been through word 598 since
  EXPECT_EQ(Word(22), 10U);
}

TEST_F(Hex14, WrongIdsAreRefused) {
  // clang-format off
  for (const auto& [chip, code, words, id, result] : Table<const char*, std::uint32_t, std::size_t, WordAt, int>{
           {"QV8348", kQv8348, 1023, {1022, 0x0211}, 2}, {"QV8348", kQv8348, 1023, {1022, 0x0110}, 2},
           {"QV8348", kQv8348, 1023, {1022, 0x3E10}, 0}, {"QV8348", kQv8348, 1000, {0, 0}, 2},
           {"QV8336", kQv8336, 4095, {4094, 0x0209}, 5}, {"QV8331", 0x2747, 1023, {1022, 0x0147}, 2},
           {"QV8309", kQv8309, 2059, {2058, 0x0338}, 2}, {"QV8309", kQv8309, 2059, {2058, 0x0238}, 0},
           {"QV8315", 0x2752, 1035, {1034, 0x0152}, 0}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    EXPECT_EQ(Job(chip, code, Image14(words, {id})), result);
    if (result == 0) continue;
    EXPECT_EQ(op.Heard(), Texts{Path("job.hex") + " ID error\n"});
    Bytes empty(208, 0);
    empty[207] = 152;
    EXPECT_EQ(option, empty);
    EXPECT_TRUE(data.empty());
  }
}

// serial.txt with a start and an end address.
Bytes Serial(unsigned start, unsigned end) {
  Bytes serial(256, 0x77);
  StoreBe16(&serial[55], start);
  StoreBe16(&serial[57], end);
  return serial;
}

TEST_F(Hex14, SerialRangeMovesInDualMode) {
  request.SnMode = true;
  // 0: refused
  // clang-format off
  for (const auto& [chip, chipCode, config, id, idWord, end, movedEnd, message] :
       Table<const char*, std::uint32_t, std::size_t, std::size_t, unsigned, unsigned, unsigned, const char*>{
           {"QV8348", kQv8348, 1020, 1022, 0x0210, 0x1FB, 0x3FB, ""},
           {"QV8348", kQv8348, 1020, 1022, 0x0210, 0x1FC, 0, "S/N End Address > 0x3fc"},
           {"QV8333", 0x2801, 1020, 1021, 0x0201, 0x1FC, 0, "S/N End Address > 0x3fb"},
           {"QV8347", 0x2803, 4092, 4093, 0x0203, 0x1FC, 0, "S/N End Address > 0x3fb"},
           {"QV8366", kQv8366, 2044, 2046, 0x0250, 0x5FC, 0, "S/N End Address > 0x7fc"},
           {"QV8366", kQv8366, 2044, 2046, 0x0250, 0x5FB, 0x7FB, ""},
           {"QV8344", kQv8344, 4092, 4094, 0x0209, 0x7FB, 0xFFB, ""},
           {"QV8344", kQv8344, 4092, 4094, 0x0209, 0x7FC, 0, "S/N End Address > 0xffc"},
           {"QV8368", 0x2728, 4092, 4094, 0x0228, 0xDFB, 0xFFB, ""}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    Write("serial.txt", Serial(0x0110, end));
    const int code = Job(chip, chipCode, Image14(id + 1, {{config, 0x2FFF}, {id, idWord}}));
    EXPECT_EQ(code, movedEnd == 0 ? 1 : 0);
    if (movedEnd == 0) {
      EXPECT_EQ(op.Heard(), Texts{message});
      EXPECT_EQ(Contents("serial.txt"), Serial(0x0110, end));
      EXPECT_EQ(Word(59), 0xFFFFU);  // patched up to the serial bytes
      EXPECT_EQ(option[192], 0xAA);
    } else {
      const unsigned shift = chipCode == kQv8344 ? 0x800 : 0x200;
      EXPECT_EQ(Contents("serial.txt"), Serial(0x0110 + shift, movedEnd));
      EXPECT_EQ(All(Word(57), option[96]), All(movedEnd, 0x77));
    }
  }
  Write("serial.txt", Serial(0x10, 0x20));
  ASSERT_EQ(ConvertHex(kQv8348, Image8348(0x3FFF)), 0);
  EXPECT_EQ(Contents("serial.txt"), Serial(0x10, 0x20));
}

}  // namespace
}  // namespace pyxis::test
