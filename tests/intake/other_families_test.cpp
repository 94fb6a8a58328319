// The 4-bit, .velmar and USB families at their edges.
#include "converter_bench.h"
#include "intake/file_readers.h"
#include "platform/text.h"

namespace pyxis::test {
namespace {

class Otp4 : public ConverterBench {};
class Epm4 : public ConverterBench {};
class Velmar : public ConverterBench {};
class Usb : public ConverterBench {};

// The checksum over words, each so many times.
struct Word16 {
  unsigned value;
  int times = 1;
};
std::uint16_t Sum(std::initializer_list<Word16> words) {
  std::uint16_t sum = 0xFFFF;
  for (const Word16& word : words)
    for (int i = 0; i < word.times; ++i) sum = ChecksumAfter(sum, static_cast<std::uint16_t>(word.value));
  return sum;
}

TEST_F(Otp4, ByteIc) {
  Bytes file(8224, 0);
  file[8223] = 0xF3;
  for (const auto& [value, byte36] : Table<std::uint32_t, int>{{1, 0xF1}, {0x60, 0xF1}, {0, 0xF0}}) {
    optionValue = value;
    ASSERT_EQ(Job("QV4105", 0x1395, file, "a.otp"), 0);
    ExpectBytes({{36, byte36}, {37, 0}});
    EXPECT_EQ(All(data.size(), data[0]), All(8192U, 0xF3));
  }
  ASSERT_EQ(Job("QV4105", 0x1395, {1, 2, 3}, "a.otp"), 0);  // no check of any length
  EXPECT_EQ(data, Bytes{0xFF});
  EXPECT_EQ(Word(16), Sum({{0xFF}}));
  EXPECT_EQ(Convert(0x1395, "none.otp"), 1);
  EXPECT_EQ(op.Heard(), Texts{Path("none.otp") + " open file error\n"});
}

TEST_F(Otp4, WordIc) {
  Bytes file(16416, 0);
  StoreLe16(&file[32], 0x1234);
  StoreLe16(&file[16414], 0x8007);
  request.SnMode = true;  // these ICs have no serial numbers
  request.MassProduction = true;
  optionValue = 0;
  ASSERT_EQ(Job("QV4103", 0x1397, file, "a.otp"), 0);
  EXPECT_EQ(All(data.size(), LoadBe16(&data[0]), LoadBe16(&data[2])), All(2U * 6513, 0x8007, 0x1234));
  ExpectWords({{36, 0x8004}, {16, Sum({{0x1234}, {0, 6511}, {0x8007}})}});
  EXPECT_EQ(option[78], 16);
}

TEST_F(Epm4, PackagesStartAnewBehindTheTemplate) {
  Bytes file(32768 + 30, 0x10);
  file[32770] = 0x04;
  Bytes from(512, 0xAA);
  from[36] = 0x5C;
  from[37] = 0x6D;
  PutTemplate("QV4204", from);
  Write("a.epm", file);
  ASSERT_EQ(Convert(0x1392, "a.epm"), 0);
  EXPECT_EQ(TheAppState().conversion.ImageUnprotected, 1U);
  ASSERT_EQ(option.size(), 256U);
  EXPECT_EQ(Part(option, 128, 4), (Bytes{0x0C, 0x6D, 0x00, 0x10}));
  ExpectBytes({{157, 0x10}, {158, 0}});
  EXPECT_EQ(All(Word(43), data.size()), All(0x0600U, 32768U));

  file[32770] = 0x01;
  Write("a.epm", file);
  ASSERT_EQ(Convert(0x1392, "a.epm"), 0);
  EXPECT_EQ(TheAppState().conversion.ImageUnprotected, 0U);
  EXPECT_EQ(option[43], 0x03);
}

TEST_F(Epm4, IcsThatDiffer) {
  Bytes file(70000, 0);
  file[8194] = 1;
  ASSERT_EQ(Job("QV4104", 0x1357, file, "a.epm"), 0);  // 1 is not protected, and byte 44 stays
  EXPECT_EQ(TheAppState().conversion.ImageUnprotected, 1U);
  ExpectWords({{43, 0x01AA}, {16, Sum({{0, 4096}})}});
  ASSERT_EQ(Job("QV4301", 0x1390, file, "a.epm"), 0);
  EXPECT_EQ(option.size(), 208U);
  ASSERT_EQ(Job("QV4101", 0x1382, file, "a.epm"), 0);
  EXPECT_EQ(All(data.size(), option[128]), All(34816U, 0));
  ASSERT_EQ(Job("QV4202", 0x1388, file, "a.epm"), 0);  // QV4203 works from the template QV4202
}

TEST_F(Epm4, TwoIcsShareACode) {
  PutTemplate("QV4206", Bytes(512, 0x06));
  PutTemplate("QV4207", Bytes(512, 0x07));
  Bytes file(65600, 0);
  for (const std::uint32_t code : {0x1393U, 0x13931U})
    for (const int key : {0, 1}) {
      file[65598] = static_cast<std::uint8_t>(key);
      Write("a.epm", file);
      TheAppState().selection.SelectedChip = "QV4206";
      ASSERT_EQ(Convert(code, "a.epm"), 0);
      EXPECT_EQ(option[0], 0x06);
      TheAppState().selection.SelectedChip = "QV4207";
      EXPECT_EQ(Convert(code, "a.epm"), key == 1 ? 0 : 1);
      if (key == 1) {
        EXPECT_EQ(option[0], 0x07);
      } else {
        EXPECT_EQ(op.Heard(), Texts{Path("a.epm") + " open file error\n"});
      }
    }
}

// With the second and third byte of the ID, and its size byte.
Bytes VelmarImage(std::size_t idOffset, unsigned id, std::uint8_t size) {
  Bytes image(idOffset + 8, 0);
  image[idOffset] = 0x57;
  StoreBe16(&image[idOffset + 1], id);
  image[idOffset + 7] = size;
  StoreLe16(&image[idOffset - 2], 0x80F1);
  return image;
}

TEST_F(Velmar, ProtectedTails) {
  // clang-format off
  for (const auto& [chip, code, idOffset, id, size, sumLength, used, summedWords, summedConfig, config] :
       Table<const char*, std::uint32_t, std::size_t, unsigned, std::uint8_t, unsigned, unsigned, int, unsigned, unsigned>{
           {"QV8115", 0x3710, 8192, 0x1025, 0xF5, 0x1FE0, 0x1FE0, 4080, 0x00FF, 0x80E0},
           {"QV8115", 0x3710, 8192, 0x1025, 0x0F, 8190, 8190, 4095, 0x00FF, 0x80E0},
           {"QV8122", 0x37060, 4096, 0x063A, 0x0E, 0xD000, 0xD000, 0, 0x00FF, 0x80E0},
           {"QV8103", 0x3704, 16384, 0x0420, 0x00, 16382, 16382, 8191, 0x00F1, 0x80F1},
           {"QV8101", 0x3714, 32768, 0x1430, 0x00, 32766, 16383, 16383, 0x00FF, 0x80E0}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    ASSERT_EQ(Job(chip, code, VelmarImage(idOffset, id, size), "a.velmar"), 0);
    const unsigned sum = Sum({{0, summedWords}, {summedConfig}});
    ExpectWords({{16, sum}, {20, sumLength}, {22, used}, {24, sumLength}, {36, config}});
    EXPECT_EQ(data.size(), idOffset);
  }
}

TEST_F(Velmar, CapitalsFindTheirFiles) {
  PutTemplate("QV8122");
  Write("Work/Job1.VELMAR", pyxis::folder::ToIntelHex(VelmarImage(4096, 0x0630, 0)));
  ASSERT_EQ(Convert(0x37060, "Work/Job1.VELMAR"), 0);
  EXPECT_EQ(Contents("Work/job1.bin").size(), 4104U);
  EXPECT_EQ(TheAppState().conversion.LoadedFilePath, ToLower(Path("Work/Job1.bin")));
  PutTemplate("QV8121");
  EXPECT_EQ(Convert(0x3706, "Work/Job1.VELMAR"), 2);
  EXPECT_EQ(op.Heard(), Texts{ToLower(Path("Work/Job1.VELMAR")) + " ID error\n"});
}

TEST_F(Velmar, OptionBlock) {
  Bytes image(16440, 0);
  // The ID, and block words 0 and 1, the last that sets the top bits.
  for (const auto& [at, value] : Table<std::size_t, std::uint8_t>{
           {16432, 7}, {16433, 2}, {16434, 0x30}, {16384, 0x03}, {16385, 0xE0}, {16386, 0x02}})
    image[at] = value;
  StoreLe16(&image[16384 + 20], 0x8004);
  StoreLe16(&image[16384 + 22], 0x00A1);
  request.IspProgram = true;
  ASSERT_EQ(Job("QV8123", 0x3702, image, "a.velmar"), 0);
  EXPECT_EQ(Part(option, 31, 4), (Bytes{0x03, 0xE0, 0x02, 0x00}));
  EXPECT_EQ(Part(option, 48, 4), (Bytes{0x04, 0x80, 0xBF, 0x00}));
  ExpectWords(
      {{22, 16384}, {26, 0x200A}, {36, 0x8000U + (((4 * 64) | (0x80 >> 2)) & 0x3F20) + 0x81U}, {39, 4096}, {72, 64}});
  EXPECT_EQ(All(option[76], data.size()), All(2, 16480U));
  image[16385] = 0x00;
  EXPECT_EQ(ConvertHex(0x3702, image, "a.velmar"), 2);
}

TEST_F(Usb, HexIcs) {
  optionValue = 0x61;
  ASSERT_EQ(Job("QVL04", 0x1622, {0x12, 0x34, 0x56}), 0);
  EXPECT_EQ(All(data.size(), Part(data, 0, 4)), All(32768U, (Bytes{0x12, 0x34, 0x56, 0xFF})));
  ExpectWords(
      {{16, Sum({{0x1234}, {0x56FF}, {0xFFFF, 16382}, {0x0061}})}, {22, 3}, {24, 32768}, {36, 0x61AA}, {39, 0}});
  const Bytes otp = Contents("job.otp");
  ASSERT_EQ(otp.size(), 32U + 32768 + 1);
  EXPECT_EQ(std::string(otp.begin(), otp.begin() + 7), "qvl04xx");
  EXPECT_EQ(All(Part(otp, 15, 5), otp.back()), All((Bytes{0xFF, 'v', '2', 0x1E, 0x11}), 0x61));
  EXPECT_EQ(TheAppState().conversion.SystemConfigWord, -1);
}

TEST_F(Usb, ObjIcs) {
  // clang-format off
  for (const auto& [chip, code, length, words, used, imageLength, config] :
       Table<const char*, std::uint32_t, std::size_t, std::size_t, unsigned, unsigned, unsigned>{
           {"QVL01", 0x1603, 32 + 20, 10, 10, 10, 0xAAAA}, {"QVL08", 0x1633, 32 + 21, 10, 10, 11, 0x6F6F},
           {"QVX02", 0x1629, 32 + 4000, 1998, 1998, 1997, 0x006F},
           {"QVX02", 0x1629, 32 + 4001, 1998, 1998, 1998, 0x006F},
           {"QV8369", 0x1742, 32 + 8193, 4096, 4096, 4096, 0x0065},
           {"QVL03", 0x1615, 10, 0, 0xFFF5, 0xFFF5, 0xAAAA}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    Bytes file(length, 0xFF);
    if (length == 32 + 8193) file.back() = 0x75;
    ASSERT_EQ(Job(chip, code, file, "a.obj"), 0);
    EXPECT_EQ(data.size(), 2 * words);
    ExpectWords({{22, used}, {24, imageLength}, {36, config}});
  }
  // QVX02 sums 1021 words only, then the option byte with bit 0 set.
  Bytes file(32 + 4000, 0);
  file[16] = 0x40;
  ASSERT_EQ(Job("QVX02", 0x1629, file, "a.obj"), 0);
  EXPECT_EQ(Word(16), Sum({{0, 1021}, {0x41}}) & 0x3FFF);
  // QVL01 sums its header, and keeps the value behind it.
  ASSERT_EQ(Job("QVL01", 0x1603, file, "a.obj"), 0);
  EXPECT_EQ(Word(59), Sum({{0, 8}, {0x40}, {0, 7}}));
}

TEST_F(Usb, EepromImages) {
  PutTemplate("QVL09");
  optionValue = 0x1260;
  ASSERT_EQ(Job("QVL11", 0x1650, {0xB0, 0xB1, 0xB2}, "e.bin"), 0);
  ASSERT_EQ(data.size(), 512U);
  EXPECT_EQ(Part(data, 0, 10), (Bytes{0x07, 0x82, 0x18, 0xB0, 0x18, 0xB1, 0x18, 0xB2, 0x18, 0x00}));
  EXPECT_EQ(option[77], 16);
  ExpectWords({{39, 0x0F00}, {36, 0x1260}});
  EXPECT_LE(TheAppState().conversion.ImageChecksum, 0x3FFF);
  EXPECT_EQ(TheAppState().conversion.LoadedFilePath, ToLower(Path("e_new.bin")));
  EXPECT_EQ(Convert(0x1645, "e.bin"), 4);
  EXPECT_EQ(op.Heard(), Texts{ToLower(Path("e.bin")) + " open file error\n"});
}

TEST_F(Usb, PlainIc) {
  optionValue = 0x61;
  ASSERT_EQ(Job("QVL07", 0x1638, {0x12, 0x34}), 0);
  EXPECT_EQ(data.size(), 24576U);
  EXPECT_EQ(Contents("job.bin").size(), 0x6020U);
  EXPECT_EQ(All(data[0], data[2]), All(0x12, 0x00));
  ExpectWords({{36, 0x61AA}, {24, 0xAAAA}, {84, 0xAAAA}});
}

}  // namespace
}  // namespace pyxis::test
