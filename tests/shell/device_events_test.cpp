// The writer plugged in and pulled out, and what the main dialog then shows.
#include "link/writer_commands.h"
#include "platform/byte_order.h"
#include "pyxisfolder/folder.h"
#include "shell/device_arrival.h"
#include "shell/menu_rules.h"
#include "shell/on_device.h"
#include "shell/refresh_from_writer.h"
#include "shell/start_up.h"
#include "support/standin_bench.h"
#include "view/hex_view.h"

namespace pyxis::test {
namespace {

const DeviceEvent kWriterCame{DeviceEvent::Kind::Arrival, "dev#{6580898b-0493-40b6-87aa-d307188d4e24}"};
const DeviceEvent kOtherCame{DeviceEvent::Kind::Arrival, "dev#{6580898B-0493-40B6-87AA-D307188D4E24}"};
const DeviceEvent kWriterWent{DeviceEvent::Kind::Removal, "dev#{6580898b-0493-40b6-87aa-d307188d4e24}"};
const DeviceEvent kOtherWent{DeviceEvent::Kind::Removal, "mouse"};

class EventBench : public StandinBench {
 protected:
  using StandinBench::StandinBench;
  static bool ConnectedAfter(const DeviceEvent& event) {
    OnDeviceEvent(event);
    return TheAppState().writer.WriterConnected;
  }
  static bool Enabled(ControlId id) { return TheMainControls()[id].enabled; }
};
class UsbEvents : public EventBench {};
class VendorEvents : public EventBench {
 protected:
  VendorEvents() : EventBench(Transport::Vendor) {}
};

TEST_F(UsbEvents, WitnessesOfTheModel) {
  // The start needs both, an arrival looks at the register, Device takes either. Without any firmware (-1) an arrival
  // goes on to send it.
  // clang-format off
  for (const auto& [inRegister, inBlock, atStart, atArrival, atDevice] : Table<std::uint8_t, std::uint8_t, int, int, int>{
           {0x98, 0x98, 1, 1, 1}, {0x99, 0x99, 2, 2, 2}, {0x98, 0x99, 0, 1, 1}, {0x99, 0x98, 0, 2, 1},
           {0x98, 0, 0, 1, 1}, {0x99, 0, 0, 2, 2}, {0, 0x98, 0, -1, 1}, {0, 0x99, 0, -1, 2}, {0, 0, 0, 0, 0}}) {
    // clang-format on
    writer.Memory()[address::kModel] = inRegister;
    writer.OptionArea()[207] = inBlock;
    IdentifyAtStart();
    EXPECT_EQ(TheAppState().writer.WriterModel, Model{atStart});
    if (atArrival >= 0) {
      OnDeviceEvent(kWriterCame);
      EXPECT_EQ(TheAppState().writer.WriterModel, Model{atArrival});
    }
    OnDevice();
    EXPECT_EQ(TheAppState().writer.WriterModel, Model{atDevice});
  }
}

TEST_F(UsbEvents, AWriterWithAnotherJobEmptiesFileAndView) {
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

TEST_F(UsbEvents, AWriterWithoutFirmwareGetsItsTestImage) {
  Write("firmware48/48test.nce", pyxis::folder::MakeFirmware(Model::Km48, 0));
  writer.Memory()[address::kModel] = 0;
  writer.OptionArea()[207] = 0x98;
  OnDeviceEvent(kWriterCame);
  EXPECT_EQ(op.Boxes(), (std::vector<Told>{
                            {"Hardware/Firmware Error", "Message", MessageIcon::Stop},
                            {"KM48 Error About To Enter The Test Mode.\nPlease Wait", "Message", MessageIcon::Warning},
                            {"Test Ok.\nPlease Re-select The IC", "Message", MessageIcon::None}}));
  EXPECT_EQ(writer.Memory()[address::kModel], 0x98);

  writer.Memory()[address::kModel] = 0;
  writer.OptionArea()[207] = 0x99;
  OnDeviceEvent(kWriterCame);  // no image of the other model in the folder
  EXPECT_EQ(op.Heard().back(), "Test Fail");

  writer.OptionArea()[207] = 0x55;
  OnDeviceEvent(kWriterCame);
  EXPECT_EQ(op.Heard(), (Texts{"Hardware Error", "Please sent for repair"}));
}

TEST_F(UsbEvents, PulledOutAndPutBack) {
  LoadSample("QV8348");
  EXPECT_TRUE(ConnectedAfter(kOtherWent));
  usb.pluggedIn = false;
  EXPECT_FALSE(ConnectedAfter(kWriterWent));
  EXPECT_EQ(TheMainControls().statusBar.pane1, "USB was not connected");
  for (ControlId id :
       {ControlId::Auto, ControlId::Verify, ControlId::Read, ControlId::SmartOption, ControlId::WriterTest})
    EXPECT_FALSE(Enabled(id));
  EXPECT_EQ(TheAppState().selection.SelectedChip, "QV8348");
  EXPECT_FALSE(MenuEnabled(MenuEntry::LoadFile));

  EXPECT_FALSE(ConnectedAfter(kOtherCame));   // the class in capitals is no writer's name
  EXPECT_FALSE(ConnectedAfter(kWriterCame));  // too early: nothing to open yet
  usb.pluggedIn = true;
  EXPECT_TRUE(ConnectedAfter(kWriterCame));
  EXPECT_EQ(TheMainControls().statusBar.pane1, "PYX STANDALONE LOADER");
  EXPECT_TRUE(ConnectedAfter(kWriterCame));  // told twice: the device can be claimed once
  EXPECT_TRUE(Enabled(ControlId::Auto));
  EXPECT_EQ(TheMainControls().title, "PyxisLoad  QV8348  ");
  EXPECT_TRUE(MenuEnabled(MenuEntry::LoadFile));
}

TEST_F(VendorEvents, AnotherDeviceWentAway) {
  EXPECT_TRUE(ConnectedAfter(kOtherWent));
  vendor.pluggedIn = false;
  EXPECT_FALSE(ConnectedAfter(kOtherWent));
  EXPECT_EQ(TheAppState().writer.UseVendorApi, 1U);
  OnDeviceEvent(kOtherCame);
  EXPECT_EQ(TheAppState().writer.UseVendorApi, 0U);
  vendor.pluggedIn = true;
  EXPECT_TRUE(ConnectedAfter(kOtherCame));
}

TEST_F(UsbEvents, RefreshShowsTheJob) {
  AppState& app = TheAppState();
  auto& block = app.writer.WriterInfoBlock;
  Write("res/QVL04isp.bmp", Bytes{1});
  const auto put = [&](const std::string& name) {
    block.fill(0);
    std::copy(name.begin(), name.end(), block.begin());
  };
  put("");
  RefreshFromWriter();
  EXPECT_TRUE(app.selection.SelectedChip.empty());

  put("QVL04");
  StoreBe16(&block[16], 0xAB);
  block[36] = 0x05;
  block[76] = 1;
  RefreshFromWriter();
  EXPECT_EQ(All(app.conversion.ChecksumText, app.selection.ExhvIsp), All("00AB", 1U));
  EXPECT_EQ(TheMainControls().pinFigure, Path("res/QVL04ISP.bmp"));
  for (ControlId id : {ControlId::Unprotect, ControlId::DualMode, ControlId::Clock32kDisable})
    EXPECT_TRUE(TheMainControls()[id].checked);
  EXPECT_TRUE(MenuEnabled(MenuEntry::ReadChipInfo));

  // clang-format off
  for (const auto& [flags, mass, limit, programEnabled] : Table<int, int, bool, bool>{
           {0x10, 1, false, false}, {0x11, 0x11, true, false}, {0x01, 0, false, true}, {0, 0, false, true}}) {
    // clang-format on
    app.selection.MassProduction = MassMode::Off;
    app.selection.ProductionLimitOn = false;
    block[78] = static_cast<std::uint8_t>(flags);
    EnableControl(ControlId::Program, true);
    RefreshFromWriter();
    EXPECT_EQ(All(app.selection.MassProduction, app.selection.ProductionLimitOn),
              All(static_cast<MassMode>(mass), limit));
    EXPECT_EQ(TheMainControls()[ControlId::Program].enabled, programEnabled);
    EXPECT_EQ(MenuEnabled(MenuEntry::ReadChipInfo), flags == 0);
  }
  put("QV8348");
  StoreBe16(&block[36], 0x3ABC);
  RefreshFromWriter();
  EXPECT_EQ(app.conversion.SystemConfigWord, 0x3ABC);
  EXPECT_FALSE(TheMainControls()[ControlId::Protect].visible);
  put("QV8305");  // not a label: the row stays
  const int type = app.selection.TypeIndex;
  RefreshFromWriter();
  EXPECT_EQ(All(app.selection.SelectedChip, app.selection.TypeIndex), All("QV8305", type));
}

TEST_F(UsbEvents, MenuRules) {
  // clang-format off
  for (const auto& [chip, entry, enabled] : Table<const char*, MenuEntry, bool>{
           {"QV8348", MenuEntry::SerialNumberProgram, true}, {"QV8121", MenuEntry::SerialNumberProgram, false},
           {"QV8121", MenuEntry::SetProtect, true}, {"QV4107", MenuEntry::ReadChipInfo, false},
           {"", MenuEntry::CompareFile, false}, {"", MenuEntry::Device, true}, {"", MenuEntry::UpdateFirmware, true},
           {"", MenuEntry::SaveAs, false}}) {
    // clang-format on
    TheAppState().selection.ChipNameText = chip;
    EXPECT_EQ(MenuEnabled(entry), enabled) << chip;
  }
}

}  // namespace
}  // namespace pyxis::test
