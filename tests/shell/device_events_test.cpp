// The writer plugged in and pulled out, and what the main dialog then shows.
#include "intake/package_files.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "platform/byte_order.h"
#include "pyxisfolder/folder.h"
#include "shell/app_state.h"
#include "shell/device_arrival.h"
#include "shell/link_status.h"
#include "shell/main_controls.h"
#include "shell/menu_rules.h"
#include "shell/refresh_from_writer.h"
#include "shell/start_up.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

const DeviceEvent kWriterCame{DeviceEvent::Kind::Arrival, "dev#{6580898b-0493-40b6-87aa-d307188d4e24}"};
const DeviceEvent kOtherCame{DeviceEvent::Kind::Arrival, "dev#{6580898B-0493-40B6-87AA-D307188D4E24}"};
const DeviceEvent kWriterWent{DeviceEvent::Kind::Removal, "dev#{6580898b-0493-40b6-87aa-d307188d4e24}"};
const DeviceEvent kOtherWent{DeviceEvent::Kind::Removal, "mouse"};

class UsbEvents : public StandinBench {};

class VendorEvents : public StandinBench {
 protected:
  VendorEvents() : StandinBench(Transport::Vendor) {}
};

TEST_F(UsbEvents, WitnessesOfTheModel) {
  // clang-format off
  for (const auto& [inRegister, inBlock, atStart, atArrival] : Table<std::uint8_t, std::uint8_t, int, int>{
           {0x98, 0x98, 1, 1}, {0x99, 0x99, 2, 2}, {0x98, 0x99, 0, 1}, {0x99, 0x98, 0, 2}, {0x98, 0, 0, 1},
           {0, 0, 0, 0}}) {
    // clang-format on
    writer.Memory()[address::kModel] = inRegister;
    writer.OptionArea()[207] = inBlock;
    IdentifyAtStart();
    EXPECT_EQ(TheAppState().WriterModel, atStart);
    OnDeviceEvent(kWriterCame);
    EXPECT_EQ(TheAppState().WriterModel, atArrival);
  }
}

TEST_F(UsbEvents, AWriterWithoutFirmwareGetsItsTestImage) {
  Write("firmware48/48test.nce", pyxis::folder::MakeFirmware(1, 0));
  writer.Memory()[address::kModel] = 0;
  writer.OptionArea()[207] = 0x98;
  OnDeviceEvent(kWriterCame);
  EXPECT_EQ(op.told, (std::vector<Told>{
                         {"Hardware/Firmware Error", "Message", MessageIcon::Stop},
                         {"KM48 Error About To Enter The Test Mode.\nPlease Wait", "Message", MessageIcon::Warning},
                         {"Test Ok.\nPlease Re-select The IC", "Message", MessageIcon::None}}));
  EXPECT_EQ(writer.Memory()[address::kModel], 0x98);

  writer.Memory()[address::kModel] = 0;
  writer.OptionArea()[207] = 0x99;
  op.told.clear();
  OnDeviceEvent(kWriterCame);  // no image of the other model in the folder
  EXPECT_EQ(op.Texts().back(), "Test Fail");

  writer.OptionArea()[207] = 0x55;
  op.told.clear();
  OnDeviceEvent(kWriterCame);
  EXPECT_EQ(op.Texts(), (Texts{"Hardware Error", "Please sent for repair"}));
}

TEST_F(UsbEvents, PulledOutAndPutBack) {
  LoadSample("QV8348");
  OnDeviceEvent(kOtherWent);
  EXPECT_EQ(TheAppState().WriterConnected, 1U);

  usb.pluggedIn = false;
  OnDeviceEvent(kWriterWent);
  EXPECT_EQ(TheAppState().WriterConnected, 0U);
  EXPECT_EQ(TheMainControls().statusBar.pane1, "USB was not connected");
  for (ControlId id :
       {ControlId::Auto, ControlId::Verify, ControlId::Read, ControlId::SmartOption, ControlId::WriterTest})
    EXPECT_FALSE(TheMainControls()[id].enabled);
  EXPECT_EQ(TheAppState().SelectedChip, "QV8348");
  EXPECT_FALSE(MenuEnabled(MenuEntry::LoadFile));

  OnDeviceEvent(kOtherCame);  // the class in capitals is no writer's name
  EXPECT_EQ(TheAppState().WriterConnected, 0U);
  OnDeviceEvent(kWriterCame);  // too early: nothing to open yet
  EXPECT_EQ(TheAppState().WriterConnected, 0U);
  usb.pluggedIn = true;
  OnDeviceEvent(kWriterCame);
  EXPECT_EQ(TheAppState().WriterConnected, 1U);
  EXPECT_EQ(TheMainControls().statusBar.pane1, "PYX STANDALONE LOADER");
  OnDeviceEvent(kWriterCame);  // told twice: the device can be claimed once
  EXPECT_EQ(TheAppState().WriterConnected, 1U);
  EXPECT_TRUE(TheMainControls()[ControlId::Auto].enabled);
  EXPECT_EQ(TheMainControls().title, "PyxisLoad  QV8348  ");
  EXPECT_TRUE(MenuEnabled(MenuEntry::LoadFile));
}

