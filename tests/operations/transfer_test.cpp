// The order on the wire of package download and firmware load, and what the operator hears.
#include "intake/package_files.h"
#include "link/identification.h"
#include "operations/download.h"
#include "operations/firmware.h"
#include "platform/machine.h"
#include "pyxisfolder/folder.h"
#include "shell/app_state.h"
#include "support/bench.h"
#include "support/standin_bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

using Texts = std::vector<std::string>;
using Bytes = std::vector<std::uint8_t>;

class Transfer : public Bench {
 protected:
  Transfer() {
    TheMachine().vendor = &vendor;
    OpenTransport();
    vendor.calls.clear();
  }
  VendorLog vendor;
};

TEST_F(Transfer, PackagesOverVelmarapi) {
  const Bytes option(208, 1), data(300, 2);
  Write(kOptionPackageName, option);
  Write(kDataPackageName, data);
  vendor.reads = {option, data};
  const std::uint32_t before = clock.tick;
  DownloadPackages();
  EXPECT_GE(clock.tick - before, 1500U);
  EXPECT_EQ(op.Texts(), Texts{"Loading Data Ok"});
  EXPECT_EQ(vendor.calls, (Texts{"write 21: 30", "write 23: 10", "write 0: 47", "write 20: 04 17",
                                 "write 18: 208 bytes", "read 19: 208", "write 20: 0C 07", "write 0: 47",
                                 "write 20: 08 17", "write 18: 300 bytes", "read 19: 300", "write 20: 0C 07",
                                 "write 0: 07", "write 23: 90"}));
}

TEST_F(Transfer, AFailedPackageEndsTheLoad) {
  struct Case {
    const char* why;
    bool optionThere, optionGood, dataThere;
    Texts told;
    bool waits;
    std::size_t commands;
  };
  const std::string noOption = "Open Fail ! (" + Path(kOptionPackageName) + ")";
  const std::string noData = "Open Fail ! (" + Path(kDataPackageName) + ")";
  for (const Case& c : {Case{"no option file", false, false, true, {noOption, "Loading Data Fail"}, false, 4},
                        Case{"option differs", true, false, true, {"Loading Data Fail"}, false, 8},
                        Case{"no data file", true, true, false, {noData, "Loading Data Fail"}, true, 9},
                        Case{"data differs", true, true, true, {"Loading Data Fail"}, true, 13}}) {
    SCOPED_TRACE(c.why);
    std::filesystem::remove(folder / kOptionPackageName);
    std::filesystem::remove(folder / kDataPackageName);
    const Bytes content{9, 9, 9};
    if (c.optionThere) Write(kOptionPackageName, content);
    if (c.dataThere) Write(kDataPackageName, content);
    vendor.reads = {c.optionGood ? content : Bytes{9, 9, 8}, Bytes{8, 9, 9}};
    vendor.calls.clear();
    op.told.clear();
    const std::uint32_t before = clock.tick;
    DownloadPackages();
    EXPECT_EQ(op.Texts(), c.told);
    EXPECT_EQ(clock.tick - before >= 1500, c.waits);
    EXPECT_EQ(vendor.calls.size(), c.commands);
    EXPECT_EQ(vendor.calls.back(), "write 23: 90");
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
  Bytes image = pyxis::folder::MakeFirmware(1, 0x1234);
  Bytes longer = image;
  longer.push_back(1);
  for (const Bytes& file : {image, longer}) {
    Write("a.nce", file);
    vendor.reads = {image};
    vendor.calls.clear();
    EXPECT_TRUE(LoadFirmware(Path("a.nce"), true));
    EXPECT_EQ(vendor.calls, (Texts{"write 21: 32", "write 0: 00", "write 15: 00 00 00 00", "write 16: 67584 bytes",
                                   "write 15: 00 00 00 00", "read 17: 67584", "write 0: 07", "write 23: 90"}));
  }
  vendor.reads = {};
  EXPECT_FALSE(LoadFirmware(Path("a.nce"), true));
  EXPECT_EQ(TheAppState().FirmwareLoadFailed, 1);
  EXPECT_EQ(vendor.calls.back(), "write 23: 90");
}

TEST_F(Transfer, UpdateRefusesTheOtherModel) {
  struct Case {
    int writerModel;
    std::uint8_t imageModel;
    bool accepted;
  };
  for (const Case& c : {Case{1, 0x98, true}, Case{1, 0x99, false}, Case{2, 0x98, false}, Case{2, 0x99, true},
                        Case{0, 0x98, false}, Case{0, 0x11, false}, Case{1, 0x11, true}}) {
    Bytes image = pyxis::folder::MakeFirmware(1, 1);
    image[0xFA8F] = c.imageModel;
    Write("a.nce", image);
    TheAppState().WriterModel = c.writerModel;
    op.files = {Path("a.nce")};
    op.told.clear();
    vendor.reads = {image};
    OnUpdateFirmware();
    EXPECT_EQ(op.Texts(), Texts{c.accepted ? "Update Firmware Ok" : Path("a.nce") + " open file error\n"});
  }
  op.told.clear();
  OnUpdateFirmware();  // cancelled
  EXPECT_TRUE(op.told.empty());
}

class FirmwareSelection : public StandinBench {};

TEST_F(FirmwareSelection, SendsAnImageOnlyWhenItMust) {
  constexpr std::uint32_t kQv8334 = 0x28016, kQv8336 = 0x27091;
  PutFolderFor("QV8334");
  PutFolderFor("QV8336");
  AppState& app = TheAppState();
  struct Case {
    const char* why;
    std::uint32_t chip, code;
    int version;
    std::uint32_t level;
    int loads;
    std::uint32_t codeAfter;
    int versionAfter;
  };
  for (const Case& c : {
           Case{"other image", kQv8334, 0, 0, 4, 1, 0x2801, 0},
           Case{"same image, other IC", 0x28011, 0x2801, 1, 4, 0, 0x2801, 1},
           Case{"other family", kQv8336, 0x2801, 1, 4, 1, 0x709, 1},
           Case{"older version", kQv8334, 0x2801, 0, 4, 1, 0x2801, 1},
           Case{"newer version", kQv8334, 0x2801, 2, 4, 0, 0x2801, 2},
           Case{"older level", kQv8334, 0x2801, 1, 3, 1, 0x2801, 1},
           Case{"newer level", kQv8334, 0x2801, 1, 5, 1, 0x2801, 1},
       }) {
    SCOPED_TRACE(c.why);
    app.FirmwareCode = c.code;
    app.FirmwareVersion = static_cast<std::uint8_t>(c.version);
    app.FirmwareLevel = c.level;
    const int before = writer.FirmwareLoads();
    const std::uint32_t tick = clock.tick;
    SelectFirmware(c.chip);
    EXPECT_EQ(writer.FirmwareLoads() - before, c.loads);
    EXPECT_EQ(clock.tick - tick >= 3000, c.loads == 1);
    EXPECT_EQ(app.FirmwareCode, c.codeAfter);
    EXPECT_EQ(app.FirmwareVersion, c.versionAfter);
  }
}

}  // namespace
}  // namespace pyxis::test
