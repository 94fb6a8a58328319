// Load File: its events from the file dialog to the writer, its early ends, and what it leaves behind.
#include "intake/load_file.h"

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "intake/ready_text.h"
#include "options/option_select.h"
#include "platform/byte_order.h"
#include "platform/text.h"
#include "support/recorded_bench.h"
#include "view/hex_view.h"

namespace pyxis::test {
namespace {

const std::string kReady = "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n" + std::string(40, ' ') +
                           "下載資料中 , 請勿關閉電源或拔除USB接線\r\n\r\n" + std::string(40, ' ') +
                           "Downloading Data , Please don't power off or plug out USB cable\r\n";

class LoadFile : public RecordedOnBoth {
 protected:
  // An IC without a job in the writer; the main dialog as it stands between two runs, with the four buttons off.
  void SetUp() override {
    PutFolderFor("QV8348");
    Select("QV8348");
    for (const ControlId id :
         {ControlId::BufferArea, ControlId::Auto, ControlId::BlankCheck, ControlId::Program, ControlId::Verify})
      EnableControl(id, false);
    SetStatusText("X=1 Y=2");
  }
  void Run(const std::string& file) {
    Start();
    Load(file);
  }
  static Texts Begin(const std::string& file) {
    return {"on Buffer", "hide HexView",       "paint",
            "hex white", "status = ",          "choose Kestrel Hex Files (*.hex)|*.hex||: " + file,
            "paint",     "Buffer = " + kReady, "paint"};
  }
  // The conversion's files, and what shows of it.
  Texts Converted() const {
    const Bytes option = Contents(kOptionPackageName);
    const std::size_t image = Contents("samples/QV8348.bin").size();
    return {Printf("file buffer_data.prog %zu", Contents(kDataPackageName).size()),
            Printf("file buffer_option.prog %zu", option.size()),
            Printf("file samples/QV8348.bin %zu", image),
            Printf("Checksum = %04X", LoadBe16(&option[16])),
            "FileField = samples/QV8348.bin",
            Printf("hex %zu", image),
            "load cursor dinosaur.ani",
            "cursor busy"};
  }
  // `bar`: the bar stands somewhere.
  static Texts Restored(bool bar = true) {
    return Texts{"cursor arrow", "Buffer = ", "paint", "off Buffer", "show HexView", "paint"} +
           (bar ? Texts{"bar off"} : Texts{});
  }
  // The serial number dialog takes over what has arrived.
  static Texts Up(bool arrived = true) {
    const std::string zeros(32, '0');
    return {"on Auto BlankCheck Program Verify", "S/N create",
            std::string("S/N hidden, Program ") + (arrived ? "on" : "off") + ", SET off, " + zeros + " to " + zeros,
            "paint"};
  }
  Bytes Image() const { return Contents("firmware48/QV8348.nce"); }
  // A download behind a firmware load shows on the bar that stands already.
  Texts PackagesAfterFirmware() const {
    Texts lines = Packages(Contents(kOptionPackageName), Contents(kDataPackageName));
    if (!Usb()) lines[0] = "bar off 5";
    return lines;
  }
};

TEST_P(LoadFile, GoodRuns) {
  Run("samples/QV8348.hex");
  ExpectEvents(Begin("samples/QV8348.hex") + Converted() + Firmware(Image()) + Texts{"wait 3000"} +
               PackagesAfterFirmware() + InfoBlock() + Restored() + Up());
  const AppState& app = TheAppState();
  EXPECT_EQ(
      All(app.conversion.LoadedFilePath, app.program.ReadyText, app.writer.ProgressMode, app.cursors.PreviousCursor),
      All(Path("samples/QV8348.bin"), "", Progress::None, 0));
  EXPECT_EQ(TheHexView().Data, Contents("samples/QV8348.bin"));

  // The writer holds the image, and of the first file only the content of the packages is another one. Mass Production
  // leaves the four buttons on.
  TheAppState().selection.MassProduction = MassMode::On;
  SetStatusText("X=1 Y=2");
  Run("samples/QV8348.hex");
  Texts converted = Converted(), up = Up();
  up.erase(up.begin(), up.begin() + 2);
  std::erase_if(converted,
                [](const std::string& line) { return line.starts_with("Checksum") || line.starts_with("FileField"); });
  ExpectEvents(Begin("samples/QV8348.hex") + converted +
               Packages(Contents(kOptionPackageName), Contents(kDataPackageName), true) + InfoBlock() + Restored() +
               up);
  EXPECT_EQ(Contents(kOptionPackageName)[78], 16);
}

TEST_P(LoadFile, InSerialNumberMode) {
  Run("samples/QV8348.hex");
  Bytes serial = Contents("hwversion1.1/QV8348.txt");
  serial.resize(256);
  for (std::size_t i = 0; i < 32; ++i) serial[96 + i] = i == 15 ? 0x15 : i == 31 ? 0x12 : 0;
  std::copy_n(Bytes{0x20, 2, 0, 0x10, 0, 0x12}.begin(), 6, serial.begin() + 53);
  Write(kSerialFileName, serial);
  TheAppState().selection.SnMode = true;
  Run("samples/QV8348.hex");
  const Texts got = record.Take();
  ASSERT_GE(got.size(), 3U);
  EXPECT_EQ(got[got.size() - 3], "off Auto BlankCheck Program Verify");
  EXPECT_TRUE(got[got.size() - 2].starts_with("S/N shown, Program on, SET off, "));
  EXPECT_EQ(Part(writer.OptionArea(), 53, 6), Part(serial, 53, 6));
}

TEST_P(LoadFile, Cancelled) {
  TheAppState().conversion.LoadedFilePath = "before";
  SetControlText(ControlId::FileField, "before");
  Start();
  OnLoadFile();
  ExpectEvents({"on Buffer", "hide HexView", "paint", "hex white",
                "status = ", "choose Kestrel Hex Files (*.hex)|*.hex||: Cancel", "off Buffer", "show HexView", "paint",
                "hex paint", "FileField = ", "hex paint"});
  EXPECT_EQ(All(TheAppState().conversion.LoadedFilePath, TheAppState().writer.ProgressMode),
            All("", Progress::Transfers));
}

TEST_P(LoadFile, AnEmptyPath) {
  op.files = {std::string()};
  Start();
  OnLoadFile();
  ExpectEvents({"on Buffer", "hide HexView", "paint", "hex white",
                "status = ", "choose Kestrel Hex Files (*.hex)|*.hex||: ", "paint", "box [PyxisLoad] File is empty."});
}

TEST_P(LoadFile, PackagesThatFail) {
  Run("samples/QV8348.hex");
  writer.faults.damageAreaByte = 1500;  // in the data package only
  Run("samples/QV8348.hex");
  Texts got = record.Take();
  const auto box = std::find(got.begin(), got.end(), "box [Message] Loading Data Fail");
  ASSERT_NE(box, got.end());
  EXPECT_EQ(*(box - 1), "wait 1500");
  EXPECT_EQ(*(box + 2), Usb() ? "usb SET_MODE 47" : "api SET_MODE 47");  // the block is read all the same
}

INSTANTIATE_TEST_SUITE_P(BothTransports, LoadFile, kBothTransports);

class LoadFileOptions : public StandinBench {};

TEST_F(LoadFileOptions, Filters) {
  // clang-format off
  for (const auto& [extension, filter] : Table<const char*, const char*>{
           {".hex", "Kestrel Hex Files (*.hex)|*.hex||"}, {".OBJ", "Kestrel Obj Files (*.obj)|*.obj||"},
           {".otp", "Kestrel Otp Files (*.otp)|*.otp||"}, {".epm", "Kestrel Epm Files (*.epm)|*.epm||"},
           {".HexBin", "Kestrel Hex Files (*.hex)|*.hex|Kestrel Bin Files (*.bin)|*.bin||"},
           {".velmar", "Kestrel Velmar Files (*.velmar)|*.velmar||"}, {".nce", "Kestrel Obj Files (*.obj)|*.obj||"}})
    // clang-format on
    EXPECT_STREQ(FileFilter(extension), filter);
}

TEST_F(LoadFileOptions, ReachTheJobAndThePanel) {
  using Dialog = COptionSelectDlg;
  // The buttons that are clicked, -1 for none; the value; what the panel marks.
  // clang-format off
  for (const auto& [chip, protect, mode, clockPair, ok, value, full, marks] :
       Table<const char*, int, int, int, bool, std::uint32_t, bool, std::vector<ControlId>>{
           {"QVL04", -1, -1, -1, true, 0x67, true,
            {ControlId::Unprotect, ControlId::FastMode, ControlId::Clock32kDisable}},
           {"QVL05", 1, -1, -1, true, 0x66, true, {ControlId::Protect, ControlId::FastMode, ControlId::Clock32kDisable}},
           {"QVL06", -1, 1, -1, true, 0x65, true, {ControlId::Unprotect, ControlId::DualMode, ControlId::Clock32kDisable}},
           {"QVL04", -1, -1, 1, true, 0x63, true, {ControlId::Unprotect, ControlId::FastMode, ControlId::Clock32kEnable}},
           {"QVL06", 1, 1, 1, false, 0x60, true, {ControlId::Protect, ControlId::DualMode, ControlId::Clock32kEnable}},
           {"QVL07", -1, -1, -1, true, 0x61, false, {ControlId::Unprotect}},
           {"QVL13", 1, 1, 1, true, 0x60, false, {ControlId::Protect}},
           {"QVL13", -1, 0, 0, true, 0x61, false, {ControlId::Unprotect}},
           {"QV4105", -1, -1, -1, true, 1, false, {ControlId::Unprotect}},
           {"QV4106", 1, 0, 0, true, 0, false, {ControlId::Protect}},
           {"QV4105", -1, -1, -1, false, 0x60, false, {ControlId::Unprotect}}}) {
    // clang-format on
    SCOPED_TRACE(std::string(chip) + Printf(" %d %d %d", protect, mode, clockPair));
    op.optionSelect = [&](Dialog& dialog) {
      EXPECT_EQ(All(dialog.Shown(Dialog::Protection), dialog.Shown(Dialog::Mode), dialog.Shown(Dialog::Clock)),
                All(0, full ? 0 : -1, full ? 0 : -1));
      if (protect >= 0) dialog.Click(Dialog::Protection, protect);
      if (mode >= 0) dialog.Click(Dialog::Mode, mode);
      if (clockPair >= 0) dialog.Click(Dialog::Clock, clockPair);
      if (ok) dialog.OnOk();
      return ok ? DialogEnd::Ok : DialogEnd::Cancel;
    };
    ResetMainControls();
    LoadSample(chip);
    EXPECT_EQ(TheAppState().selection.OptionValue, value);
    std::vector<ControlId> marked;
    for (const ControlId id : {ControlId::Unprotect, ControlId::Protect, ControlId::FastMode, ControlId::DualMode,
                               ControlId::Clock32kDisable, ControlId::Clock32kEnable})
      if (TheMainControls()[id].checked) marked.push_back(id);
    EXPECT_EQ(marked, marks);
    EXPECT_EQ(All(TheMainControls()[ControlId::FastMode].visible, TheMainControls()[ControlId::Clock32kEnable].visible),
              All(full, full));
  }
}

// The ICs whose protection stands in the file, and one that has no such thing.
TEST_F(LoadFileOptions, ProtectionComesFromTheFile) {
  // clang-format off
  for (const auto& [chip, shown] : Table<const char*, bool>{
           {"QV4101", true}, {"QV4107", true}, {"QV4201", true}, {"QV4203", true}, {"QV4204", true}, {"QV4205", true},
           {"QV4206", true}, {"QV4207", true}, {"QV4103", false}, {"QV8348", false}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    ResetMainControls();
    for (const ControlId id : {ControlId::Unprotect, ControlId::Protect}) ShowControl(id, false);
    LoadSample(chip);
    const MainControls& controls = TheMainControls();
    EXPECT_EQ(controls[ControlId::Unprotect].visible, shown);
    EXPECT_EQ(controls[ControlId::Unprotect].checked, shown && TheAppState().conversion.ImageUnprotected);
    EXPECT_EQ(controls[ControlId::Protect].checked, shown && !TheAppState().conversion.ImageUnprotected);
  }
}

TEST_F(LoadFileOptions, ReadyTexts) {
  const std::string lines(kReady, 0, 22),
      english = "Downloading Data , Please don't power off or plug out USB cable\r\n";
  EXPECT_EQ(ComposeReadyText(0x0404), kReady);
  EXPECT_EQ(ComposeReadyText(0x0409), kReady);
  EXPECT_EQ(ComposeReadyText(0x0804), lines + std::string(13, ' ') +
                                          "下 载 资 料 中 , 勿 关 闭 电 源 或 拔 出 USB 接 线\r\n\r\n" +
                                          std::string(13, ' ') + english);
  for (const std::uint16_t other : {std::uint16_t{0x0C04}, std::uint16_t{0x0004}, std::uint16_t{0x1404}})
    EXPECT_EQ(ComposeReadyText(other), lines);
}

}  // namespace
}  // namespace pyxis::test
