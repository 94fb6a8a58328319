// Set Protect: its events, and the bit that each IC keeps its protection in.
#include <cstring>

#include "options/set_protect.h"

#include <cstring>
#include <sstream>

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "options/option_select.h"
#include "platform/text.h"
#include "support/recorded_bench.h"

namespace pyxis::test {
namespace {

class SetProtect : public RecordedOnBoth {
 protected:
  // The operator's click in Option Select 1, nothing for a closed window.
  void Protect(std::optional<bool> protect) {
    op.optionSelect = [protect](COptionSelectDlg& dialog) {
      EXPECT_EQ(All(dialog.Shown(COptionSelectDlg::Protection), dialog.Shown(COptionSelectDlg::Mode),
                    dialog.Shown(COptionSelectDlg::Clock)),
                All(0, -1, -1));
      dialog.Click(COptionSelectDlg::Mode, 0);
      dialog.Click(COptionSelectDlg::Protection, protect.value_or(true) ? 1 : 0);
      if (protect) dialog.OnOk();
      return protect ? DialogEnd::Ok : DialogEnd::Cancel;
    };
    Start();
    OnSetProtect();
  }
  // A job of this IC in the writer, of random bytes.
  void Hold(const ChipEntry& row, int series, int type) {
    Selection& chosen = TheAppState().selection;
    chosen.SelectedChip = row.ChipName;
    chosen.SeriesIndex = series;
    chosen.TypeIndex = type;
    Bytes& block = writer.OptionArea();
    for (std::size_t i = 0; i < block.size(); ++i) block[i] = static_cast<std::uint8_t>(i * 37 + 11);
    std::fill_n(block.begin(), 10, std::uint8_t{0});
    std::copy_n(row.ChipName, std::strlen(row.ChipName), block.begin());
    std::fill_n(block.begin() + 244, 12, std::uint8_t{0});  // the writer's own, which begin anew with each job
  }
};

TEST_P(SetProtect, Events) {
  LoadSample("QVL04");
  Write(kDataPackageName, Bytes{1});
  writer.OptionArea()[36] = 0x03;
  for (const ControlId id : {ControlId::Protect, ControlId::Unprotect}) ShowControl(id, false);
  for (const ControlId id : {ControlId::DualMode, ControlId::Unprotect}) CheckControl(id, true);
  for (const ControlId id :
       {ControlId::Protect, ControlId::FastMode, ControlId::Clock32kDisable, ControlId::Clock32kEnable})
    CheckControl(id, false);
  Bytes block = writer.OptionArea();
  Protect(std::nullopt);
  ExpectEvents(InfoBlock() + Texts{"dialog Option Select 1", "Cancel"});
  Protect(true);
  block[36] = 0x02;
  ExpectEvents(InfoBlock() +
               Texts{"dialog Option Select 1", "OK", "show Unprotect Protect", "unmark Unprotect Dual",
                     "mark Protect Fast 32K+", "w START_TASK 30", "w CONTROL 10", "file buffer_option.prog 512"} +
               PackageFile("04", block) + Texts{"w SET_MODE 07", "w CONTROL 90"});
  EXPECT_EQ(Contents(kDataPackageName), Bytes{1});
  std::filesystem::remove(folder / kOptionPackageName);
  std::filesystem::create_directory(folder / kOptionPackageName);
  Protect(true);
  ExpectEvents(InfoBlock() + Texts{"dialog Option Select 1", "OK", "unmark Protect Fast 32K+", "mark Protect Fast 32K+",
                                   "w START_TASK 30", "w CONTROL 10",
                                   "box [PyxisLoad] Open Fail ! (buffer_option.prog)", "w SET_MODE 07",
                                   "w CONTROL 90"});
}

INSTANTIATE_TEST_SUITE_P(BothTransports, SetProtect, kBothTransports);

struct Place {
  std::size_t byte;
  int mask;
  bool setProtects, inConfig;
  const char* panel;  // what it shows of the pair: the box of a bit that is set, or nothing
};

class EveryIcsProtection : public SetProtect {};

TEST_P(EveryIcsProtection, IsOneBit) {
  const Table<const char*, Place> groups{
      {"QVL13 QV4105 QVL07 QVL04 QVL05 QVL06", {36, 0x01, false, false, "Unprotect"}},
      {"QV4106 QV4103", {37, 0x01, false, false, "Unprotect"}},
      {"QV4101 QV4107 QV4201 QV4203 QV4204 QV4205 QV4206 QV4207", {43, 0x01, true, false, "Protect"}},
      {"QV8101 QV8102 QV8103 QV8104 QV8105 QV8106 QV8108 QV8111 QV8113 QV8115 QV8117 QV8119 QV8120 QV8121 QV8122",
       {36, 0x80, true, true, ""}},
      {"QV8202 QV8301 QV8302 QV8303 QV8304 QV8305 QV8306 QV8307 QV8309 QV8310 QV8311 QV8312 QV8315 QV8316 QV8317 "
       "QV8318 "
       "QV8319 QV8321 QV8322 QVL09 QVL10 QVL11 QVL12",
       {36, 0x20, false, true, ""}}};
  const Place other{36, 0x20, true, true, ""};
  for (int series = 0; series < kListCount; ++series)
    for (int type = 0; type < static_cast<int>(ChipList(series).size()); ++type) {
      const ChipEntry& row = Row(series, type);
      SCOPED_TRACE(row.TypeLabel);
      Place place = other;
      for (const auto& [names, its] : groups) {
        std::istringstream in(names);
        for (std::string name; in >> name;)
          if (name == row.ChipName) place = its;
      }
      Hold(row, series, type);
      for (const bool protect : {true, false}) {
        Bytes block = writer.OptionArea();
        const bool set = protect == place.setProtects;
        block[place.byte] =
            static_cast<std::uint8_t>(set ? block[place.byte] | place.mask : block[place.byte] & ~place.mask);
        for (const std::int32_t word : {-1, 0x10055}) {
          TheAppState().conversion.SystemConfigWord = word;
          Protect(protect);
          const int bit = place.mask << 8;
          EXPECT_EQ(TheAppState().conversion.SystemConfigWord, !place.inConfig ? word
                                                               : set           ? word | bit
                                                                               : word & 0xFFFF & ~bit);
        }
        EXPECT_EQ(writer.OptionArea(), block);
        EXPECT_EQ(Contents(kOptionPackageName), block);
        const MainControls& controls = TheMainControls();
        const bool shown = *place.panel != '\0', first = set == (std::string(place.panel) == "Unprotect");
        EXPECT_EQ(All(controls[ControlId::Unprotect].visible, controls[ControlId::Protect].visible), All(shown, shown));
        if (shown) {
          EXPECT_EQ(All(controls[ControlId::Unprotect].checked, controls[ControlId::Protect].checked),
                    All(first, !first));
        }
      }
    }
}

INSTANTIATE_TEST_SUITE_P(OneTransport, EveryIcsProtection, ::testing::Values(Transport::Vendor));

// A job whose IC isn't found by its bare name leaves another IC's row selected.
TEST_P(EveryIcsProtection, OfAnotherIcsRowIsRefused) {
  LoadSample("QV8348");
  const Bytes before = writer.OptionArea();
  TheAppState().selection.SelectedChip = "QV8305";
  Protect(true);
  ExpectEvents(InfoBlock() + Texts{"box [Message, warning] HW and SW Chip Name is discordant"});
  EXPECT_EQ(writer.OptionArea(), before);
}

}  // namespace
}  // namespace pyxis::test
