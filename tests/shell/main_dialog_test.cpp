// The main dialog without a window: how it comes up, what its menu offers, IC selection, version check, and how it
// ends.
#include "shell/main_dialog.h"

#include "catalogue/ic_select.h"
#include "link/writer_commands.h"
#include "platform/text.h"
#include "serial/sn_set.h"
#include "shell/application.h"
#include "shell/version_check.h"
#include "support/recorded_bench.h"

namespace pyxis::test {
namespace {

// The program as it starts: a fresh state, and the program folder as the current one.
class MainDialog : public RecordedOnBoth {
 protected:
  MainDialog() { std::filesystem::current_path(folder); }
  ~MainDialog() override { std::filesystem::current_path(before_); }
  void Restart(bool buttonsOn) {
    app.ExitInstance();
    ResetAppState();
    ResetMainControls();
    for (const ControlId id : {ControlId::Auto, ControlId::BlankCheck, ControlId::Program, ControlId::Verify,
                               ControlId::Read, ControlId::WriterTest, ControlId::SmartOption})
      EnableControl(id, buttonsOn);
    Start();
    app.InitInstance();
    dialog.OnInitDialog();
  }
  Texts Opened() const {
    return Usb() ? Texts{"api open 9899 0 0 failed", "usb open", "usb configuration 1", "usb claim 0"}
                 : Texts{"api open 9899 0 0", "api timeout 5"};
  }
  static bool Enabled(ControlId id) { return TheMainControls()[id].enabled; }
  static bool Visible(ControlId id) { return TheMainControls()[id].visible; }
  CPyxisLoadApp app;
  CPyxisLoadDlg dialog;
  const Texts form{"off Buffer", "hide Read WriterTest"};
  const Texts panel{"hide Unprotect Protect Fast Dual 32K- 32K+"};

