// The order on the wire of package download and firmware load, and what the operator hears.
#include "intake/package_files.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "operations/firmware.h"
#include "pyxisfolder/folder.h"
#include "support/bench.h"
#include "support/standin_bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

class Transfer : public ScriptedWriter {};

TEST_F(Transfer, PackagesOverVelmarapi) {
  const Bytes option(208, 1), data(300, 2);
  Write(kOptionPackageName, option);
  Write(kDataPackageName, data);
  vendor.reads = {option, data};
  const std::uint32_t before = clock.tick;
  DownloadPackages();
  EXPECT_GE(clock.tick - before, 1500U);
  EXPECT_EQ(op.Heard(), Texts{"Loading Data Ok"});
  EXPECT_EQ(vendor.calls,
            (Texts{"write 21: 30", "write 23: 10", "write 0: 47", "write 20: 04 17", "write 18: 208 bytes",
                   "read 19: 208", "write 20: 0C 07", "write 0: 47", "write 20: 08 17", "write 18: 300 bytes",
                   "read 19: 300", "write 20: 0C 07", "write 0: 07", "write 23: 90"}));
}

TEST_F(Transfer, AFailedPackageEndsTheLoad) {
  const std::string noOption = "Open Fail ! (" + Path(kOptionPackageName) + ")";
  const std::string noData = "Open Fail ! (" + Path(kDataPackageName) + ")";
  // clang-format off
  for (const auto& [why, optionThere, optionGood, dataThere, told, waits, commands] :
       Table<const char*, bool, bool, bool, Texts, bool, std::size_t>{
           {"no option file", false, false, true, {noOption, "Loading Data Fail"}, false, 4},
           {"option differs", true, false, true, {"Loading Data Fail"}, false, 8},
           {"no data file", true, true, false, {noData, "Loading Data Fail"}, true, 9},
           {"data differs", true, true, true, {"Loading Data Fail"}, true, 13}}) {
    // clang-format on
    SCOPED_TRACE(why);
    std::filesystem::remove(folder / kOptionPackageName);
    std::filesystem::remove(folder / kDataPackageName);
    const Bytes content{9, 9, 9};
    if (optionThere) Write(kOptionPackageName, content);
    if (dataThere) Write(kDataPackageName, content);
    vendor.Script({optionGood ? content : Bytes{9, 9, 8}, Bytes{8, 9, 9}});
    const std::uint32_t before = clock.tick;
    DownloadPackages();
    EXPECT_EQ(op.Heard(), told);
    EXPECT_EQ(clock.tick - before >= 1500, waits);
    EXPECT_EQ(All(vendor.calls.size(), vendor.calls.back()), All(commands, "write 23: 90"));
    EXPECT_NE(vendor.calls[vendor.calls.size() - 2], "write 0: 07");
  }
}

TEST_F(Transfer, EmptyAndOversizedFiles) {
  Write("empty", {});
  EXPECT_TRUE(DownloadPackageFile(Path("empty"), 4));
  EXPECT_EQ(vendor.calls[2], "write 18: ");
  Write("huge", Bytes(kTransferBufferSize + 1));
  EXPECT_FALSE(DownloadPackageFile(Path("huge"), 8));
}

TEST_F(Transfer, FirmwareOverVelmarapi) {
  Bytes image = pyxis::folder::MakeFirmware(Model::Km48, 0x1234);
  Bytes longer = image;
  longer.push_back(1);
  for (const Bytes& file : {image, longer}) {
    Write("a.nce", file);
    vendor.Script({image});
    EXPECT_TRUE(LoadFirmware(Path("a.nce"), true));
    EXPECT_EQ(vendor.calls, (Texts{"write 21: 32", "write 0: 00", "write 15: 00 00 00 00", "write 16: 67584 bytes",
                                   "write 15: 00 00 00 00", "read 17: 67584", "write 0: 07", "write 23: 90"}));
  }
  vendor.reads = {};
  EXPECT_FALSE(LoadFirmware(Path("a.nce"), true));
  EXPECT_TRUE(TheAppState().writer.FirmwareLoadFailed);
  EXPECT_EQ(vendor.calls.back(), "write 23: 90");
}

