// Load File's order, its early ends, and what it leaves behind.
#include "intake/load_file.h"

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "intake/ready_text.h"
#include "options/option_select.h"
#include "platform/text.h"
#include "support/standin_bench.h"
#include "view/hex_view.h"

namespace pyxis::test {
namespace {

class LoadFile : public StandinBench {};

TEST_F(LoadFile, Filters) {
  EXPECT_STREQ(FileFilter(".HEXBIN"), "Kestrel Hex Files (*.hex)|*.hex|Kestrel Bin Files (*.bin)|*.bin||");
  EXPECT_STREQ(FileFilter(".nce"), "Kestrel Obj Files (*.obj)|*.obj||");
}

TEST_F(LoadFile, CancelEmptiesTheView) {
  LoadSample("QV8348");
  EXPECT_FALSE(TheAppState().conversion.LoadedFilePath.empty());
  op.files.clear();
  OnLoadFile();
  EXPECT_TRUE(op.told.empty() && TheAppState().conversion.LoadedFilePath.empty());
  EXPECT_TRUE(TheHexView().Blanked && TheMainControls()[ControlId::HexView].visible);
  EXPECT_EQ(TheAppState().writer.ProgressMode, Progress::Transfers);
}

TEST_F(LoadFile, AGoodRunLeavesEverythingInPlace) {
  op.cursorsLoad = true;
  LoadSample("QV8348");
  const AppState& app = TheAppState();
  EXPECT_EQ(app.conversion.LoadedFilePath, Path("samples/QV8348.bin"));
  EXPECT_EQ(TheHexView().Data, Contents("samples/QV8348.bin"));
  EXPECT_EQ(op.cursor, 1);
  EXPECT_EQ(app.writer.ProgressMode, Progress::None);
  EXPECT_TRUE(app.program.ReadyText.empty());
  EXPECT_FALSE(TheMainControls()[ControlId::BufferArea].enabled);
  TheAppState().selection.MassProduction = MassMode::On;
  Load("samples/QV8348.hex");
  EXPECT_EQ(writer.FirmwareLoads(), 1);
  EXPECT_TRUE(TheMainControls()[ControlId::Verify].enabled);
}

TEST_F(LoadFile, AFailedConversionSendsNothingButReadsTheBlock) {
  PutFolderFor("QV8348");
  Select("QV8348");
  Write("bad.hex", Bytes{'x'});
  Load("bad.hex");
  EXPECT_EQ(op.Heard(), Texts{Path("bad.hex") + " open file error\n"});
  EXPECT_EQ(writer.FirmwareLoads(), 0);
  EXPECT_EQ(TheMainControls()[ControlId::ChecksumField].text, "FFFF");
  EXPECT_TRUE(TheMainControls()[ControlId::HexView].visible);
}

TEST_F(LoadFile, NewerFirmwareIsAskedAbout) {
  PutFolderFor("QV8348");
  Select("QV8348");
  TheAppState().writer.FirmwareLevel = 5;
  Load("samples/QV8348.hex");
  EXPECT_EQ(op.Boxes(),
            (std::vector<Told>{{"Software Version is Old, Still continue to use ?", " ", MessageIcon::Warning}}));
  EXPECT_EQ(writer.FirmwareLoads(), 0);
  TheAppState().writer.FirmwareCode = 0x2710;
  op.answers = {true};
  Load("samples/QV8348.hex");
  EXPECT_EQ(op.Heard().back(), "Loading Data Ok");
  EXPECT_EQ(writer.FirmwareLoads(), 1);
  EXPECT_EQ(TheAppState().writer.FirmwareLevel, 4U);
}

TEST_F(LoadFile, AnEmptyPathEndsTheRun) {
  Select("QV8348");
  op.files = {std::string()};
  OnLoadFile();
  EXPECT_EQ(op.Boxes(), (std::vector<Told>{{"File is empty.", "PyxisLoad", MessageIcon::None}}));
}

TEST_F(LoadFile, OptionsReachTheJob) {
  using Dialog = COptionSelectDlg;
  // button clicked, -1 none
  // clang-format off
  for (const auto& [chip, protect, ok, value, modeVisible, unprotect] :
       Table<const char*, int, bool, std::uint32_t, bool, bool>{
           {"QVL04", -1, true, 0x67, true, true}, {"QVL05", 1, true, 0x66, true, false},
           {"QVL06", 1, false, 0x60, true, false}, {"QVL07", -1, true, 0x61, false, true},
           {"QVL13", 1, true, 0x60, false, false}, {"QV4105", -1, true, 1, false, true},
           {"QV4106", 1, true, 0, false, false}, {"QV4105", -1, false, 0x60, false, true}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    op.optionSelect = [&](Dialog& dialog) {
      EXPECT_EQ(dialog.Shown(Dialog::Protection), 0);
      EXPECT_EQ(dialog.Shown(Dialog::Mode), modeVisible ? 0 : -1);
      if (protect >= 0) dialog.Click(Dialog::Protection, protect);
      if (ok) dialog.OnOk();
      return ok ? DialogEnd::Ok : DialogEnd::Cancel;
    };
    LoadSample(chip);
    EXPECT_EQ(TheAppState().selection.OptionValue, value);
    const MainControls& controls = TheMainControls();
    EXPECT_EQ(controls[ControlId::FastMode].visible, modeVisible);
    EXPECT_TRUE(controls[ControlId::Protect].visible);
    EXPECT_EQ(controls[ControlId::Unprotect].checked, unprotect);
    EXPECT_EQ(controls[ControlId::Protect].checked, !unprotect);
  }
}

TEST_F(LoadFile, ReadyTexts) {
  const std::string lines = "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n";
  const std::string english = "Downloading Data , Please don't power off or plug out USB cable\r\n";
  EXPECT_EQ(ComposeReadyText(0x0C04), lines);
  EXPECT_EQ(ComposeReadyText(0x0409), ComposeReadyText(0x0404));
  EXPECT_EQ(ComposeReadyText(0x0404), lines + std::string(40, ' ') + "下載資料中 , 請勿關閉電源或拔除USB接線\r\n\r\n" +
                                          std::string(40, ' ') + english);
  EXPECT_EQ(ComposeReadyText(0x0804).substr(22, 13), std::string(13, ' '));
}

}  // namespace
}  // namespace pyxis::test