 private:
  const std::filesystem::path before_ = std::filesystem::current_path();
};

TEST_P(MainDialog, StartsWithoutAWriter) {
  usb.pluggedIn = vendor.pluggedIn = false;
  Restart(true);
  ExpectEvents(
      Texts{"api open 9899 0 0 failed"} + form + Texts{"not connected = USB was not connected"} + panel +
      Texts{"off Auto BlankCheck Program Verify Read WriterTest", "hide EXHV-ISP ISP Mass Limit", "off SmartOption"});
  const WriterState& state = TheAppState().writer;
  EXPECT_EQ(All(TheMainControls().title, state.HwFolder, state.HwKnown, state.WriterModel),
            All("PyxisLoad", "hwversion1.0", false, Model::None));
  EXPECT_EQ(TheAppState().program.AppDir, std::filesystem::current_path().string() + "/");
  EXPECT_EQ(TheAppState().program.StartDirectory, std::filesystem::current_path().string());
}

TEST_P(MainDialog, StartsWithTheJobOfTheWriter) {
  LoadSample("QV8348");
  Write("res/QV8348.bmp", Bytes{1});
  const std::string checksum = Printf("Checksum = %02X%02X", writer.OptionArea()[16], writer.OptionArea()[17]);
  Restart(false);
  ExpectEvents(Opened() + form + Texts{"w IDENTITY 26"} + Peek("FA 8F") + InfoBlock() + FirmwareBytes() +
               Texts{"w IDENTITY 26", "connected = PYX STANDALONE LOADER"} + panel +
               Texts{"on Auto BlankCheck Program Verify Read WriterTest"} + InfoBlock() +
               Texts{"ChipName = QV8348", "title = PyxisLoad  QV8348  ", "hide EXHV-ISP ISP Mass Limit",
                     "figure = res/QV8348.bmp", checksum, "on SmartOption"} +
               OnUsb({"bar off"}));
  const WriterState& state = TheAppState().writer;
  EXPECT_EQ(All(state.WriterModel, state.FirmwareCode, state.FirmwareVersion, state.FirmwareLevel),
            All(Model::Km48, 0x2710U, 1, 4U));
  Start();
  dialog.OnButton(ControlId::SmartOption);
  app.ExitInstance();
  ExpectEvents({"dialog Smart Option", "Cancel", Usb() ? "usb close" : "api close"});
}

// The labels of the modes: Production Limit is hidden at every start, and 0x11 isn't the mode of Mass Production's.
TEST_P(MainDialog, StartsWithTheModesOfTheJob) {
  LoadSample("QV8348");
  // clang-format off
  for (const auto& [isp, production, exhv, ispShown, mass, programOn] : Table<int, int, bool, bool, bool, bool>{
           {0, 0, false, false, false, true}, {1, 0x10, true, false, true, false}, {2, 0x11, false, true, false, false},
           {3, 1, true, true, false, true}}) {
    // clang-format on
    writer.OptionArea()[76] = static_cast<std::uint8_t>(isp);
    writer.OptionArea()[78] = static_cast<std::uint8_t>(production);
    Restart(false);
    EXPECT_EQ(All(Visible(ControlId::ExhvIspLabel), Visible(ControlId::IspLabel),
                  Visible(ControlId::MassProductionLabel), Visible(ControlId::ProductionLimitLabel)),
              All(exhv, ispShown, mass, false));
    EXPECT_EQ(All(Enabled(ControlId::Auto), Enabled(ControlId::BlankCheck), Enabled(ControlId::Program),
                  Enabled(ControlId::Verify)),
              All(true, programOn, programOn, programOn));
  }
}

TEST_P(MainDialog, AStrangeIdentityIsNoKnownHardware) {
  writer.identity.back() = '9';
  Restart(true);
  // The frame link doesn't look into the memory of a writer that it doesn't know.
  EXPECT_EQ(All(TheAppState().writer.HwKnown, TheAppState().writer.ModelRegister), All(false, Usb() ? 0 : 0x98));
}

TEST_P(MainDialog, WhatIsNotOffered) {
  Restart(true);
  EXPECT_FALSE(dialog.DropsMousePress());
  TheAppState().writer.TransferBusy = true;
  EXPECT_TRUE(dialog.DropsMousePress());
  Start();
  dialog.OnCommand(MenuEntry::LoadFile);  // no IC: the entry is disabled
  dialog.OnMouseMove(12, 7);
  dialog.OnMenuPrompt("Load file *.Hex *.Otp *.Obj");
  dialog.OnCommand(MenuEntry::About);
  ExpectEvents({"status = X=12 Y=7", "status = Load file *.Hex *.Otp *.Obj", "dialog About"});
}

TEST_P(MainDialog, SelectsAnIc) {
  LoadSample("QV8348");
  Write("res/QV8103ISP1.bmp", Bytes{1});
  Restart(true);
  TheAppState().conversion.SystemConfigWord = 5;
  SetControlText(ControlId::FileField, "before");
  op.icSelect = [](CIcSelectDlg& select) {
    select.OnSeriesChange(2);
    select.OnTypeChange(4);
    select.OnIsp(true);
    select.OnMassProduction(true);
    select.OnDisplaySerial(true);
    return DialogEnd::Ok;
  };
  op.snSet = [](CSnSetDlg&) { return DialogEnd::Cancel; };
  Start();
  dialog.OnCommand(MenuEntry::Device);
  ExpectEvents(Peek("FA 8F") + InfoBlock() +
               Texts{"dialog IC Type Select", "OK", "ChipName = QV8103", "title = PyxisLoad  QV8103  ",
                     "off BlankCheck Program Verify", "figure = res/QV8103ISP1.bmp", "FileField = ", "hex white",
                     "Checksum = ", "dialog Serial Number Set", "Cancel", "show ISP Mass"} +
               OnUsb({"bar off"}));
  const Selection& chosen = TheAppState().selection;
  EXPECT_EQ(All(chosen.SelectedChip, chosen.IspProgram, chosen.ExhvIsp, chosen.MassProduction, chosen.SnMode),
            All("QV8103", true, false, MassMode::On, true));
  EXPECT_EQ(All(TheAppState().conversion.SystemConfigWord, TheAppState().conversion.LoadedFilePath), All(-1, ""));

  // Cancel keeps the IC, its file and its figure, but not the two modes.
  op.icSelect = nullptr;
  Start();
  dialog.OnCommand(MenuEntry::Device);
  ExpectEvents(Peek("FA 8F") + InfoBlock() + Texts{"dialog IC Type Select", "Cancel"} + OnUsb({"bar off"}));
  EXPECT_EQ(All(chosen.SelectedChip, chosen.IspProgram, chosen.MassProduction, chosen.SnMode),
            All("QV8103", true, MassMode::Off, false));

  // With limit and panel, and a writer whose model isn't known any more.
  op.icSelect = [](CIcSelectDlg& select) {
    select.OnSeriesChange(7);
    select.OnProductionLimit(true);
    select.OnLimitText("1234");
    select.OnOk();
    return DialogEnd::Ok;
  };
  dialog.OnCommand(MenuEntry::Device);
  EXPECT_EQ(All(chosen.SelectedChip, chosen.ProductionLimitOn, chosen.ProductionLimitCount, chosen.IspProgram),
            All("QVL04", true, 1234, false));
  EXPECT_TRUE(Visible(ControlId::ProductionLimitLabel) && Visible(ControlId::FastMode));
  EXPECT_FALSE(Enabled(ControlId::Program) || Enabled(ControlId::SmartOption) || Visible(ControlId::IspLabel));
  writer.Memory()[address::kModel] = writer.OptionArea()[207] = 0;
  Start();
  dialog.OnCommand(MenuEntry::Device);
  ExpectEvents(Peek("FA 8F") + InfoBlock() + Texts{"box [Message, stop] Please Power On The Writer"} +
               OnUsb({"bar off"}));
}

TEST_P(MainDialog, ChecksTheVersion) {
  SetProgressPosition(0);  // that the load before has left full
  const Texts asked{"load cursor dinosaur.ani", "cursor busy", "main window off", "paint", "update client",
                    "main window on",           "cursor arrow"};
  const std::string question = "ask [Select Exit ? ] Do you want to exit old version of PyxisLoad ?: ";
  // clang-format off
  for (const auto& [result, yes, events] : Table<std::int32_t, bool, Texts>{
           {0, true, {question + "Yes", "end main window"}}, {0, false, {question + "No"}},
           {4, true, {"box [PyxisLoad] This is newer version ."}}, {1, true, {}}, {-1, true, {}}, {5, true, {}}}) {
    // clang-format on
    record.updateResult = result;
    op.answers = {yes};
    Start();
    dialog.OnCommand(MenuEntry::CheckNewVersion);
    ExpectEvents(asked + events);
  }
  const std::string request = UpdateRequest;
  EXPECT_TRUE(request.starts_with("<?xml version=\"1.0\" encoding=\"utf-8\"?><soap:Envelope "));
  EXPECT_NE(request.find("<clientXmlstr>&lt;?xml version=\"1.0\" encoding=\"utf-8\"?&gt;&lt;root&gt;&lt;oldFileInfo&gt;"
                         "&lt;progid&gt;KM48_EN&lt;/progid&gt;\n&lt;verno&gt;1.0.2&lt;/verno&gt;\n"
                         "&lt;buildno&gt;034&lt;/buildno&gt;\n&lt;/oldFileInfo&gt;\n&lt;/root&gt;\n</clientXmlstr>"),
            std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(BothTransports, MainDialog, kBothTransports);

class Menu : public RecordedBench {
 protected:
  void Select(const std::string& chip) { TheAppState().selection.ChipNameText = chip; }
};

TEST_F(Menu, WhatEachIcIsOffered) {
  const Texts noSerial{"QV4105", "QV4106", "QV4103", "QV4206", "QV4204", "QV4203", "QV4201", "QV8369", "QV4207",
                       "QV4205", "QV4301", "QV4101", "QV8121", "QV8122", "QV8120", "QV8119", "QV8103", "QV8104",
                       "QV8123", "QV8105", "QV8115", "QV8117", "QV8111", "QV8113", "QV8401", "QV8106", "QV8101",
                       "QV8102", "QV8108", "QV8116", "QV8118", "QV8112", "QV8114", "QV8107", "QV8109"};
  const Texts noInfo{"QV4105", "QV4106", "QV4103", "QV4206", "QV4204", "QV4203", "QV4201",
                     "QV4207", "QV4205", "QV4107", "QV4302", "QV4101", "QV4104"};
  const auto in = [](const Texts& list, const std::string& chip) {
    return std::find(list.begin(), list.end(), chip) != list.end();
  };
  for (const std::string& chip : noSerial + noInfo + Texts{"QV8348", "QVL01", "QV8202", "QV8110", "QV4102", "QV41"}) {
    SCOPED_TRACE(chip);
    Select(chip);
    EXPECT_EQ(MenuEnabled(MenuEntry::SerialNumberProgram), !in(noSerial, chip));
    EXPECT_EQ(MenuEnabled(MenuEntry::ReadChipInfo), !in(noInfo, chip));
  }
}

TEST_F(Menu, WhatEachEntryNeeds) {
  // an IC, a writer, modes, ProductionFlags of the block: the entries that are enabled
  const std::string always = "device update exit version about", base = "load compare protect ";
  AppState& state = TheAppState();
  // clang-format off
  for (const auto& [chip, connected, mass, limit, flags, enabled] :
       Table<const char*, bool, MassMode, bool, int, std::string>{
           {"QV8348", true, MassMode::Off, false, 0, base + "serial info " + always},
           {"QV8348", false, MassMode::Off, false, 0, always}, {"", true, MassMode::Off, false, 0, always},
           {"QV8348", true, MassMode::On, false, 0, base + "serial " + always},
           {"QV8348", true, MassMode::WithLimit, false, 0, base + "serial info " + always},
           {"QV8348", true, MassMode::Off, true, 0, base + "serial " + always},
           {"QV8348", true, MassMode::Off, false, 2, base + "serial " + always},
           {"QV4107", true, MassMode::Off, false, 0, base + "serial " + always},
           {"QV8121", true, MassMode::Off, false, 0, base + "info " + always}}) {
    // clang-format on
    Select(chip);
    state.writer.WriterConnected = connected;
    state.selection.MassProduction = mass;
    state.selection.ProductionLimitOn = limit;
    state.writer.WriterInfoBlock[78] = static_cast<std::uint8_t>(flags);
    std::string got;
    for (const auto& [entry, name] : Table<MenuEntry, const char*>{{MenuEntry::LoadFile, "load"},
                                                                   {MenuEntry::SaveAs, "save"},
                                                                   {MenuEntry::CompareFile, "compare"},
                                                                   {MenuEntry::SetProtect, "protect"},
                                                                   {MenuEntry::SerialNumberProgram, "serial"},
                                                                   {MenuEntry::ReadChipInfo, "info"},
                                                                   {MenuEntry::Device, "device"},
                                                                   {MenuEntry::UpdateFirmware, "update"},
                                                                   {MenuEntry::Exit, "exit"},
                                                                   {MenuEntry::CheckNewVersion, "version"},
                                                                   {MenuEntry::About, "about"}})
      if (MenuEnabled(entry)) got += (got.empty() ? "" : " ") + std::string(name);
    EXPECT_EQ(got, enabled);
  }
}

}  // namespace
}  // namespace pyxis::test
