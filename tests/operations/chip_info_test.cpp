#include "operations/chip_info.h"

#include "intake/package_files.h"
#include "operations/tasks.h"
#include "platform/text.h"
#include "support/standin_bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

using Lines = std::array<std::string, 4>;

class ChipInfo : public ScriptedWriter {
 protected:
  static Bytes Block(std::uint8_t lengthUnit, std::uint8_t configKind, std::uint8_t chipClass, Bytes info) {
    Bytes block(512, 0);
    std::copy_n("QV8348", 6, block.begin());
    block[30] = lengthUnit;
    block[38] = configKind;
    block[71] = chipClass;
    std::copy(info.begin(), info.end(), block.begin() + 248);
    return block;
  }
  void Hold(const Bytes& block) { std::copy(block.begin(), block.end(), TheAppState().writer.WriterInfoBlock.begin()); }
};

TEST_F(ChipInfo, Opening) {
  // clang-format off
  for (const auto& [lengthUnit, configKind, lines, readEnabled] : Table<std::uint8_t, std::uint8_t, Lines, bool>{
           {1, 0x10, {"Chip Name : ", "System Config : ", "Checksum : ", "ID : "}, true},
           {0x10, 0, {"Chip Name : ", "System Config : ", "", ""}, true},
           {1, 1, {"NO Support", "", "", ""}, false}, {0, 0x2F, {"NO Support", "", "", ""}, false}}) {
    // clang-format on
    Hold(Block(lengthUnit, configKind, 1, {}));
    Lines shown;
    op.chipInfo = [&](CReadChipInfoDlg& dialog) {
      shown = dialog.lines;
      EXPECT_EQ(dialog.readEnabled, readEnabled);
      return DialogEnd::Cancel;
    };
    OnReadChipInfo();
    EXPECT_EQ(shown, lines);
  }
  EXPECT_TRUE(vendor.calls.empty());
}

TEST_F(ChipInfo, Lines) {
  const Bytes dual{0x0A, 0x5F, 0x01, 0x02, 0x00, 0xBC, 0xFF, 0x0E};
  const Bytes notDual{0x1A, 0x5F, 0x01, 0x02, 0x00, 0xBC, 0xFF, 0x0E};
  // behind the captions
  // clang-format off
  for (const auto& [why, lengthUnit, configKind, chipClass, dualSkip, info, values] :
       Table<const char*, std::uint8_t, std::uint8_t, std::uint8_t, std::uint32_t, Bytes, Texts>{
           {"words", 1, 0, 1, 0, dual, {"QV8348", "a5f", "ff0e", "bc"}},
           {"one byte", 0x20, 0, 1, 0, dual, {"QV8348", "a"}},
           {"hidden configuration", 18, 0, 1, 0, dual, {"QV8348", "NO Support", "ff0e", "bc"}},
           {"bytes with checksum", 2, 0, 1, 0, dual, {"QV8348", "a5f", "ff0e", "bc"}},
           {"dual mode", 1, 0, 15, 0x200, dual, {"QV8348", "a5f", "102", "bc"}},
           {"flash has no dual mode", 1, 0, 16, 0x200, dual, {"QV8348", "a5f", "ff0e", "bc"}},
           {"chip not in dual mode", 1, 0, 15, 0x200, notDual, {"QV8348", "1a5f", "ff0e", "bc"}},
           {"says nothing", 1, 1, 1, 0, dual, {"QV8348", "", "", ""}}}) {
    // clang-format on
    SCOPED_TRACE(why);
    Hold(Block(lengthUnit, configKind, chipClass, {}));
    TheAppState().conversion.DualSkip = dualSkip;
    vendor.calls.clear();
    vendor.reads.assign(6, Bytes{3});  // the verdict doesn't matter
    vendor.reads.push_back(Block(lengthUnit, configKind, chipClass, info));
    CReadChipInfoDlg dialog(true);
    dialog.OnInitDialog();
    bool disabled = false;
    dialog.Changed = [&] { disabled = disabled || (!dialog.readEnabled && !dialog.cancelEnabled); };
    const std::uint32_t before = clock.tick;
    dialog.OnRead();
    EXPECT_GE(clock.tick - before, 1000U);
    Lines wanted{"Chip Name : ", "System Config : ", "Checksum : ", "ID : "};
    for (std::size_t i = 0; i < wanted.size(); ++i) wanted[i] = i < values.size() ? wanted[i] + values[i] : "";
    EXPECT_EQ(dialog.lines, wanted);
    EXPECT_TRUE(disabled && dialog.readEnabled && dialog.cancelEnabled);
    EXPECT_EQ(vendor.calls.front(), "write 21: 16");
    EXPECT_TRUE(op.told.empty());
  }
}

class ChipInfoOnWriter : public BothTransports {
 protected:
  ChipInfoOnWriter() {
    op.chipInfo = [this](CReadChipInfoDlg& dialog) {
      dialog.OnRead();
      lines = dialog.lines;
      return DialogEnd::Cancel;
    };
  }
  Lines lines;
};

TEST_P(ChipInfoOnWriter, AnotherChipIsNotTheLastOne) {
  LoadSample("QV8348");
  OnAuto();
  OnReadChipInfo();
  const Lines burnt = lines;
  writer.chip.state = standin::ChipState::Missing;
  OnReadChipInfo();
  EXPECT_EQ(lines[1], "System Config : ffff");
  EXPECT_NE(lines[2], burnt[2]);
  usb.pluggedIn = vendor.pluggedIn = false;
  OnReadChipInfo();
  EXPECT_EQ(lines[1], "System Config : 0");
}

INSTANTIATE_TEST_SUITE_P(BothTransports, ChipInfoOnWriter, kBothTransports);

}  // namespace
}  // namespace pyxis::test
