// The main dialog without a window: how it comes up, runs commands and ends.
#include "shell/main_dialog.h"

#include "link/writer_commands.h"
#include "shell/application.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

constexpr ControlId kButtons[] = {ControlId::Auto, ControlId::BlankCheck, ControlId::Program,    ControlId::Verify,
                                  ControlId::Read, ControlId::WriterTest, ControlId::SmartOption};

// The program as it starts: a fresh state, and the program folder as the current one.
class MainDialog : public BothTransports {
 protected:
  MainDialog() { std::filesystem::current_path(folder); }
  ~MainDialog() override { std::filesystem::current_path(before_); }
  void Restart() {
    app.ExitInstance();
    ResetAppState();
    ResetMainControls();
    app.InitInstance();
    dialog.OnInitDialog();
  }
  void PullOut(bool out) { usb.pluggedIn = vendor.pluggedIn = !out; }
  bool Enabled(ControlId id) { return TheMainControls()[id].enabled; }
  bool Visible(ControlId id) { return TheMainControls()[id].visible; }
  CPyxisLoadApp app;
  CPyxisLoadDlg dialog;

 private:
  const std::filesystem::path before_ = std::filesystem::current_path();
};

TEST_P(MainDialog, StartsWithoutAWriter) {
  PullOut(true);
  Restart();
  for (const ControlId id : kButtons) EXPECT_FALSE(Enabled(id));
  EXPECT_FALSE(Visible(ControlId::Protect) || Visible(ControlId::MassProductionLabel));
  EXPECT_EQ(All(TheMainControls().title, TheMainControls().statusBar.pane1), All("PyxisLoad", "USB was not connected"));
  EXPECT_EQ(All(TheAppState().writer.HwFolder, TheAppState().writer.HwKnown), All("hwversion1.0", 0U));
  EXPECT_EQ(TheAppState().writer.WriterModel, Model::None);
  EXPECT_EQ(TheAppState().program.AppDir, std::filesystem::current_path().string() + "/");
  EXPECT_EQ(TheAppState().program.StartDirectory, std::filesystem::current_path().string());
  EXPECT_TRUE(op.told.empty());
}

TEST_P(MainDialog, StartsWithTheJobOfTheWriter) {
  LoadSample("QV8348");
  writer.OptionArea()[76] = 2;
  Restart();
  for (const ControlId id : kButtons) EXPECT_TRUE(Enabled(id));
  EXPECT_EQ(TheMainControls().title, "PyxisLoad  QV8348  ");
  EXPECT_EQ(TheMainControls().statusBar.pane1, "PYX STANDALONE LOADER");
  EXPECT_EQ(TheAppState().writer.WriterModel, Model::Km48);
  EXPECT_FALSE(TheMainControls().statusBar.progressVisible);
  EXPECT_TRUE(Visible(ControlId::IspLabel));
  EXPECT_FALSE(Visible(ControlId::Read) || Visible(ControlId::WriterTest));
  dialog.OnButton(ControlId::Auto);
  EXPECT_EQ(op.Heard(), Texts{"Auto OK"});

  writer.OptionArea()[78] = 0x11;
  Restart();
  EXPECT_TRUE(Enabled(ControlId::Auto));
  EXPECT_FALSE(Enabled(ControlId::Program));
  EXPECT_EQ(TheAppState().selection.ProductionLimitOn, 1U);
  EXPECT_FALSE(Visible(ControlId::ProductionLimitLabel));  // hidden at every start
  EXPECT_FALSE(Visible(ControlId::MassProductionLabel));   // 0x11 isn't the mode that this label shows
}

TEST_P(MainDialog, AStrangeIdentityIsNoKnownHardware) {
  writer.identity.back() = '9';
  Restart();
  EXPECT_EQ(TheAppState().writer.HwKnown, 0U);
  // The frame link doesn't look into the memory of a writer that it doesn't know.
  EXPECT_EQ(TheAppState().writer.ModelRegister, GetParam() == Transport::Usb ? 0 : kRegisterKm48);
}

TEST_P(MainDialog, WhatIsNotOffered) {
  Restart();
  EXPECT_FALSE(dialog.DropsMousePress());
  TheAppState().writer.TransferBusy = true;
  EXPECT_TRUE(dialog.DropsMousePress());
  dialog.OnCommand(MenuEntry::LoadFile);  // no IC: the entry is disabled
  EXPECT_TRUE(op.filters.empty());
  dialog.OnCommand(MenuEntry::About);
  EXPECT_EQ(op.aboutRuns, 1);
}

INSTANTIATE_TEST_SUITE_P(BothTransports, MainDialog, kBothTransports);

}  // namespace
}  // namespace pyxis::test
