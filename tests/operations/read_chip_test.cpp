#include "operations/read_chip.h"

#include "intake/package_files.h"
#include "platform/byte_order.h"
#include "support/wire_log.h"

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

}  // namespace
}  // namespace pyxis::test
