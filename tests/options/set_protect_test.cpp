#include "options/set_protect.h"

#include "catalogue/chip_catalogue.h"
#include "catalogue/ic_select.h"
#include "intake/package_files.h"
#include "options/option_select.h"
#include "serial/sn_set.h"
#include "shell/app_state.h"
#include "shell/main_controls.h"
#include "shell/on_device.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

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
  struct Case {
    const char* chip;
    std::size_t byte;
    int mask;
    bool setWithProtect, inConfig, panel;
  };
  for (const Case& c : {Case{"QVL13", 36, 1, false, false, true}, Case{"QV4105", 36, 1, false, false, true},
                        Case{"QV4103", 37, 1, false, false, true}, Case{"QVL04", 36, 1, false, false, true},
                        Case{"QV4101", 43, 1, true, false, true}, Case{"QV4207", 43, 1, true, false, true},
                        Case{"QV8121", 36, 0x80, true, true, false}, Case{"QV8202", 36, 0x20, false, true, false},
                        Case{"QVL12", 36, 0x20, false, true, false}, Case{"QV8348", 36, 0x20, true, true, false},
                        Case{"QV8501", 36, 0x20, true, true, false}, Case{"QVL01", 36, 0x20, true, true, false}}) {
    SCOPED_TRACE(c.chip);
    op.optionSelect = nullptr;
    LoadSample(c.chip);
    const Bytes data = Contents(kDataPackageName);
    for (const bool protect : {true, false, true}) {
      TheAppState().SystemConfigWord = 0xFFFF;
      Protect(protect);
      const bool set = protect == c.setWithProtect;
      EXPECT_EQ((writer.OptionArea()[c.byte] & c.mask) != 0, set);
      EXPECT_EQ(Contents(kOptionPackageName), writer.OptionArea());
      EXPECT_EQ(Contents(kOptionPackageName).size(), 512U);
      EXPECT_EQ(TheAppState().SystemConfigWord, c.inConfig && !set ? 0xFFFF & ~(c.mask << 8) : 0xFFFF);
      EXPECT_EQ(TheMainControls()[ControlId::Protect].visible, c.panel);
      if (c.panel) {
        EXPECT_EQ(TheMainControls()[ControlId::Protect].checked, protect);
      }
    }
    EXPECT_EQ(Contents(kDataPackageName), data);
  }
}

TEST_F(SetProtect, AnUnknownWordStaysUnknownOrLosesTheBit) {
  LoadSample("QV8348");
  TheAppState().SystemConfigWord = -1;
  Protect(true);
  EXPECT_EQ(TheAppState().SystemConfigWord, -1);
  Protect(false);
  EXPECT_EQ(TheAppState().SystemConfigWord, 0xDFFF);
}

TEST_F(SetProtect, CancelSendsNothing) {
  LoadSample("QV8348");
  const Bytes before = writer.OptionArea();
  op.optionSelect = nullptr;
  OnSetProtect();
  EXPECT_EQ(writer.OptionArea(), before);
}

// A job whose IC isn't found by its bare name leaves another IC's row selected.
TEST_F(SetProtect, AnotherIcsRowChangesNothing) {
  LoadSample("QV8348");
  const Bytes before = writer.OptionArea();
  TheAppState().SelectedChip = "QV8305";
  op.told.clear();
  OnSetProtect();
  EXPECT_EQ(op.Texts(), std::vector<std::string>{"HW and SW Chip Name is discordant"});
  EXPECT_EQ(writer.OptionArea(), before);
}

class Selection : public StandinBench {};

TEST_F(Selection, OkTakesEverythingOver) {
  LoadSample("QV8348");
  Write("res/QV8103ISP1.bmp", Bytes{1});
  TheAppState().SystemConfigWord = 5;
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
  EXPECT_EQ(app.SelectedChip, "QV8103");
  EXPECT_EQ(app.SystemConfigWord, -1);
  EXPECT_EQ(app.IspProgram + app.MassProduction + app.SnMode, 3U);
  EXPECT_EQ(serialRuns, 1);
  EXPECT_TRUE(app.LoadedFilePath.empty() && app.ChecksumText.empty());
  const MainControls& controls = TheMainControls();
  EXPECT_EQ(controls.pinFigure, Path("res/QV8103ISP1.bmp"));
  EXPECT_TRUE(controls[ControlId::IspLabel].visible && controls[ControlId::MassProductionLabel].visible);
  EXPECT_FALSE(controls[ControlId::ExhvIspLabel].visible);
  EXPECT_TRUE(controls[ControlId::Auto].enabled);
  EXPECT_FALSE(controls[ControlId::Program].enabled);
  EXPECT_TRUE(controls[ControlId::SmartOption].enabled);

  op.icSelect = nullptr;  // Cancel keeps the chip
  OnDevice();
  EXPECT_EQ(app.SelectedChip, "QV8103");
  EXPECT_EQ(app.MassProduction + app.SnMode, 0U);
  EXPECT_EQ(app.IspProgram, 1U);
}

TEST_F(Selection, EitherWitnessIsEnough) {
  struct Case {
    std::uint8_t inRegister, inBlock;
    int model;
  };
  for (const Case& c : {Case{0x98, 0, 1}, Case{0, 0x98, 1}, Case{0x99, 0x98, 1}, Case{0x98, 0x99, 1}, Case{0x99, 0, 2},
                        Case{0, 0x99, 2}, Case{0, 0, 0}}) {
    writer.Memory()[0xFA8F] = c.inRegister;
    writer.OptionArea()[207] = c.inBlock;
    op.told.clear();
    OnDevice();
    EXPECT_EQ(TheAppState().WriterModel, c.model);
    EXPECT_EQ(op.told.size(), c.model == 0 ? 1U : 0U);
  }
}

}  // namespace
}  // namespace pyxis::test
