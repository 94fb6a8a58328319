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

TEST_F(Otp4, FilesOfAnyLength) {
  ASSERT_EQ(Job("QV4105", 0x1395, {1, 2, 3}, "a.otp"), 0);
  EXPECT_EQ(data, Bytes{0xFF});
  EXPECT_EQ(Word(16), ChecksumAfter(0xFFFF, 0xFF));
  EXPECT_EQ(Convert(0x1395, "none.otp"), 1);
  EXPECT_EQ(op.Heard(), Texts{Path("none.otp") + " open file error\n"});
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
    std::uint16_t sum = 0xFFFF;
    for (int i = 0; i < summedWords; ++i) sum = ChecksumAfter(sum, 0);
    sum = ChecksumAfter(sum, static_cast<std::uint16_t>(summedConfig));
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

// The vectors don't look into this file.
TEST_F(Usb, CopiesOfTheProgramFile) {
  // clang-format off
  for (const auto& [chip, code, size, tag, constants] :
       Table<const char*, std::uint32_t, std::size_t, const char*, Bytes>{
           {"QVL04", 0x1622, 32768, "qvl04xx",
            {0x1E, 0x11, 0x11, 0x19, 0x10, 0x12, 0x1F, 0x11, 0x1F, 0x10, 0x10, 0x10, 0x10, 0x10}},
           {"QVL05", 0x1630, 16384, "qvl05xx",
            {0x1B, 0x11, 0x11, 0x19, 0x10, 0x10, 0x10, 0x10, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
           {"QVL06", 0x1636, 24576, "qvl06xx",
            {0x1E, 0x11, 0x11, 0x19, 0x10, 0x11, 0x1F, 0x10, 0x1F, 0x10, 0x10, 0x10, 0x10, 0x10}},
           {"QVL13", 0x1632, 16384, "qvl14xx",
            {0x1C, 0x12, 0x11, 0x19, 0x10, 0x10, 0x10, 0x10, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    optionValue = 0x161;
    ASSERT_EQ(Job(chip, code, {0x12, 0x34, 0x56}), 0);
    Bytes wanted(32 + size + 1, 0xFF);
    std::copy_n(tag, 7, wanted.begin());
    wanted[16] = 'v';
    wanted[17] = '2';
    std::copy(constants.begin(), constants.end(), wanted.begin() + 18);
    std::copy_n(Bytes{0x12, 0x34, 0x56}.begin(), 3, wanted.begin() + 32);
    wanted.back() = 0x61;
    EXPECT_EQ(Contents("job.otp"), wanted);
  }
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
