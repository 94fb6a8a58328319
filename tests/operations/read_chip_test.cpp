#include "operations/read_chip.h"

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "operations/tasks.h"
#include "platform/byte_order.h"
#include "support/standin_bench.h"
#include "support/wire_log.h"
#include "view/hex_view.h"

namespace pyxis::test {
namespace {

class ReadScripted : public ScriptedWriter {
 protected:
  ReadScripted() {
    AppState& app = TheAppState();
    app.selection.SelectedChip = "QV8348";
    app.selection.ReadSizeBytes = 8;
    std::copy(app.selection.SelectedChip.begin(), app.selection.SelectedChip.end(), app.writer.WriterInfoBlock.begin());
  }
  Bytes Block(unsigned dualStart) const {
    Bytes block(512, 0);
    StoreBe16(&block[39], dualStart);
    return block;
  }
  const Texts blockRead{"write 0: 47", "write 20: 04 17", "read 19: 512", "write 20: 0C 07", "write 0: 07"};
};

TEST_F(ReadScripted, WordsAndLengths) {
  // clang-format off
  for (const auto& [why, size, dualStart, swap, chip, file] :
       Table<const char*, std::uint32_t, unsigned, bool, Bytes, Bytes>{
           {"as they come", 4, 0, false, {0x12, 0x34, 0x56, 0x78}, {0x12, 0x34, 0x56, 0x78}},
           {"exchanged", 4, 0, true, {0x12, 0x34, 0x56, 0x78}, {0x34, 0x12, 0x78, 0x56}},
           {"less the words in front", 8, 3, true, {0x12, 0x34}, {0x34, 0x12}},
           {"odd", 3, 0, true, {1, 2, 3}, {2, 1, 0, 3}},
           {"dual mode", 8192, 0x200, false, Bytes(7168, 5), Bytes(7168, 5)}}) {
    // clang-format on
    SCOPED_TRACE(why);
    TheAppState().selection.ReadSizeBytes = size;
    TheAppState().selection.ReadSwapBytes = swap;
    vendor.Script({Block(dualStart), chip});
    const std::uint32_t before = clock.tick;
    OnRead();
    EXPECT_GE(clock.tick - before, 1100U);
    EXPECT_LT(clock.tick - before, 2000U);  // no template was loaded
    EXPECT_EQ(Contents("readdata.txt"), file);
    Texts wanted = blockRead;
    wanted.insert(wanted.end(), {"write 21: 34", "write 21: 34", "read 24: " + std::to_string(chip.size())});
    EXPECT_EQ(vendor.calls, wanted);
  }
  EXPECT_EQ(op.told.back(), (Told{"Read OK", "Message", MessageIcon::None}));
}

TEST_F(ReadScripted, AFileThatCantBeMadeFailsBeforeTheChipIsAsked) {
  std::filesystem::create_directory(Path("readdata.txt"));
  TheAppState().conversion.LoadedFilePath = "before";
  OnRead();
  EXPECT_EQ(op.Boxes(), (std::vector<Told>{{"Read FAIL", "Message", MessageIcon::None}}));
  EXPECT_EQ(vendor.calls, blockRead);
  EXPECT_EQ(All(TheAppState().conversion.LoadedFilePath, TheAppState().writer.ProgressMode),
            All("before", Progress::None));
}

TEST_F(ReadScripted, AStartBehindTheChipLeavesNothingToRead) {
  Write("readdata.txt", Bytes{1, 2, 3});  // of the read before
  for (const unsigned dualStart : {4U, 5U, 0xFFFFU}) {
    vendor.Script({Block(dualStart)});
    OnRead();
    EXPECT_EQ(op.Heard().back(), "Read FAIL");
    EXPECT_EQ(vendor.calls, blockRead);
    EXPECT_EQ(Contents("readdata.txt"), (Bytes{1, 2, 3}));
  }
}

class ReadOnWriter : public BothTransports {};

// What Read writes is the program image as it stands in the program file, as far as the read goes.
TEST_P(ReadOnWriter, ABurntChipReadsAsItsImage) {
  // What of which image file the chip holds, and the length of the read. QV4105 has 8191 bytes: in the half word at the
  // end the exchange takes the last one a place further.
  // clang-format off
  for (const auto& [sample, imageFile, from, size, read] :
       Table<std::string, std::string, std::size_t, std::size_t, std::size_t>{
           {"QV8348.hex", "QV8348.bin", 0, 2 * 1020, 0x800},
           {"QV8348_dual.hex", "QV8348_dual.bin", 2 * 0x200, 2 * (1020 - 0x200), 0x800 - 2 * 0x200},
           {"QV8309.hex", "QV8309.bin", 0, 4096, 0x1020}, {"QV8121.velmar", "qv8121.bin", 0, 4096, 0x1010},
           {"QVL04.hex", "QVL04.bin", 0, 32768, 0x8002}, {"QVL01.obj", "QVL01.obj", 32, 8192, 0x4000},
           {"QVL07.hex", "qvl07.bin", 0, 24576, 0x6020}, {"QV4105.otp", "QV4105.otp", 32, 8190, 0x2000},
           {"QV4103.otp", "QV4103.otp", 32, 13024, 0x32E0}, {"QV4204.epm", "QV4204.epm", 0, 32768, 0x801A}}) {
    // clang-format on
    SCOPED_TRACE(sample);
    const std::string chip = sample.substr(0, sample.find_first_of("._"));
    writer.chip = standin::Chip{};
    LoadSample(chip);
    Load("samples/" + sample);
    OnAuto();
    const Bytes job = writer.OptionArea();
    OnRead();
    EXPECT_EQ(op.Heard(), (Texts{"Loading Data Ok", "Auto OK", "Read OK"}));
    const Bytes image = Contents("samples/" + imageFile), data = Contents("readdata.txt");
    ASSERT_EQ(data.size(), read);
    EXPECT_EQ(Part(data, 0, size), Part(image, from, size));
    EXPECT_EQ(writer.OptionArea(), job);
    EXPECT_EQ(TheAppState().conversion.LoadedFilePath, Path("readdata.txt"));
    EXPECT_EQ(TheHexView().Data, data);
  }
}

TEST_P(ReadOnWriter, AnUnknownChipGetsItsTemplateOnce) {
  LoadSample("QV8348");
  PutFolderFor("QV8121");
  Select("QV8121");
  op.cursorsLoad = true;
  std::uint32_t before = clock.tick;
  OnRead();
  EXPECT_GE(clock.tick - before, 3100U);
  EXPECT_EQ(ChipNameOf(writer.OptionArea()), "QV8121");
  EXPECT_EQ(ChipNameOf(TheAppState().writer.WriterInfoBlock), "QV8121");
  before = clock.tick;
  OnRead();
  EXPECT_LT(clock.tick - before, 2000U);
  TheAppState().writer.WriterInfoBlock[53] = 16;  // a serial number set-up lies over the job
  OnRead();
  EXPECT_EQ(TheAppState().writer.WriterInfoBlock[53], 0);
  EXPECT_EQ(op.Heard(), (Texts{"Read OK", "Read OK", "Read OK"}));
  EXPECT_EQ(All(op.cursors.back(), op.cursor), All(Path("metronom.ani"), 1));
  EXPECT_TRUE(TheMainControls()[ControlId::Read].enabled);
  EXPECT_FALSE(TheMainControls().statusBar.progressVisible);
}

INSTANTIATE_TEST_SUITE_P(BothTransports, ReadOnWriter, kBothTransports);

}  // namespace
}  // namespace pyxis::test