TEST_F(Transfer, UpdateRefusesTheOtherModel) {
  // clang-format off
  for (const auto& [writerModel, imageModel, accepted] : Table<int, std::uint8_t, bool>{
           {1, 0x98, true}, {1, 0x99, false}, {2, 0x98, false}, {2, 0x99, true}, {0, 0x98, false}, {0, 0x11, false},
           {1, 0x11, true}}) {
    // clang-format on
    Bytes image = pyxis::folder::MakeFirmware(Model::Km48, 1);
    image[0xFA8F] = imageModel;
    Write("a.nce", image);
    TheAppState().writer.WriterModel = Model{writerModel};
    op.files = {Path("a.nce")};
    vendor.reads = {image};
    OnUpdateFirmware();
    EXPECT_EQ(op.Heard(), Texts{accepted ? "Update Firmware Ok" : Path("a.nce") + " open file error\n"});
  }
  OnUpdateFirmware();  // cancelled
  EXPECT_TRUE(op.told.empty());
}

// Zeros are what a buffer holds that nothing has come into: a link that dies before the last byte of the read-back must
// not pass for one that brought them.
class LostReadBack : public BothTransports {
 protected:
  // Whether the load is good when the link is lost after `transfers`; afterwards `left` tells how many weren't used.
  bool GoodAfter(int transfers) {
    CloseTransport();
    vendor.pluggedIn = true;
    OpenTransport();
    StartTask(firmware ? task::kOpenFirmwareLoad : task::kOpenPackageLoad);
    if (!firmware) SendControl(control::kBeginLoad);
    writer.faults.disconnectAfter = transfers;
    const bool good = firmware ? LoadFirmware(Path("zeros"), false) : DownloadPackageFile(Path("zeros"), area::kData);
    left = *writer.faults.disconnectAfter;
    writer.faults.disconnectAfter.reset();
    return good;
  }
  bool firmware = false;
  int left = 0;
};

TEST_P(LostReadBack, OfZerosIsNoGoodTransfer) {
  Write("zeros", Bytes(kFirmwareImageSize, 0));
  for (const auto& [withFirmware, closingCommands] : Table<bool, int>{{false, 1}, {true, 2}}) {
    firmware = withFirmware;
    SCOPED_TRACE(firmware);
    constexpr int kEnough = 100000;
    ASSERT_TRUE(GoodAfter(kEnough));
    // On frames the read ends with its status block, and a command takes three transfers.
    const int behindTheRead = GetParam() == Transport::Usb ? 1 + 3 * closingCommands : closingCommands;
    const int read = kEnough - left - behindTheRead;
    for (const int transfers : {0, 5, read / 2, read - 1}) EXPECT_FALSE(GoodAfter(transfers)) << transfers;
    EXPECT_TRUE(GoodAfter(read));
  }
}
INSTANTIATE_TEST_SUITE_P(BothTransports, LostReadBack, kBothTransports);

class FirmwareSelection : public StandinBench {};

TEST_F(FirmwareSelection, SendsAnImageOnlyWhenItMust) {
  constexpr std::uint32_t kQv8334 = 0x28016, kQv8336 = 0x27091;
  PutFolderFor("QV8334");
  PutFolderFor("QV8336");
  AppState& app = TheAppState();
  // clang-format off
  for (const auto& [why, chip, code, version, level, loads, codeAfter, versionAfter] :
       Table<const char*, std::uint32_t, std::uint32_t, int, std::uint32_t, int, std::uint32_t, int>{
           {"other image", kQv8334, 0, 0, 4, 1, 0x2801, 0},
           {"same image, other IC", 0x28011, 0x2801, 1, 4, 0, 0x2801, 1},
           {"other family", kQv8336, 0x2801, 1, 4, 1, 0x709, 1},
           {"older version", kQv8334, 0x2801, 0, 4, 1, 0x2801, 1},
           {"newer version", kQv8334, 0x2801, 2, 4, 0, 0x2801, 2},
           {"older level", kQv8334, 0x2801, 1, 3, 1, 0x2801, 1},
           {"newer level", kQv8334, 0x2801, 1, 5, 1, 0x2801, 1}}) {
    // clang-format on
    SCOPED_TRACE(why);
    app.writer.FirmwareCode = code;
    app.writer.FirmwareVersion = static_cast<std::uint8_t>(version);
    app.writer.FirmwareLevel = level;
    const int before = writer.FirmwareLoads();
    const std::uint32_t tick = clock.tick;
    SelectFirmware(chip);
    EXPECT_EQ(writer.FirmwareLoads() - before, loads);
    EXPECT_EQ(clock.tick - tick >= 3000, loads == 1);
    EXPECT_EQ(All(app.writer.FirmwareCode, app.writer.FirmwareVersion), All(codeAfter, versionAfter));
  }
}

}  // namespace
}  // namespace pyxis::test
