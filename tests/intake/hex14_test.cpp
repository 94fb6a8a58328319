// The 14-bit families: the fields that each edge of an image changes.
#include "converter_bench.h"
#include "intake/file_readers.h"

namespace pyxis::test {
namespace {

constexpr std::uint32_t kQv8348 = 0x2700, kQv8366 = 0x2750;
constexpr std::uint32_t kQv8344 = 0x2709, kQv8336 = 0x27091;
constexpr std::uint32_t kQv8329 = 0x2712, kQv8309 = 0x2738;
constexpr std::uint32_t kQv8321 = 0x2754, kQv8306 = 0x2805;
constexpr std::uint32_t kQv8303 = 0x2708;

class Hex14 : public ConverterBench {};

// QV8348 with a configuration word and a used word.
Bytes Image8348(unsigned config, std::size_t used = 99) {
  return Image14(1023, {{used, 0x0123}, {1020, config}, {1022, 0x0210}});
}

std::uint16_t SumWords(const Bytes& image, std::size_t from, std::size_t to) {
  std::uint16_t sum = 0xFFFF;
  for (std::size_t i = from; i < to; ++i) sum = ChecksumAfter(sum, LoadLe16(&image[2 * i]));
  return sum;
}

TEST_F(Hex14, SingleModeFields) {
  const Bytes image = Image8348(0x3ABC);
  ASSERT_EQ(Job("QV8348", kQv8348, image), 0);
  ExpectWords({{16, ChecksumAfter(SumWords(image, 0, 1020), 0x3ABC | 0x201F) & 0x3FFF},
               {84, SumWords(image, 0, 598) & 0x3FFF},
               {22, 100},
               {24, 1020},
               {36, 0x3ABF},
               {39, 0},
               {43, 0xAAAA},
               {72, 0x86FF},
               {59, 0xFFFF}});
  ExpectBytes({{76, 0xAA}, {207, 152}});
  EXPECT_EQ(Part(option, 192, 15), (Bytes{0xDF, 0x07, 3, 0, 4, 0, 5, 0, 9, 0, 7, 0, 3, 0, 250}));
  ASSERT_EQ(data.size(), 2048U);
  EXPECT_EQ(All(LoadBe16(&data[2 * 99]), LoadBe16(&data[2 * 1022])), All(0x0123, 0x3FFF));
  EXPECT_EQ(All(TheAppState().conversion.SystemConfigWord, TheAppState().conversion.LoadedFilePath),
            All(0x3ABC, Path("job.bin")));
}

TEST_F(Hex14, DualModeFields) {
  const Bytes image = Image8348(0x2ABC, 700);
  ASSERT_EQ(Job("QV8348", kQv8348, image), 0);
  ExpectWords({{16, (ChecksumAfter(SumWords(image, 512, 1020), 0x2ABC | 0x201F) & 0x3FFFU) | 0x3000U},
               {84, SumWords(image, 512, 598) & 0x3FFF},
               {39, 0x0200},
               {72, 0x86FD}});
  EXPECT_EQ(data.size(), 2048U);
  EXPECT_EQ(TheAppState().conversion.DualSkip, 0x200U);
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

TEST_F(Hex14, OutputWordsProtectBytesAndFlags) {
  request.ExhvIsp = true;
  // clang-format off
  for (const auto& [chip, code, config, id, idWord, configWord, outWord, byte43, byte76] :
       Table<const char*, std::uint32_t, std::size_t, std::size_t, unsigned, unsigned, unsigned, int, int>{
           {"QV8343", 0x2756, 2044, 2046, 0x0356, 0x1600, 0x17FF, 0xAA, 0xAA},
           {"QV8366", kQv8366, 2044, 2046, 0x0250, 0x3FE0, 0x3EFF, 0xAA, 0xAA},
           {"QV8345", 0x2755, 4092, 4094, 0x0255, 0x3FE0, 0x3FDF, 0xAA, 0xAA},
           {"QV8344", kQv8344, 4092, 4094, 0x0209, 0x37E0, 0x37FF, 16, 0xAA},
           {"QV8344", kQv8344, 4092, 4094, 0x0209, 0x3FE0, 0x3FFF, 0xAA, 0xAA},
           {"QV8351", 0x2740, 1020, 1022, 0x0240, 0x37E0, 0x37FF, 16, 1},
           {"QV8329", kQv8329, 1020, 1022, 0x0212, 0x27E0, 0x27FF, 16, 16},
           {"QV8329", kQv8329, 1020, 1022, 0x0212, 0x3FE0, 0x3FFF, 0xAA, 0},
           {"QV8331", 0x2747, 1020, 1022, 0x0347, 0x3FE0, 0x3FFF, 0xAA, 0xAA},
           {"QV8347", 0x2803, 4092, 4093, 0x0203, 0x0FE0, 0x0FFF, 0xAA, 1}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    ASSERT_EQ(Job(chip, code, Image14(id + 1, {{config, configWord}, {id, idWord}})), 0);
    EXPECT_EQ(Word(36), outWord);
    ExpectBytes({{43, byte43}, {76, byte76}});
  }
}

TEST_F(Hex14, WordsBetweenTheImageAndItsConfiguration) {
  // a word behind the length
  // clang-format off
  for (const auto& [chip, code, words, id, idWord, at, written] :
       Table<const char*, std::uint32_t, std::size_t, std::size_t, unsigned, std::size_t, unsigned>{
           {"QV8339", 0x2729, 2048, 2046, 0x0329, 2043, 0x0055},
           {"QV8342", 0x27293, 2048, 2046, 0x0029, 2043, 0x0055},
           {"QV8333", 0x2801, 1024, 1021, 0x0201, 1019, 0x3FFF},
           {"QV8347", 0x2803, 4096, 4093, 0x0203, 4091, 0x3FFF}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    ASSERT_EQ(Job(chip, code, Image14(id + 1, {{at, 0x0055}, {id, idWord}})), 0);
    ASSERT_EQ(data.size(), 2 * words);
    EXPECT_EQ(LoadBe16(&data[2 * at]), written);
  }
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

TEST_F(Hex14, MultiTimeFields) {
  const Bytes image = Image14(2059, {{7, 1}, {2048, 0x35FF}, {2058, 0x0238}});
  ASSERT_EQ(Job("QV8309", kQv8309, image), 0);
  ExpectWords({{16, ChecksumAfter(SumWords(image, 0, 2048), (0x35FF | 0x1F) & 0x1FFF) & 0x3FFF},
               {22, 2048},
               {36, 0x35E0},
               {39, 0xAAAA},
               {72, 0xC008}});
  EXPECT_EQ(All(option[76], data.size()), All(0, 4096U));

  ASSERT_EQ(Job("QV8321", kQv8321, Image14(2059, {{2047, 0x0777}, {2058, 0x0254}})), 0);
  EXPECT_EQ(Word(24), 2033U);
  ASSERT_EQ(data.size(), 4096U);
  EXPECT_EQ(LoadBe16(&data[4094]), 0x0777);

  ASSERT_EQ(Job("QV8306", kQv8306, Image14(1028, {{1024, 1}, {1025, 0x1234}, {1026, 0x2805}, {1027, 0x00F2}})), 0);
  EXPECT_EQ(TheAppState().conversion.SystemConfigWord, 0x1234);
  EXPECT_EQ(Word(72), 0xC006U);
}

TEST_F(Hex14, IspFlagsOfClassC) {
  for (const auto& [exhv, isp, flags] :
       Table<bool, bool, int>{{false, false, 0}, {true, false, 3}, {false, true, 2}, {true, true, 3}}) {
    request.ExhvIsp = exhv;
    request.IspProgram = isp;
    ASSERT_EQ(Job("QV8303", kQv8303, Image14(8203, {{8202, 0x0208}})), 0);
    EXPECT_EQ(option[76], flags);
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
