// Another writer comes while a dialog lies open.
#include "catalogue/ic_select.h"
#include "intake/load_file.h"
#include "link/writer_commands.h"
#include "operations/chip_info.h"
#include "options/option_select.h"
#include "options/set_protect.h"
#include "serial/sn_set.h"
#include "shell/device_arrival.h"
#include "shell/on_device.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

class UnderADialog : public StandinBench {
 protected:
  static void Arrive() { OnDeviceEvent({DeviceEvent::Kind::Arrival, kWriterInterfaceClass}); }
  // QVL04 becomes QVL05, when the operator is asked for the first time after this.
  void ArriveWithAnotherJobAt(const std::string& question) {
    LoadSample("QVL04");
    op.heard = [=, this, asked = false](const std::string& event) mutable {
      if (asked || !event.starts_with(question)) return;
      asked = true;
      writer.OptionArea()[4] ^= 1;
      Arrive();
    };
    op.optionSelect = [](COptionSelectDlg& dialog) {
      dialog.Click(COptionSelectDlg::Protection, 1);
      dialog.OnOk();
      return DialogEnd::Ok;
    };
  }
};

TEST_F(UnderADialog, AnotherWritersJobStaysAsItIs) {
  for (const auto& [question, command] : Table<const char*, Outcome (*)()>{
           {"dialog Option", OnSetProtect}, {"choose", OnLoadFile}, {"dialog Option", OnLoadFile}}) {
    ArriveWithAnotherJobAt(question);
    op.files = {Path("samples/QVL04.hex")};
    Bytes area = writer.OptionArea();
    area[4] ^= 1;
    EXPECT_EQ(command(), Refused(Reason::OtherChip));
    EXPECT_EQ(op.Boxes(), (std::vector<Told>{{"HW and SW Chip Name is discordant", "Message", MessageIcon::Warning}}));
    EXPECT_EQ(writer.OptionArea(), area);
  }
}

// The same IC, but the writer knows nothing of the limit that was chosen for the next load.
TEST_F(UnderADialog, AChoiceThatIsGoneRefusesTheLoad) {
  for (const bool gone : {false, true}) {
    LoadSample("QV8348");
    TheAppState().selection.ProductionLimitOn = true;
    op.heard = [gone](const std::string& event) {
      if (gone && event.starts_with("choose")) Arrive();
    };
    op.files = {Path("samples/QV8348.hex")};
    EXPECT_EQ(OnLoadFile(), gone ? Refused(Reason::OtherChip) : kGood);
  }
}

// The same IC with another checksum: what Read Chip Info would show is no longer of the job that it was opened for.
TEST_F(UnderADialog, AnotherChecksumEndsReadChipInfo) {
  LoadSample("QVL04");
  CReadChipInfoDlg info(true);
  info.OnInitDialog();
  Arrive();
  EXPECT_TRUE(info.readEnabled);
  writer.OptionArea()[Field::ImageChecksum.offset] ^= 1;
  Arrive();
  EXPECT_FALSE(info.readEnabled);
}

TEST_F(UnderADialog, ASerialSetUpOfAnotherIcIsRefused) {
  LoadSample("QVL04");
  CSnSetDlg serial(false, false, false);
  serial.OnInitDialog();
  writer.OptionArea()[4] ^= 1;
  Arrive();
  EXPECT_EQ(serial.OnLoad(), Refused(Reason::OtherChip));
  EXPECT_EQ(op.Heard(), Texts{"HW and SW Chip Name is discordant"});
  EXPECT_FALSE(std::filesystem::exists(Path("serial.txt")));
}

// A writer of the other model has other ICs than those on offer; one of the same model changes nothing.
TEST_F(UnderADialog, AnotherModelsIcIsNotSelected) {
  LoadSample("QV8348");
  for (const std::uint8_t model : {kRegisterKm49, kRegisterKm48}) {
    op.icSelect = [=, this](CIcSelectDlg& dialog) {
      writer.Memory()[address::kModel] = model;
      Arrive();
      dialog.OnSeriesChange(7);
      dialog.OnTypeChange(4);
      return DialogEnd::Ok;
    };
    OnDevice();
    const bool same = model == kRegisterKm48;
    EXPECT_EQ(TheAppState().selection.SelectedChip, same ? "QVL09" : "QV8348");
    EXPECT_EQ(op.Heard(), same ? Texts{} : Texts{"Please Power On The Writer"});
    writer.Memory()[address::kModel] = kRegisterKm48;
    Arrive();
  }
}

}  // namespace
}  // namespace pyxis::test
