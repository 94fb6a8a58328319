// What Compare File reads, what it makes of each kind of program file, and when the result is OK.
#include "operations/compare_file.h"

#include "intake/package_files.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "platform/byte_order.h"
#include "support/standin_bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

void SetJob(const std::string& chip, unsigned imageLength, std::uint8_t lengthUnit, std::uint8_t order) {
  auto& block = TheAppState().writer.WriterInfoBlock;
  block.fill(0);
  std::copy(chip.begin(), chip.end(), block.begin());
  StoreBe16(&block[24], imageLength);
  block[30] = lengthUnit;
  block[31] = order;
}

class Compare : public ScriptedWriter {};

TEST_F(Compare, WhatCounts) {
  // clang-format off
  for (const auto& [why, imageLength, lengthUnit, order, file, writer, equal] :
       Table<const char*, unsigned, std::uint8_t, std::uint8_t, Bytes, Bytes, bool>{
           {"bytes", 4, 0, 1, {1, 2, 3, 4}, {1, 2, 3, 4}, true},
           {"a byte differs", 4, 0x12, 1, {1, 2, 3, 4}, {1, 2, 3, 5}, false},
           {"behind the length", 3, 2, 1, {1, 2, 3, 4}, {1, 2, 3, 5}, true},
           {"a shorter file", 9, 2, 1, {1, 2, 3, 4}, {1, 2, 3, 4}, true},
           {"a shorter file that differs", 9, 2, 1, {1, 2, 3, 4}, {1, 2, 3, 3}, false},
           {"words, exchanged", 2, 1, 1, {1, 2, 3, 4}, {2, 1, 4, 3}, true},
           {"words, not exchanged as they should be", 2, 1, 1, {1, 2, 3, 4}, {1, 2, 3, 4}, false},
           {"words in order, by the low nibbles", 2, 0xF1, 0xE2, {1, 2, 3, 4}, {1, 2, 3, 4}, true},
           {"words in order that come exchanged", 2, 1, 2, {1, 2, 3, 4}, {2, 1, 4, 3}, false},
           {"the last word differs", 2, 1, 1, {1, 2, 3, 4}, {2, 1, 5, 3}, false},
           {"behind the words", 1, 1, 1, {1, 2, 3, 4, 5}, {2, 1, 9, 9, 9}, true},
           {"fewer words than the job", 3, 1, 1, {1, 2, 3, 4}, {2, 1, 4, 3}, false},
           {"half a word less than the job", 2, 1, 1, {1, 2, 3}, {2, 1, 4}, false},
           {"an empty file for words", 2, 1, 1, {}, {}, false},
           {"the largest job", 0xFFFF, 1, 2, Bytes(0x1FFFE, 7), Bytes(0x1FFFE, 7), true},
           {"a file beyond any job", 0xFFFF, 1, 2, Bytes(0x20001, 7), Bytes(0x20001, 7), true}}) {
    // clang-format on
    SCOPED_TRACE(why);
    Write("a.bin", file);
    SetJob("QV8348", imageLength, lengthUnit, order);
    vendor.reads = {writer};
    EXPECT_EQ(CompareWithWriter(Path("a.bin")), equal);
  }
}

Bytes Ramp(std::size_t count) {
  Bytes bytes(count);
  for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
  return bytes;
}

Bytes Text(const std::string& text) { return {text.begin(), text.end()}; }