TEST_F(VendorEvents, AnotherDeviceWentAway) {
  OnDeviceEvent(kOtherWent);
  EXPECT_EQ(TheAppState().WriterConnected, 1U);
  vendor.pluggedIn = false;
  OnDeviceEvent(kOtherWent);
  EXPECT_EQ(TheAppState().WriterConnected, 0U);
  EXPECT_EQ(TheAppState().UseVendorApi, 1U);
  OnDeviceEvent(kOtherCame);
  EXPECT_EQ(TheAppState().UseVendorApi, 0U);
  vendor.pluggedIn = true;
  OnDeviceEvent(kOtherCame);
  EXPECT_EQ(TheAppState().WriterConnected, 1U);
}

TEST_F(UsbEvents, RefreshShowsTheJob) {
  AppState& app = TheAppState();
  auto& block = app.WriterInfoBlock;
  Write("res/QVL04isp.bmp", Bytes{1});
  const auto put = [&](const std::string& name) {
    block.fill(0);
    std::copy(name.begin(), name.end(), block.begin());
  };
  put("");
  RefreshFromWriter();
  EXPECT_TRUE(app.SelectedChip.empty());

  put("QVL04");
  StoreBe16(&block[16], 0xAB);
  block[36] = 0x05;
  block[76] = 1;
  RefreshFromWriter();
  EXPECT_EQ(app.ChecksumText, "00AB");
  EXPECT_EQ(app.ExhvIsp, 1U);
  EXPECT_EQ(TheMainControls().pinFigure, Path("res/QVL04ISP.bmp"));
  EXPECT_TRUE(TheMainControls()[ControlId::Unprotect].checked);
  EXPECT_TRUE(TheMainControls()[ControlId::DualMode].checked);
  EXPECT_TRUE(TheMainControls()[ControlId::Clock32kDisable].checked);
  EXPECT_TRUE(MenuEnabled(MenuEntry::ReadChipInfo));

  // clang-format off
  for (const auto& [flags, mass, limit, programEnabled] : Table<int, std::uint32_t, std::uint32_t, bool>{
           {0x10, 1, 0, false}, {0x11, 0x11, 1, false}, {0x01, 0, 0, true}, {0, 0, 0, true}}) {
    // clang-format on
    app.MassProduction = app.ProductionLimitOn = 0;
    block[78] = static_cast<std::uint8_t>(flags);
    EnableControl(ControlId::Program, true);
    RefreshFromWriter();
    EXPECT_EQ(app.MassProduction, mass);
    EXPECT_EQ(app.ProductionLimitOn, limit);
    EXPECT_EQ(TheMainControls()[ControlId::Program].enabled, programEnabled);
    EXPECT_EQ(MenuEnabled(MenuEntry::ReadChipInfo), flags == 0);
  }
  put("QV8348");
  StoreBe16(&block[36], 0x3ABC);
  RefreshFromWriter();
  EXPECT_EQ(app.SystemConfigWord, 0x3ABC);
  EXPECT_FALSE(TheMainControls()[ControlId::Protect].visible);
  put("QV8305");  // not a label: the row stays
  const int type = app.TypeIndex;
  RefreshFromWriter();
  EXPECT_EQ(app.SelectedChip, "QV8305");
  EXPECT_EQ(app.TypeIndex, type);
}

TEST_F(UsbEvents, MenuRules) {
  AppState& app = TheAppState();
  app.ChipNameText = "QV8348";
  EXPECT_TRUE(MenuEnabled(MenuEntry::SerialNumberProgram));
  app.ChipNameText = "QV8121";
  EXPECT_FALSE(MenuEnabled(MenuEntry::SerialNumberProgram));
  EXPECT_TRUE(MenuEnabled(MenuEntry::SetProtect));
  app.ChipNameText = "QV4107";
  EXPECT_FALSE(MenuEnabled(MenuEntry::ReadChipInfo));
  app.ChipNameText.clear();
  EXPECT_FALSE(MenuEnabled(MenuEntry::CompareFile));
  EXPECT_TRUE(MenuEnabled(MenuEntry::Device));
  EXPECT_TRUE(MenuEnabled(MenuEntry::UpdateFirmware));
  EXPECT_FALSE(MenuEnabled(MenuEntry::SaveAs));
}

}  // namespace
}  // namespace pyxis::test
