#include "options/set_protect.h"

#include "catalogue/ic_select.h"
#include "intake/package_files.h"
#include "options/option_select.h"
#include "serial/sn_set.h"
#include "shell/on_device.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

class SetProtect : public StandinBench {
 protected:
  void Protect(bool protect) {
    op.optionSelect = [protect](COptionSelectDlg& dialog) {
      EXPECT_EQ(dialog.Shown(COptionSelectDlg::Protection), 0);
      EXPECT_EQ(dialog.Shown(COptionSelectDlg::Clock), -1);
      dialog.Click(COptionSelectDlg::Protection, protect ? 1 : 0);
      dialog.OnOk();
      return DialogEnd::Ok;
    };
    OnSetProtect();
  }
};

TEST_F(SetProtect, ChangesOneBitOfTheJob) {
  // clang-format off
  for (const auto& [chip, byte, mask, setWithProtect, inConfig, panel] :
       Table<const char*, std::size_t, int, bool, bool, bool>{
           {"QVL13", 36, 1, false, false, true}, {"QV4105", 36, 1, false, false, true},
           {"QV4103", 37, 1, false, false, true}, {"QVL04", 36, 1, false, false, true},
           {"QV4101", 43, 1, true, false, true}, {"QV4207", 43, 1, true, false, true},
           {"QV8121", 36, 0x80, true, true, false}, {"QV8202", 36, 0x20, false, true, false},
           {"QVL12", 36, 0x20, false, true, false}, {"QV8348", 36, 0x20, true, true, false},
           {"QV8501", 36, 0x20, true, true, false}, {"QVL01", 36, 0x20, true, true, false}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    op.optionSelect = nullptr;
    LoadSample(chip);
    const Bytes data = Contents(kDataPackageName);
    for (const bool protect : {true, false, true}) {
      TheAppState().conversion.SystemConfigWord = 0xFFFF;
      Protect(protect);
      const bool set = protect == setWithProtect;
      EXPECT_EQ((writer.OptionArea()[byte] & mask) != 0, set);
      EXPECT_EQ(All(Contents(kOptionPackageName), Contents(kOptionPackageName).size()), All(writer.OptionArea(), 512U));
      EXPECT_EQ(TheAppState().conversion.SystemConfigWord, inConfig && !set ? 0xFFFF & ~(mask << 8) : 0xFFFF);
      EXPECT_EQ(TheMainControls()[ControlId::Protect].visible, panel);
      if (panel) {
        EXPECT_EQ(TheMainControls()[ControlId::Protect].checked, protect);
      }
    }
    EXPECT_EQ(Contents(kDataPackageName), data);
  }
}

TEST_F(SetProtect, AnUnknownWordStaysUnknownOrLosesTheBit) {
  LoadSample("QV8348");
  TheAppState().conversion.SystemConfigWord = -1;
  Protect(true);
  EXPECT_EQ(TheAppState().conversion.SystemConfigWord, -1);
  Protect(false);
  EXPECT_EQ(TheAppState().conversion.SystemConfigWord, 0xDFFF);
}

// Another one: a job whose IC isn't found by its bare name leaves another IC's row selected.
TEST_F(SetProtect, CancelAndAnotherIcsRowChangeNothing) {
  LoadSample("QV8348");
  const Bytes before = writer.OptionArea();
  OnSetProtect();
  EXPECT_EQ(op.Heard(), Texts{});
  TheAppState().selection.SelectedChip = "QV8305";
  OnSetProtect();
  EXPECT_EQ(op.Heard(), Texts{"HW and SW Chip Name is discordant"});
  Select("QV8309");  // and no file loaded for it
  op.told.clear();
  OnSetProtect();
  EXPECT_EQ(op.Heard(), Texts{"HW and SW Chip Name is discordant"});
  EXPECT_EQ(writer.OptionArea(), before);
}

class Selection : public StandinBench {};

TEST_F(Selection, OkTakesEverythingOver) {
  LoadSample("QV8348");
  Write("res/QV8103ISP1.bmp", Bytes{1});
  TheAppState().conversion.SystemConfigWord = 5;
  op.icSelect = [](CIcSelectDlg& dialog) {
    dialog.OnSeriesChange(2);
    dialog.OnTypeChange(4);
    dialog.OnIsp(true);
    dialog.OnMassProduction(true);
    dialog.OnDisplaySerial(true);
    return DialogEnd::Ok;
  };
  int serialRuns = 0;
  op.snSet = [&](CSnSetDlg&) { return ++serialRuns, DialogEnd::Cancel; };
  OnDevice();
  const AppState& app = TheAppState();
  EXPECT_EQ(All(app.selection.SelectedChip, app.conversion.SystemConfigWord), All("QV8103", -1));
  EXPECT_EQ(All(app.selection.IspProgram, app.selection.MassProduction, app.selection.SnMode),
            All(true, MassMode::On, true));
  EXPECT_EQ(serialRuns, 1);
  EXPECT_TRUE(app.conversion.LoadedFilePath.empty() && app.conversion.ChecksumText.empty());
  const MainControls& controls = TheMainControls();
  EXPECT_EQ(controls.pinFigure, Path("res/QV8103ISP1.bmp"));
  EXPECT_TRUE(controls[ControlId::IspLabel].visible && controls[ControlId::MassProductionLabel].visible);
  EXPECT_FALSE(controls[ControlId::ExhvIspLabel].visible);
  EXPECT_TRUE(controls[ControlId::Auto].enabled);
  EXPECT_FALSE(controls[ControlId::Program].enabled);
  EXPECT_TRUE(controls[ControlId::SmartOption].enabled);

  op.icSelect = nullptr;  // Cancel keeps the chip
  OnDevice();
  EXPECT_EQ(
      All(app.selection.SelectedChip, app.selection.MassProduction, app.selection.SnMode, app.selection.IspProgram),
      All("QV8103", MassMode::Off, false, true));
}

}  // namespace
}  // namespace pyxis::test
