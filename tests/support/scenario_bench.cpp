#include "support/scenario_bench.h"

#include <algorithm>

#include "catalogue/ic_select.h"
#include "intake/convert.h"
#include "intake/load_file.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "operations/chip_info.h"
#include "operations/compare_file.h"
#include "operations/download.h"
#include "operations/firmware.h"
#include "operations/read_chip.h"
#include "operations/run_task.h"
#include "operations/self_test.h"
#include "operations/tasks.h"
#include "options/option_select.h"
#include "options/set_protect.h"
#include "platform/text.h"
#include "pyxisfolder/folder.h"
#include "pyxisfolder/intel_hex_writer.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "shell/ground/messages.h"
#include "shell/refresh_from_writer.h"
#include "shell/start_up.h"
#include "support/serial_entry.h"
#include "view/buffer_area.h"
#include "view/hex_view.h"
#include "view/show_file.h"

namespace pyxis::test {

namespace {

const Texts kMenu{
    "LoadFile",        "SaveAs",      "Exit",       "Device",       "UpdateFirmware", "SerialNumberProgram",
    "CheckNewVersion", "CompareFile", "SetProtect", "ReadChipInfo", "About"};
MenuEntry EntryNamed(const std::string& name) {
  return static_cast<MenuEntry>(std::find(kMenu.begin(), kMenu.end(), name) - kMenu.begin());
}

// The fields of a serial set-up, "-" for an empty one; true when it closes the dialog.
bool Enter(CSnSetDlg& dialog, Texts words) {
  for (std::string& word : words) word = word == "-" ? "" : word;
  return EnterSerial(dialog, {words[0], words[1], words[2], words[3], words.size() > 4 ? Number(words[4]) : 0});
}

}  // namespace

ScenarioBench::ScenarioBench(Transport transport, const ScenarioTexts& texts)
    : StandinBench(transport), transport_(transport), texts_(texts), fields_(Fields()), orders_(Orders()) {
  Machine& machine = TheMachine();
  machine.view = &record;
  machine.update = &record;
  machine.usb = &record;
  machine.vendor = &record;
  usb.pluggedIn = Usb();
  vendor.pluggedIn = !Usb();
  op.cursorsLoad = true;
  std::filesystem::current_path(folder);
  record.afterLine = [this](const std::string& line) { DoAt(line); };
}

// The transport is closed behind the recorder's end.
ScenarioBench::~ScenarioBench() {
  for (const auto& [line, order] : at_) ADD_FAILURE() << "never came: " << line;
  TheMachine().usb = &usb;
  TheMachine().vendor = &vendor;
  std::filesystem::current_path(before_);
}

Bytes ScenarioBench::Held(const std::string& name) const {
  const auto copy = [](const auto& bytes) { return Bytes(bytes.begin(), bytes.end()); };
  return name == "block"     ? copy(TheAppState().writer.WriterInfoBlock)
         : name == "option"  ? writer.OptionArea()
         : name == "data"    ? writer.DataArea()
         : name == "view"    ? TheHexView().editing.Data
         : name == "burnt"   ? writer.chip.burnt
         : name == "SnStart" ? copy(TheSnRecord().SnStartBytes)
         : name == "SnEnd"   ? copy(TheSnRecord().SnEndBytes)
                             : Contents(name);
}

void ScenarioBench::Poke(const std::string& name, std::size_t at, const Bytes& bytes) {
  if (name == "block") return Overwrite(TheAppState().writer.WriterInfoBlock, at, bytes);
  if (name == "option") return Overwrite(writer.OptionArea(), at, bytes);
  if (name == "memory") return Overwrite(writer.Memory(), at, bytes);
  Bytes file = Contents(name);
  Overwrite(file, at, bytes);
  Write(name, file);
}

// All of them, or so many at a place.
void ScenarioBench::ExpectBytes(const Args& args) const {
  const Bytes held = Held(args[0]), wanted = args.Data();
  if (args.words.size() == 1) {
    EXPECT_EQ(held, wanted);
  } else {
    ASSERT_LE(args.As<std::size_t>(1) + wanted.size(), held.size());
    EXPECT_EQ(Part(held, args.As<std::size_t>(1), wanted.size()), wanted);
  }
}

// Numbers are compared as such, paths without the program folder.
void ScenarioBench::ExpectField(const std::string& name, const std::string& wanted) const {
  std::string got = fields_.at(name).get();
  const std::size_t length = folder.string().size();
  if (ToLower(got).starts_with(ToLower(folder.string())))
    got.size() > length + 1 ? got.erase(0, length + 1) : got.replace(0, length, "here");
  EXPECT_TRUE(got == wanted || (!wanted.empty() && got == std::to_string(std::strtoll(wanted.c_str(), nullptr, 0))))
      << name << " is " << got;
}

// The lines of the self-test's report with this part.
void ScenarioBench::ExpectLines(const std::string& part, const std::string& wanted) const {
  std::string got;
  for (const std::string& line : Split(TheAppState().program.ReadyText, "\r\n"))
    if (line.find(part) != std::string::npos) got += line;
  EXPECT_EQ(got, Unescaped(wanted));
}

// "on Auto Verify" and the like: the controls are made so, or are to be so.
void ScenarioBench::Controls(const Texts& words, bool expect) {
  const std::string state = words.empty() ? "" : words[0];
  const auto of = state == "on" || state == "off"      ? &ControlState::enabled
                  : state == "show" || state == "hide" ? &ControlState::visible
                                                       : &ControlState::checked;
  const bool wanted = state == "on" || state == "show" || state == "mark";
  for (std::size_t i = 1; i < words.size(); ++i) {
    bool& now = TheMainControls()[ControlNamed(words[i])].*of;
    if (!expect) now = wanted;
    EXPECT_EQ(now, wanted) << words[i];
  }
}

// What the operator does in a dialog that comes up; the last word is how he leaves it.
void ScenarioBench::Script(const Args& args) {
  const Texts steps(args.words.begin() + 1, args.words.end());
  const DialogEnd end = args.words.back() == "ok" ? DialogEnd::Ok : DialogEnd::Cancel;
  if (args[0] == "Info") {
    op.chipInfo = [this, steps, end](CReadChipInfoDlg& d) {
      d.Changed = [this, &d] {
        record.Line(Joined(d.lines, "|") + (d.readEnabled ? ", Read" : "") + (d.cancelEnabled ? ", Cancel" : ""));
      };
      d.Changed();
      if (d.readEnabled) d.OnRead();
      if (!steps.empty() && steps[0] == "another") ComeAnotherWriter();
      return end;
    };
  } else if (args[0] == "Compare") {
    op.downloadInfo = [this, steps, end](CDownloadInfoDlg& d) {
      CompareIn(d);
      if (!steps.empty() && steps[0] == "another") ComeAnotherWriter();
      return end;
    };
  } else if (args[0] == "SnSet") {
    op.snSet = [steps](CSnSetDlg& d) { return Enter(d, steps) ? DialogEnd::Ok : DialogEnd::Cancel; };
  } else if (args[0] == "SnProgram") {
    op.snProgram = [this, steps, end](CSnProgramDlg& d) { return Press(d, steps), end; };
  } else if (args[0] == "Option") {
    op.optionSelect = [this, steps, end](COptionSelectDlg& d) {
      record.Line(Printf("shown %d %d %d", d.Shown(COptionSelectDlg::Protection), d.Shown(COptionSelectDlg::Mode),
                         d.Shown(COptionSelectDlg::Clock)));
      for (std::size_t pair = 0; pair < 3; ++pair)
        if (steps[pair] != "-") d.Click(static_cast<COptionSelectDlg::Pair>(pair), Number(steps[pair]));
      if (end == DialogEnd::Ok) d.OnOk();
      return end;
    };
  } else {
    op.icSelect = [steps, end](CIcSelectDlg& d) {
      for (const std::string& step : steps) {
        const Texts parts = Split(step, "=");
        if (parts[0] == "series") d.OnSeriesChange(Number(parts[1]));
        if (parts[0] == "type") d.OnTypeChange(Number(parts[1]));
        if (parts[0] == "model") TheAppState().writer.WriterModel = Model{Number(parts[1])};
        if (parts[0] == "isp") d.OnIsp(true);
        if (parts[0] == "exhv") d.OnExhvIsp(true);
        if (parts[0] == "mass") d.OnMassProduction(true);
        if (parts[0] == "serial") d.OnDisplaySerial(true);
        if (parts[0] == "limit") d.OnProductionLimit(true), d.OnLimitText(parts[1]), d.OnOk();
      }
      return end;
    };
  }
}

void ScenarioBench::CompareIn(CDownloadInfoDlg& dialog) {
  dialog.Changed = [this, &dialog] {
    record.Line(Joined(dialog.lines, "|") + (dialog.compareEnabled ? ", Compare" : "") +
                (dialog.cancelEnabled ? ", Cancel" : ""));
  };
  dialog.OnCompareFile();
}

// The buttons of Serial Number Program; a press shows by the fields that it changes.
void ScenarioBench::Press(CSnProgramDlg& dialog, const Texts& steps) {
  dialog.Changed = [this, &dialog, shown = std::string()]() mutable {
    const std::string now = dialog.startText + " of " + dialog.endText + ", OK " + dialog.okText + " NG " +
                            dialog.ngText + " Total " + dialog.totalText +
                            (dialog.snProgramEnabled ? ", Program" : "") +
                            (TheMainControls().verdict.words.empty() ? "" : "; " + TheMainControls().verdict.words);
    if (std::exchange(shown, now) != now) record.Line(now);
  };
  for (const std::string& step : steps) {
    if (step == "good" || step == "bad") writer.chip = standin::Chip{};
    if (step == "bad") writer.faults.failTask = 1;
    if (step == "cancel") op.snSet = {};
    if (step == "set" || step == "cancel") dialog.OnSnSet();
    if (step == "good" || step == "bad" || step == "press") dialog.OnSnProgram();
    if (step == "reset") dialog.OnResetCount();
    if (step == "another") ComeAnotherWriter();
    if (step == "close") dialog.OnClose();
  }
}

// Code and file, and sn, mass and limit=N as far as they are on.
void ScenarioBench::Convert(const Args& args) {
  ConvertRequest request;
  request.ChipCode = args.As<std::uint32_t>(0);
  request.SelectedChip = TheAppState().selection.SelectedChip;
  request.Path = Path(args[1]);
  request.OptionValue = &optionValue_;
  request.Tell = TellText;
  for (std::size_t i = 2; i < args.words.size(); ++i) {
    request.SnMode |= args[i] == "sn";
    request.MassProduction |= args[i] == "mass";
    if (!args[i].starts_with("limit=")) continue;
    request.ProductionLimitOn = true;
    request.ProductionLimitBcd = PackedDecimal(Number(args[i].substr(6)));
  }
  const ConversionResults results = ConvertFile(request);
  EXPECT_EQ(results.result, results.code == kConverted ? 0 : 1);
  result_ = results.code;
}

// The program as it starts, with the buttons on or off.
void ScenarioBench::Restart(bool buttonsOn) {
  app_.ExitInstance();
  ResetAppState();
  ResetMainControls();
  TheAppState().selection.SelectedChip = TheAppState().selection.ChipNameText = "QV8348";
  TheSnRecord().SnLength = 4;
  Controls(Words(std::string(buttonsOn ? "on" : "off") + " Auto BlankCheck Program Verify Read WriterTest SmartOption"),
           false);
  Start();
  app_.InitInstance();
  dialog_.OnInitDialog();
}

void ScenarioBench::Device(DeviceEvent::Kind kind, const std::string& name) {
  const std::string device = std::string("dev#{") + kWriterInterfaceClass + "}";
  dialog_.OnDevice({kind, name == "writer" ? device : name == "capitals" ? ToUpper(device) : name});
}

// With the job of the neighbouring IC.
void ScenarioBench::ComeAnotherWriter() {
  writer.OptionArea()[4] ^= 1;
  Device(DeviceEvent::Kind::Arrival, "writer");
}

// Each order once.
void ScenarioBench::DoAt(const std::string& line) {
  for (std::size_t i = 0; i < at_.size();) {
    if (!line.starts_with(at_[i].first)) {
      ++i;
      continue;
    }
    const std::string order = at_[i].second;
    at_.erase(at_.begin() + static_cast<std::ptrdiff_t>(i));
    Do(order);
  }
}

// For each IC, as long as they stay the same.
void ScenarioBench::OfferedEntries(Texts chips) {
  std::string& chip = TheAppState().selection.ChipNameText;
  if (chips.empty()) chips = {chip};
  std::string before;
  for (const std::string& each : chips) {
    chip = each;
    Texts offered;
    for (const std::string& entry : kMenu)
      if (MenuEnabled(EntryNamed(entry))) offered.push_back(entry);
    if (std::exchange(before, Joined(offered, " ")) != Joined(offered, " ")) record.Line(before);
  }
}

// clang-format off
std::map<std::string, ScenarioBench::Field> ScenarioBench::Fields() {
  const auto of = []<typename T>(T& value) -> Field {
    if constexpr (std::is_same_v<T, std::string>)
      return {[&value] { return value; }, [&value](auto& text) { value = text; }};
    else
      return {[&value] { return std::to_string(static_cast<long long>(value)); },
              [&value](auto& text) { value = static_cast<T>(Number(text)); }};
  };
  AppState& app = TheAppState();
  MainControls& controls = TheMainControls();
  SnRecord& serial = TheSnRecord();
  auto& [w, p, s, c, cursors] = app;
  return {
      {"result", of(result_)}, {"SelectedChip", of(s.SelectedChip)}, {"ChipNameText", of(s.ChipNameText)},
      {"SnMode", of(s.SnMode)}, {"ExhvIsp", of(s.ExhvIsp)}, {"IspProgram", of(s.IspProgram)},
      {"MassProduction", of(s.MassProduction)}, {"ProductionLimitOn", of(s.ProductionLimitOn)},
      {"ProductionLimitCount", of(s.ProductionLimitCount)}, {"HasSmartOption", of(s.HasSmartOption)},
      {"OptionValue", of(s.OptionValue)}, {"SeriesIndex", of(s.SeriesIndex)}, {"TypeIndex", of(s.TypeIndex)},
      {"ReadSizeBytes", of(s.ReadSizeBytes)}, {"ReadSwapBytes", of(s.ReadSwapBytes)},
      {"LoadedFilePath", of(c.LoadedFilePath)}, {"SystemConfigWord", of(c.SystemConfigWord)},
      {"ImageChecksum", of(c.ImageChecksum)}, {"DualSkip", of(c.DualSkip)}, {"UsedLength", of(c.UsedLength)},
      {"PartialChecksum", of(c.PartialChecksum)}, {"optionValue", of(optionValue_)}, {"AppDir", of(p.AppDir)},
      {"ReadyText", of(p.ReadyText)}, {"StartDirectory", of(p.StartDirectory)}, {"WriterModel", of(w.WriterModel)},
      {"FirmwareCode", of(w.FirmwareCode)}, {"FirmwareVersion", of(w.FirmwareVersion)},
      {"FirmwareLevel", of(w.FirmwareLevel)}, {"FirmwareLoadFailed", of(w.FirmwareLoadFailed)},
      {"TransferBusy", of(w.TransferBusy)}, {"ProgressMode", of(w.ProgressMode)}, {"HwKnown", of(w.HwKnown)},
      {"HwFolder", of(w.HwFolder)}, {"ModelRegister", of(w.ModelRegister)}, {"WriterConnected", of(w.WriterConnected)},
      {"UseVendorApi", of(w.UseVendorApi)}, {"SnLoaded", of(w.SnLoaded)}, {"PreviousCursor", of(cursors.PreviousCursor)},
      {"cursorsLoad", of(op.cursorsLoad)}, {"zeroReads", of(writer.zeroReads)}, {"snWindowsCome", of(record.snWindowsCome)}, {"language", of(language.id)},
      {"updateResult", of(record.updateResult)}, {"status", of(controls.statusBar.pane0)}, {"title", of(controls.title)},
      {"figure", of(controls.pinFigure)}, {"verdict", of(controls.verdict.words)}, {"blank", of(TheHexView().Blanked)},
      {"FileField", of(controls[ControlId::FileField].text)}, {"Buffer", of(controls[ControlId::BufferArea].text)},
      {"ChecksumText", of(c.ChecksumText)}, {"WideAddress", of(TheHexView().geometry.WideAddress)},
      {"SnLength", of(serial.SnLength)}, {"SnAmountText", of(serial.SnAmountText)},
      {"SnStartText", of(serial.SnStartText)}, {"SnEndText", of(serial.SnEndText)},
      {"SnEndAddress", of(serial.SnEndAddress)},
      {"left", {[] { const auto& left = TheMainControls().verdict.left; return left ? std::to_string(*left) : ""; }, {}}},
      {"Program", {[] { return std::to_string(SnProgressDlg()->snProgramEnabled ? 1 : 0); }, {}}},
      {"focus", {[] { return std::to_string(static_cast<int>(TheMainControls().focus.value_or(ControlId::Count))); },
                 [](auto&) { TheMainControls().focus.reset(); }}}};
}

std::map<std::string, std::function<void(const ScenarioBench::Args&)>> ScenarioBench::Orders() {
  return {
      // start states
      {"sample", [this](auto& a) { LoadSample(a[0]); }}, {"folder", [this](auto& a) { PutFolderFor(a[0]); }},
      {"select", [this](auto& a) { Select(a[0]); }}, {"controls", [](auto& a) { Controls(a.words, false); }},
      {"set", [this](auto& a) { fields_.at(a[0]).set(Unescaped(a.value)); }},
      {"poke", [this](auto& a) { Poke(a[0], a.template As<std::size_t>(1), a.Data()); }},
      {"write", [this](auto& a) { Write(a[0], a.Data()); }}, {"copy", [this](auto& a) { Write(a[1], Held(a[0])); }},
      {"link", [this](auto& a) { std::filesystem::create_symlink(a[1], folder / a[0]); }},
      {"remove", [this](auto& a) { std::filesystem::remove(folder / a[0]); }},
      {"mkdir", [this](auto& a) { std::filesystem::create_directory(folder / a[0]); }},
      {"image", [this](auto& a) { Write(a[0], pyxis::folder::MakeFirmware(Model{Number(a.value)}, 0x1234)); }},
      {"hexfile", [this](auto& a) { Write(a[0], pyxis::folder::ToIntelHex(a.Data())); }},
      {"fault", [this](auto& a) { EXPECT_TRUE(SetFault(writer.faults, Joined(a.words, " "))); }},
      {"measure", [this](auto& a) {
         EXPECT_TRUE(writer.SetMeasure(a.template As<std::uint8_t>(0), a.template As<std::size_t>(1),
                                       static_cast<std::uint8_t>(Number(a.value)))); }},
      {"feed", [this](auto& a) { record.feed[a[0]] = a.Data(); }},
      {"identity", [this](auto& a) { writer.identity = a.value; }},
      {"plug", [this](auto& a) { (Usb() ? usb.pluggedIn : vendor.pluggedIn) = a[0] == "in"; }},
      {"hold", [this](auto& a) { writer.OptionArea() = Contents(a[0]); }},
      {"renew", [this](auto&) { writer = standin::WriterModel(); }}, {"chip", [this](auto& a) {
         writer.chip = standin::Chip();
         if (a[0] == "missing") writer.chip.state = standin::ChipState::Missing; }},
      {"answer", [this](auto& a) { op.answers.push_back(a[0] == "Yes"); }}, {"script", [this](auto& a) { Script(a); }},
      {"at", [this](auto& a) { at_.emplace_back(Joined(a.words, " "), a.value); }},
      {"choose", [this](auto& a) { op.files.push_back(a.words.empty() ? "" : Path(a[0])); }},
      // states afterwards
      {"is", [this](auto& a) { ExpectField(a[0], Unescaped(a.value)); }}, {"bytes", [this](auto& a) { ExpectBytes(a); }},
      {"are", [](auto& a) { Controls(a.words, true); }}, {"lines", [this](auto& a) { ExpectLines(a[0], a.value); }},
      {"same", [this](auto& a) { EXPECT_EQ(Held(a[0]), Held(a[1])); }},
      {"size", [this](auto& a) { EXPECT_EQ(std::to_string(Held(a[0]).size()), a.value); }},
      // calls
      {"Auto", [](auto&) { OnAuto(); }}, {"BlankCheck", [](auto&) { OnBlankCheck(); }},
      {"Program", [](auto&) { OnProgram(); }}, {"Verify", [](auto&) { OnVerify(); }}, {"Read", [](auto&) { OnRead(); }},
      {"WriterTest", [this](auto&) { result_ = OnWriterTest().Good(); }}, {"LoadFile", [](auto&) { OnLoadFile(); }},
      {"Load", [this](auto& a) { Load(a[0]); }}, {"Sample", [this](auto& a) { LoadSample(a[0]); }},
      {"Packages", [](auto&) { DownloadPackages(); }}, {"UpdateFirmware", [](auto&) { OnUpdateFirmware(); }},
      {"SetProtect", [](auto&) { OnSetProtect(); }}, {"Messages", [](auto&) { FrontBufferArea(); }},
      {"HexView", [](auto&) { FrontHexView(); }}, {"ReadyText", [](auto& a) { SetReadyText(a.value); }},
      {"Show", [this](auto& a) { ShowFile(Path(a[0])); }},
      {"Convert", [this](auto& a) { Convert(a); }},
      {"Package", [this](auto& a) { result_ = DownloadPackageFile(Path(a[0]), a.template As<std::uint8_t>(1)).Good(); }},
      {"Firmware", [this](auto& a) { result_ = LoadFirmware(Path(a[0]), true).Good(); }},
      {"SelectFirmware", [](auto& a) { SelectFirmware(a.template As<std::uint32_t>(0)); }},
      {"ReadChipInfo", [](auto&) { OnReadChipInfo(); }}, {"DownloadInfo", [](auto&) { OnDownloadInfo(); }},
      {"Compare", [this](auto& a) { result_ = CompareWithWriter(Path(a[0])).Good(); }},
      {"CompareFile", [this](auto&) { CDownloadInfoDlg dialog("", ""); CompareIn(dialog); }},
      {"Task", [this](auto& a) { result_ = RunTask(a.template As<std::uint8_t>(0), 1).Good(); }},
      {"StartTask", [](auto& a) { StartTask(a.template As<std::uint8_t>(0)); }},
      {"Control", [](auto& a) { SendControl(a.template As<std::uint8_t>(0)); }},
      {"Identity", [](auto&) { ReadWriterIdentity(); }}, {"IdentifyAtStart", [](auto&) { IdentifyAtStart(); }},
      {"Mode", [](auto& a) { SetWriterMode(a.template As<std::uint8_t>(0)); }},
      {"Area", [](auto& a) { const OpenArea open(a.template As<std::uint8_t>(0)); }}, {"Address", [](auto&) { SetAddressZero(); }},
      {"Peek", [this](auto& a) { result_ = PeekByte(a.template As<std::uint16_t>(0)); }},
      {"Block", [](auto&) { ReadInfoBlock(TheAppState().writer.WriterInfoBlock); }},
      {"TestSelect", [](auto& a) { SendTestSelect(a.template As<std::uint8_t>(0)); }},
      {"TestSet", [](auto& a) { SendTestSet(a.template As<std::uint16_t>(0)); }},
      {"Measure", [](auto&) { std::array<std::uint8_t, 6> measure; ReadTestMeasure(measure); }},
      {"FirmwareBytes", [](auto&) { ReadFirmwareBytes(); }}, {"OpenLink", [](auto&) { OpenTransport(); }},
      {"CloseLink", [](auto&) { CloseTransport(); }},
      {"Disable", [](auto&) { DisableOperations(); }}, {"Enable", [](auto&) { EnableOperations(); }},
      {"Restart", [this](auto& a) { Restart(a[0] == "on"); }}, {"Exit", [this](auto&) { app_.ExitInstance(); }},
      {"Button", [this](auto& a) { dialog_.OnButton(ControlNamed(a[0])); }},
      {"Menu", [this](auto& a) { dialog_.OnCommand(EntryNamed(a[0])); }},
      {"Mouse", [this](auto&) { dialog_.OnMouseMove(12, 7); }},
      {"Prompt", [this](auto& a) { dialog_.OnMenuPrompt(Joined(a.words, " ")); }},
      {"MousePress", [this](auto&) { record.Line(dialog_.DropsMousePress() ? "dropped" : "kept"); }},
      {"MenuOffers", [this](auto& a) { OfferedEntries(a.words); }},
      {"Close", [this](auto&) { result_ = dialog_.OnSysClose(); }}, {"Refresh", [](auto&) { RefreshFromWriter(); }},
      {"Arrive", [this](auto& a) { Device(DeviceEvent::Kind::Arrival, a[0]); }},
      {"Leave", [this](auto& a) { Device(DeviceEvent::Kind::Removal, a[0]); }},
      {"Another", [this](auto&) { ComeAnotherWriter(); }},
      {"Enter", [this](auto& a) {
         CSnSetDlg dialog(a[0].starts_with("selection"), a[0].ends_with(",exhv"), a[0].ends_with(",isp"));
         result_ = Enter(dialog, {a.words.begin() + 1, a.words.end()}); }},
      // the length that shows first, and the start serial behind each typing
      {"Type", [this](auto& a) {
         CSnSetDlg dialog(false, false, false);
         dialog.OnInitDialog();
         record.Line(dialog.lengthText);
         dialog.OnLengthChange(a[0]);
         for (std::size_t i = 1; i < a.words.size(); ++i) dialog.OnStartChange(a[i]), record.Line(dialog.startText); }},
      {"SnProgram", [](auto&) { OnSerialNumberProgram(); }}, {"SnStop", [](auto&) { StopSnProgress(); }},
      {"SnUp", [](auto&) { BringSnProgressUpToDate(true); }}, {"SnDown", [](auto&) { BringSnProgressUpToDate(false); }},
      {"Press", [this](auto& a) { Press(*SnProgressDlg(), a.words); }}};
}
// clang-format on

}  // namespace pyxis::test
