// The writer plugged in and pulled out: the events, the witnesses of the model, and what a refresh shows.
#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "platform/byte_order.h"
#include "platform/text.h"
#include "pyxisfolder/folder.h"
#include "shell/device_arrival.h"
#include "shell/main_dialog.h"
#include "shell/on_device.h"
#include "shell/refresh_from_writer.h"
#include "shell/start_up.h"
#include "support/recorded_bench.h"
#include "view/hex_view.h"

namespace pyxis::test {
namespace {

const DeviceEvent kWriterCame{DeviceEvent::Kind::Arrival, "dev#{6580898b-0493-40b6-87aa-d307188d4e24}"};
const DeviceEvent kOtherCame{DeviceEvent::Kind::Arrival, "dev#{6580898B-0493-40B6-87AA-D307188D4E24}"};
const DeviceEvent kWriterWent{DeviceEvent::Kind::Removal, "dev#{6580898b-0493-40b6-87aa-d307188d4e24}"};
const DeviceEvent kOtherWent{DeviceEvent::Kind::Removal, "mouse"};

class DeviceEvents : public RecordedOnBoth {
 protected:
  void Tell(const DeviceEvent& event) {
    Start();
    CPyxisLoadDlg().OnDevice(event);
  }
  void PlugIn(bool in) { (Usb() ? usb.pluggedIn : vendor.pluggedIn) = in; }
  // The search of an arrival; a device that is still open is closed first.
  Texts Open(bool open) const {
    return Texts{"api close"} + (Usb() ? Texts{"api open 9899 0 0 failed"} + (open ? Texts{"usb close"} : Texts{}) +
                                             Texts{"usb open", "usb configuration 1", "usb claim 0"}
                                       : Texts{"api open 9899 0 0", "api timeout 5"});
  }
  Texts Identified() const { return Texts{"w IDENTITY 26", "w SET_MODE 80"} + Peek("FA 8F"); }
  static Texts Settled() { return {"wait 1200", "w IDENTITY 26", "connected = PYX STANDALONE LOADER"}; }
  const Texts allOff{"off Auto BlankCheck Program Verify Read SmartOption WriterTest"};
};

TEST_P(DeviceEvents, PulledOutAndPutBack) {
  LoadSample("QV8348");
  Write("res/QV8348.bmp", Bytes{1});
  PlugIn(false);
  Tell(kWriterWent);
  ExpectEvents((Usb() ? Texts{"usb close"} : Texts{"api open 9899 0 0 failed", "api close", "api IDENTITY 26"}) +
               Texts{"not connected = USB was not connected"} + allOff);
  EXPECT_EQ(All(TheAppState().selection.SelectedChip, TheAppState().writer.WriterModel), All("QV8348", Model::Km48));

  Tell(kWriterCame);  // too early: nothing to open yet
  ExpectEvents({"api close", "api open 9899 0 0 failed"});
  EXPECT_FALSE(TheAppState().writer.WriterConnected);

  PlugIn(true);
  Tell(kWriterCame);
  ExpectEvents(Open(false) + Identified() + FirmwareBytes() + Settled() +
               Texts{"on Auto BlankCheck Program Verify Read WriterTest"} + InfoBlock() +
               Texts{"ChipName = QV8348", "title = PyxisLoad  QV8348  ", "hide EXHV-ISP ISP Mass Limit",
                     "figure = res/QV8348.bmp", "on SmartOption", "hide Unprotect Protect Fast Dual 32K- 32K+"} +
               OnUsb({"bar off"}));

  // Told twice, with a mode that leaves Auto alone, which shows in the job.
  writer.OptionArea()[78] = 0x10;
  for (const ControlId id : {ControlId::BlankCheck, ControlId::Verify}) EnableControl(id, false);
  Tell(kWriterCame);
  Texts settled = Settled();
  settled.pop_back();
  ExpectEvents(Open(true) + Identified() + FirmwareBytes() + settled + Texts{"on BlankCheck Verify"} + InfoBlock() +
               Texts{"figure = ", "show Mass", "off BlankCheck Program Verify", "figure = res/QV8348.bmp"} +
               OnUsb({"bar off"}));
}

// Another device: on the frame link its name tells, with velmarapi the library.
// Its name or its checksum isn't what is shown; the last byte of its block tells nothing.
TEST_P(DeviceEvents, AnotherJobEmptiesTheFileFieldAndTheView) {
  for (const std::size_t changed : {std::size_t{5}, Field::ImageChecksum.offset, std::size_t{511}}) {
    LoadSample("QV8348");
    ShowVerdict("Auto OK", true, false);
    TheMainControls().focus.reset();
    writer.OptionArea()[changed] ^= 1;
    const bool same = changed == 511;
    Tell(kWriterCame);
    EXPECT_EQ(TheAppState().conversion.LoadedFilePath.empty(), !same) << changed;
    EXPECT_EQ(TheMainControls()[ControlId::FileField].text, TheAppState().conversion.LoadedFilePath);
    EXPECT_EQ(All(TheHexView().Blanked, TheMainControls().verdict.words), All(!same, same ? "Auto OK" : ""));
    EXPECT_EQ(TheMainControls().focus, ControlId::Auto);
  }
}

TEST_P(DeviceEvents, AWriterWithoutFirmwareGetsItsTestImage) {
  const auto arrive = [this](std::uint8_t inBlock) {
    writer.Memory()[address::kModel] = 0;
    writer.OptionArea()[207] = inBlock;
    Tell(kWriterCame);
  };
  const Bytes image = pyxis::folder::MakeFirmware(Model::Km49, 0);
  Write("firmware49/49test.nce", image);
  arrive(0x99);
  ExpectEvents(Open(true) + Identified() + InfoBlock() +
               Texts{"box [Message, stop] Hardware/Firmware Error",
                     "box [Message, warning] KM49 Error About To Enter The Test Mode.\nPlease Wait"} +
               Firmware(image) + Texts{"box [Message] Test Ok.\nPlease Re-select The IC"} + FirmwareBytes() +
               Settled() + InfoBlock() + Texts{"hide EXHV-ISP ISP Mass Limit"} + Texts{"bar off"});
  TheAppState().program.ReadyText = "ready";
  arrive(0x98);  // no image of that model in the folder
  Texts settled = Settled();
  settled.pop_back();
  ExpectEvents(Open(true) + Identified() + InfoBlock() +
               Texts{"box [Message, stop] Hardware/Firmware Error",
                     "box [Message, warning] KM48 Error About To Enter The Test Mode.\nPlease Wait",
                     "box [Message] Test Fail", "Buffer = ready"} +
               FirmwareBytes() + settled + InfoBlock() + OnUsb({"bar off"}));
  arrive(0x55);
  ExpectEvents(Open(true) + Identified() + InfoBlock() +
               Texts{"box [Message, stop] Hardware Error", "box [Message, warning] Please sent for repair"} +
               FirmwareBytes() + settled + InfoBlock() + OnUsb({"bar off"}));
  EXPECT_EQ(TheAppState().writer.WriterModel, Model::None);
}

TEST_P(DeviceEvents, WitnessesOfTheModel) {
  // The start needs both, an arrival looks at the register alone, Device takes either.
  // clang-format off
  for (const auto& [inRegister, inBlock, atStart, atArrival, atDevice] :
       Table<std::uint8_t, std::uint8_t, Model, Model, Model>{
           {0x98, 0x98, Model::Km48, Model::Km48, Model::Km48}, {0x99, 0x99, Model::Km49, Model::Km49, Model::Km49},
           {0x98, 0x99, Model::None, Model::Km48, Model::Km48}, {0x99, 0x98, Model::None, Model::Km49, Model::Km48},
           {0x98, 0, Model::None, Model::Km48, Model::Km48}, {0x99, 0, Model::None, Model::Km49, Model::Km49},
           {0, 0x98, Model::None, Model::None, Model::Km48}, {0, 0x99, Model::None, Model::None, Model::Km49},
           {0x55, 0x55, Model::None, Model::None, Model::None}, {0, 0, Model::None, Model::None, Model::None}}) {
    // clang-format on
    SCOPED_TRACE(Printf("%02X %02X", inRegister, inBlock));
    writer.Memory()[address::kModel] = inRegister;
    writer.OptionArea()[207] = inBlock;
    WriterState& state = TheAppState().writer;
    state.WriterInfoBlock[207] = 0x98;
    IdentifyAtStart();
    EXPECT_EQ(state.WriterModel, atStart);
    Tell(kWriterCame);
    EXPECT_EQ(state.WriterModel, atArrival);
    op.Heard();
    pyxis::OnDevice();
    EXPECT_EQ(state.WriterModel, atDevice);
    EXPECT_EQ(op.Heard().empty(), atDevice != Model::None);
  }
}

INSTANTIATE_TEST_SUITE_P(BothTransports, DeviceEvents, kBothTransports);

class ComesBack : public StandinBench {};

TEST_F(ComesBack, WithAnotherJobItEmptiesFileAndView) {
  for (const std::size_t changed : {std::size_t{5}, Field::ImageChecksum.offset, std::size_t{511}}) {
    LoadSample("QV8348");
    TheMainControls().focus.reset();
    ShowVerdict("Auto OK", true, false);
    writer.OptionArea()[changed] ^= 1;  // QV8348 becomes QV8358, or the job another one; the last byte tells nothing
    const bool same = changed == 511;
    OnDeviceEvent(kWriterCame);
    EXPECT_EQ(TheAppState().conversion.LoadedFilePath.empty(), !same) << changed;
    EXPECT_EQ(TheMainControls()[ControlId::FileField].text, TheAppState().conversion.LoadedFilePath);
    EXPECT_EQ(TheHexView().Blanked, !same);
    EXPECT_EQ(TheMainControls().verdict.words, same ? "Auto OK" : "");
    EXPECT_EQ(TheMainControls().focus, ControlId::Auto);
  }
}

class Refresh : public RecordedBench {
 protected:
  std::array<std::uint8_t, 512>& block = TheAppState().writer.WriterInfoBlock;
  // A block that names the IC, with all boxes and labels hidden and no figure.
  void Put(const std::string& name, std::initializer_list<std::pair<std::size_t, int>> bytes) {
    ResetMainControls();
    const std::string appDir = TheAppState().program.AppDir, start = TheAppState().program.StartDirectory;
    ResetAppState();
    TheAppState().program.AppDir = appDir;
    TheAppState().program.StartDirectory = start;
    TheAppState().writer.WriterModel = Model::Km48;
    std::copy(name.begin(), name.end(), block.begin());
    for (const auto& [at, value] : bytes) block[at] = static_cast<std::uint8_t>(value);
    for (const ControlId id : {ControlId::Protect, ControlId::Unprotect, ControlId::FastMode, ControlId::DualMode,
                               ControlId::Clock32kDisable, ControlId::Clock32kEnable, ControlId::ExhvIspLabel,
                               ControlId::IspLabel, ControlId::MassProductionLabel, ControlId::ProductionLimitLabel})
      ShowControl(id, false);
    Start();
    RefreshFromWriter();
  }
};

TEST_F(Refresh, EveryIcWithAPanel) {
  // The value of the byte, what it marks, and what its other value marks; the panel is 1 pair or all three.
  const std::string one = "show Unprotect Protect", all = one + " Fast Dual 32K- 32K+";
  // clang-format off
  for (const auto& [chips, at, shown, values] :
       Table<Texts, std::size_t, std::string, std::vector<std::pair<int, std::string>>>{
           {{"QVL13", "QV4105", "QVL07"}, 36, one, {{1, "Unprotect"}, {0xFE, "Protect"}}},
           {{"QV4106", "QV4103"}, 37, one, {{1, "Unprotect"}, {0xFE, "Protect"}}},
           {{"QV4206", "QV4207", "QV4205", "QV4107", "QV4102", "QV4204", "QV4201", "QV4203", "QV4301"}, 43, one,
            {{1, "Protect"}, {0xFE, "Unprotect"}}},
           {{"QV4104"}, 43, one, {{1, "Unprotect"}, {0xFE, "Protect"}}},
           {{"QVL04", "QVL05", "QVL06"}, 36, all,
            {{0, "Protect Dual 32K+"}, {1, "Unprotect Dual 32K+"}, {2, "Protect Fast 32K+"}, {4, "Protect Dual 32K-"},
             {0xF8, "Protect Dual 32K+"}, {7, "Unprotect Fast 32K-"}}},
           {{"QV4101"}, 43, one, {{1, ""}, {0, ""}}}}) {
    // clang-format on
    for (const std::string& chip : chips)
      for (const auto& [value, marks] : values) {
        SCOPED_TRACE(chip + Printf(" %02X", value));
        Put(chip, {{at, value}});
        const Texts got = record.Take();
        EXPECT_NE(std::find(got.begin(), got.end(), shown), got.end());
        std::string marked;
        for (const auto& [id, name] : Table<ControlId, const char*>{{ControlId::Unprotect, "Unprotect"},
                                                                    {ControlId::Protect, "Protect"},
                                                                    {ControlId::FastMode, "Fast"},
                                                                    {ControlId::DualMode, "Dual"},
                                                                    {ControlId::Clock32kDisable, "32K-"},
                                                                    {ControlId::Clock32kEnable, "32K+"}})
          if (TheMainControls()[id].checked) marked += (marked.empty() ? "" : " ") + std::string(name);
        EXPECT_EQ(marked, marks);
      }
  }
}

TEST_F(Refresh, FlagsOfTheJob) {
  Write("res/QVL04isp.bmp", Bytes{1});
  Write("res/QVL04isp1.bmp", Bytes{1});
  Write("res/QVL04.bmp", Bytes{1});
  const Texts name{"ChipName = QVL04", "title = PyxisLoad  QVL04  "};
  const Texts panel{"show Unprotect Protect Fast Dual 32K- 32K+", "mark Protect Dual 32K+"};
  const auto rest = [&](const std::string& figure) {
    return Texts{"figure = res/" + figure, "Checksum = 00AB", "off SmartOption"} + panel;
  };
  // clang-format off
  for (const auto& [isp, production, events, exhv, ispOn, mass, limit] :
       Table<int, int, Texts, bool, bool, MassMode, bool>{
           {0, 0, rest("QVL04.bmp"), false, false, MassMode::Off, false},
           {0xFC, 0x01, rest("QVL04.bmp"), false, false, MassMode::Off, false},
           {1, 0xEE, Texts{"show EXHV-ISP"} + rest("QVL04ISP.bmp"), true, false, MassMode::Off, false},
           {2, 0x10, Texts{"show ISP Mass", "off BlankCheck Program Verify"} + rest("QVL04ISP1.bmp"), false, true,
            MassMode::On, false},
           {3, 0xFF, Texts{"show EXHV-ISP ISP Limit", "off BlankCheck Program Verify"} + rest("QVL04ISP.bmp"), true,
            true, MassMode::WithLimit, true}}) {
    // clang-format on
    SCOPED_TRACE(Printf("%02X %02X", isp, production));
    Put("QVL04", {{16, 0}, {17, 0xAB}, {76, isp}, {78, production}});
    ExpectEvents(name + events);
    const Selection& chosen = TheAppState().selection;
    EXPECT_EQ(All(chosen.ExhvIsp, chosen.IspProgram, chosen.MassProduction, chosen.ProductionLimitOn),
              All(exhv, ispOn, mass, limit));
    EXPECT_EQ(TheAppState().conversion.ImageChecksum, 0xAB);
  }
}

TEST_F(Refresh, WhichBlockCounts) {
  for (const char* name : {"", "QX8348", "PV8348", "qv8348"}) {
    Put(name, {});
    EXPECT_EQ(record.Take(), Texts{}) << name;
  }
  Put("QV8348", {{36, 0x3A}, {37, 0xBC}});
  EXPECT_EQ(TheAppState().conversion.SystemConfigWord, 0x3ABC);
  EXPECT_TRUE(TheMainControls()[ControlId::SmartOption].enabled && TheAppState().selection.HasSmartOption);
  // The model 2 shows no figure, and a name that is no label keeps the row.
  Write("res/QV8305.bmp", Bytes{1});
  Put("QV8348", {});
  TheAppState().writer.WriterModel = Model::Km49;
  block[5] = '5';
  block[4] = '0';
  const int series = TheAppState().selection.SeriesIndex, type = TheAppState().selection.TypeIndex;
  RefreshFromWriter();
  EXPECT_EQ(All(TheAppState().selection.SelectedChip, TheMainControls().pinFigure), All("QV8305", ""));
  EXPECT_EQ(All(TheAppState().selection.SeriesIndex, TheAppState().selection.TypeIndex), All(series, type));
}

}  // namespace
}  // namespace pyxis::test