TEST_F(Compare, TargetsByChip) {
  const std::string velmar = "Kestrel Velmar Files (*.Velmar)|*.Velmar||", obj = "Kestrel Obj Files (*.obj)|*.obj||",
                    otp = "Kestrel Otp Files (*.otp)|*.otp||", epm = "Kestrel Epm Files (*.epm)|*.epm||",
                    hex = "Kestrel Hex Files (*.hex)|*.hex||";
  const Bytes small = Ramp(40), large = Ramp(16500), left = Text("left by Load File");
  // A hole of four bytes between two records shows the fill.
  const Bytes records = Text(":01000000AA55\n:01000500BB3F\n:00000001FF\n"), words{0xAA, 0x3F, 0xFF, 0x3F, 0xFF, 0xBB};
  // clang-format off
  for (const auto& [chip, filter, file, target] : Table<const char*, std::string, Bytes, Bytes>{
           {"QVL01", obj, small, Part(small, 32, 8)}, {"QVL03", obj, Ramp(10), {}},
           {"QV4105", otp, Ramp(8224), Part(large, 8223, 1) + Part(large, 32, 8192)},
           {"QV4103", otp, large, Part(large, 16414, 2) + Part(large, 32, 13024)},
           {"QV4106", otp, Ramp(13000), Bytes{0xFF, 0xFF} + Part(large, 32, 12968) + Bytes(56, 0xFF)},
           {"QV4207", epm, small, small}, {"QV4101", epm, small, small},
           {"QVL13", hex, records, {0xAA, 0xFF, 0xFF, 0xFF, 0xFF, 0xBB}},
           {"QV8201", hex, records, {0xAA, 0, 0, 0, 0, 0xBB}},
           {"QV8348", hex, records, words},
           {"", hex, records, words}, {"QV8101", hex, records, words},
           {"QV8401", velmar, records, left}, {"QV8122", velmar, records, left}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    Write("a.b.dat", file);
    Write("a.b.bin", left);
    SetJob(chip, 1, 2, 2);
    op.files = {Path("a.b.dat")};
    op.filters.clear();
    vendor.Script({target});
    CDownloadInfoDlg dialog("", "");
    dialog.OnCompareFile();
    EXPECT_EQ(op.filters, Texts{filter});
    EXPECT_EQ(Contents("a.b.bin"), target);
    EXPECT_EQ(dialog.lines[2], target.empty() ? "Compare Result : Fail" : "Compare Result : OK");
    EXPECT_EQ(vendor.calls[2], "read 19: " + std::to_string(target.size()));
    EXPECT_TRUE(op.told.empty() && dialog.compareEnabled && dialog.cancelEnabled);
  }
}

TEST_F(Compare, WhatCantBeReadOrMadeIsNeverCompared) {
  const Bytes content = Ramp(100);
  Write("a.obj", content);
  WriteText("text.hex", "hello");
  Write("own.BIN", content);
  for (const char* name : {"blocked.bin", "taken.bin"}) std::filesystem::create_directory(Path(name));
  WriteText("blocked.hex", ":01000000AA55\n");
  Write("taken.epm", content);
  // clang-format off
  for (const auto& [why, chip, file, told] : Table<const char*, const char*, const char*, std::string>{
           {"cancelled", "QV8348", nullptr, ""},
           {"no Intel HEX", "QV8348", "text.hex", "File " + Path("text.hex") + " Not Intel HEX format ???\n"},
           {"no such file", "QV8348", "gone.hex", Path("gone.hex") + " open failed !\n"},
           {"no such image", "QVL01", "gone.obj", "Open Fail ! (" + Path("gone.obj") + ")"},
           {"unwritable image", "QV8348", "blocked.hex", Path("blocked.bin") + " write file error\n"},
           {"unwritable copy", "QV4101", "taken.epm", Path("taken.bin") + " write file error\n"},
           {"its own target", "QV4105", "own.BIN", Path("own.BIN") + " would be overwritten by its own image\n"}}) {
    // clang-format on
    SCOPED_TRACE(why);
    SetJob(chip, 1, 2, 2);
    op.files = {file == nullptr ? std::nullopt : std::optional(Path(file))};
    int changes = 0;
    CDownloadInfoDlg dialog("", "");
    dialog.Changed = [&] {
      if (changes++ == 0) {
        EXPECT_FALSE(dialog.compareEnabled || dialog.cancelEnabled);
      }
    };
    dialog.lines[2] = "Compare Result : OK";
    dialog.OnCompareFile();
    EXPECT_EQ(op.Heard(), told.empty() ? Texts{} : Texts{told});
    EXPECT_EQ(dialog.lines[2], "Compare Result : ");
    EXPECT_TRUE(vendor.calls.empty() && dialog.compareEnabled && dialog.cancelEnabled);
  }
  EXPECT_EQ(Contents("own.BIN"), content);

  SetJob("QV8103", 1, 2, 2);
  op.files = {Path("a.velmar")};
  CDownloadInfoDlg dialog("", "");
  dialog.OnCompareFile();
  EXPECT_EQ(op.Boxes(), (std::vector<Told>{{"Open Fail ! (" + Path("a.bin") + ")", "PyxisLoad", MessageIcon::None}}));
  EXPECT_EQ(dialog.lines[2], "Compare Result : Fail");
}

class CompareOnWriter : public BothTransports {};

TEST_P(CompareOnWriter, AFailedTransferIsNoMatch) {
  for (const int filler : {0x00, 0xFF}) {
    const Bytes data(2048, static_cast<std::uint8_t>(filler));
    Write(kOptionPackageName, Bytes(208, 1));
    Write(kDataPackageName, data);
    DownloadPackages();
    SetJob("QV8348", 2048, 0, 0);
    ASSERT_TRUE(CompareWithWriter(Path(kDataPackageName)));
    writer.faults.disconnectAfter =
        GetParam() == Transport::Usb ? 10 : 2;  // in the middle of the transfer, or before it
    EXPECT_FALSE(CompareWithWriter(Path(kDataPackageName)));
    CloseTransport();
    usb.pluggedIn = vendor.pluggedIn = true;
    writer.faults.disconnectAfter.reset();
    OpenTransport();
    SetWriterMode(71);
    CloseArea();
  }
  EXPECT_EQ(op.Heard(), (Texts{"Loading Data Ok", "Loading Data Ok"}));
}

INSTANTIATE_TEST_SUITE_P(BothTransports, CompareOnWriter, kBothTransports);

}  // namespace
}  // namespace pyxis::test
