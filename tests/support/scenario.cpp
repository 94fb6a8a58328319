#include "support/scenario.h"

#include <algorithm>
#include <functional>

#include "catalogue/ic_select.h"
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
#include "platform/byte_order.h"
#include "platform/text.h"
#include "pyxisfolder/folder.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "shell/application.h"
#include "shell/main_dialog.h"
#include "shell/menu_rules.h"
#include "shell/refresh_from_writer.h"
#include "shell/start_up.h"
#include "support/scenario_text.h"
#include "support/serial_entry.h"
#include "view/hex_view.h"

namespace pyxis::test {

namespace {

// A value of the program by its name, as text.
struct Field {
  std::function<std::string()> get;
  std::function<void(const std::string&)> set;
};

template <typename T>
Field Of(T& value) {
  if constexpr (std::is_same_v<T, std::string>)
    return {[&value] { return value; }, [&value](const std::string& text) { value = text; }};
  else
    return {[&value] { return std::to_string(static_cast<long long>(value)); },
            [&value](const std::string& text) { value = static_cast<T>(Number(text)); }};
}

constexpr const char* kMenu[] = {
    "LoadFile",        "SaveAs",      "Exit",       "Device",       "UpdateFirmware", "SerialNumberProgram",
    "CheckNewVersion", "CompareFile", "SetProtect", "ReadChipInfo", "About"};
MenuEntry EntryNamed(const std::string& name) {
  return static_cast<MenuEntry>(std::find(std::begin(kMenu), std::end(kMenu), name) - std::begin(kMenu));
}

template <typename Lines>
std::string Joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "|") + line;
  return text;
}

class Scenario : public RecordedBench {
 public:
  Scenario(Transport transport, const ScenarioTexts& texts) : RecordedBench(transport), texts_(texts) {}
  ~Scenario() override { std::filesystem::current_path(before_); }

  // A line in the first column is an order, the lines under it that begin with two blanks are the events of its call.
  void Run(const Texts& lines) {
    for (std::size_t i = 0; i < lines.size();) {
      const std::string line = ForTransport(lines[i++]);
      Texts events;
      for (; i < lines.size() && lines[i].starts_with("  "); ++i) events.push_back(lines[i].substr(2));
      if (line.empty()) continue;
      SCOPED_TRACE(line);
      const std::string verb = Words(line)[0];
      const std::string rest = line.size() > verb.size() ? line.substr(verb.size() + 1) : "";
      if (line[0] == '@') {
        Run(List(line));
      } else if (verb == "run") {
        Start();
        Call(rest);
        ExpectEvents(Events(events));
      } else if (const auto order = orders_.find(verb); order != orders_.end()) {
        order->second(rest);
      } else {
        ADD_FAILURE() << "no such order";
      }
    }
  }

 private:
  void TestBody() override {}

  std::string ForTransport(const std::string& line) const {
    if (!line.starts_with("usb: ") && !line.starts_with("api: ")) return line;
    return line.starts_with("usb") == Usb() ? line.substr(5) : "";
  }

  // The lines of a list that is named in the data, with its words.
  Texts List(const std::string& line) const {
    Texts words = Words(line);
    for (const auto& [name, text] : texts_)
      if (name == words[0]) return Filled(text.lines, {words.begin() + 1, words.end()});
    ADD_FAILURE() << "no list " << words[0];
    return {};
  }

  Texts Events(const Texts& lines) {
    Texts events;
    for (const std::string& several : lines)
      for (const std::string& one : Split(several, " ; ")) {
        const std::string line = ForTransport(one);
        const Texts words = Words(line);
        if (words.empty()) continue;
        if (words[0] == "@poll") {
          events = events + Poll(Number(words[1]), Number(words[2]), words.size() > 3 ? Number(words[3]) : 1);
        } else if (words[0] == "@bar") {
          events = events + BarBehind(static_cast<std::size_t>(Number(Told(words[1]))));
        } else if (words[0] == "@block") {
          events = events + InfoBlock();
        } else if (words[0] == "@package") {
          events = events + PackageFile(words[1], Held(words[2]));
        } else if (line[0] == '@') {
          events = events + Events(List(line));
        } else {
          events.push_back(Unescaped(Told(line)));
        }
      }
    return events;
  }

  // With {size:file}, {be16:file,at}, {hex:file,at} and {shown:file} worked out; {shown:file,count} of its first bytes.
  std::string Told(std::string line) const {
    for (std::size_t at = 0; (at = line.find('{')) != std::string::npos;) {
      const std::size_t end = line.find('}', at);
      const Texts words = Split(line.substr(at + 1, end - at - 1), ":");
      const Texts values = Split(words[1], ",");
      const Bytes bytes = Held(values[0]);
      const std::size_t number = values.size() > 1 ? static_cast<std::size_t>(Number(values[1])) : bytes.size();
      line.replace(at, end + 1 - at,
                   words[0] == "size"   ? std::to_string(bytes.size())
                   : words[0] == "be16" ? Printf("%04X", LoadBe16(&bytes.at(number)))
                   : words[0] == "hex"  ? Printf("%x", LoadBe16(&bytes.at(number)))
                                        : Shown(Part(bytes, 0, number)));
    }
    return line;
  }

  // Bytes by their name: the writer's, the program's, or a file's.
  Bytes Held(const std::string& name) const {
    const auto& block = TheAppState().writer.WriterInfoBlock;
    return name == "block"    ? Bytes(block.begin(), block.end())
           : name == "option" ? writer.OptionArea()
           : name == "data"   ? writer.DataArea()
           : name == "view"   ? TheHexView().Data
           : name == "burnt"  ? writer.chip.burnt
                              : Contents(name);
  }
  void Poke(const std::string& name, std::size_t at, const Bytes& bytes) {
    if (name == "block") return Overwrite(TheAppState().writer.WriterInfoBlock, at, bytes);
    if (name == "option") return Overwrite(writer.OptionArea(), at, bytes);
    if (name == "memory") return Overwrite(writer.Memory(), at, bytes);
    Bytes file = Contents(name);
    Overwrite(file, at, bytes);
    Write(name, file);
  }

  std::string Plain(std::string text) const {
    for (std::size_t at = 0; (at = text.find(folder.string() + "/")) != std::string::npos;)
      text.erase(at, folder.string().size() + 1);
    return text;
  }
  void ExpectField(const std::string& name, const std::string& wanted) {
    const auto field = fields_.find(name);
    ASSERT_NE(field, fields_.end()) << name;
    const std::string got = Plain(field->second.get());
    EXPECT_TRUE(got == wanted || (!wanted.empty() && got == std::to_string(std::strtoll(wanted.c_str(), nullptr, 0))))
        << name << " is " << got;
  }

  // "on Auto Verify" and the like: the controls are made so, or are to be so.
  static void Controls(const std::string& text, bool expect) {
    const Texts words = Words(text);
    const std::string& state = words[0];
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

  // What the operator does in a dialog that comes up.
  void Script(const std::string& text) {
    Texts steps = Words(text);
    const std::string dialog = steps[0];
    const DialogEnd end = steps.back() == "ok" ? DialogEnd::Ok : DialogEnd::Cancel;
    steps.erase(steps.begin());
    if (dialog == "Info") {
      op.chipInfo = [this](CReadChipInfoDlg& d) {
        d.Changed = [this, &d] {
          record.Line(Joined(d.lines) + (d.readEnabled ? ", Read" : "") + (d.cancelEnabled ? ", Cancel" : ""));
        };
        d.Changed();
        if (d.readEnabled) d.OnRead();
        return DialogEnd::Cancel;
      };
    } else if (dialog == "Compare") {
      op.downloadInfo = [this](CDownloadInfoDlg& d) {
        CompareIn(d);
        return DialogEnd::Cancel;
      };
    } else if (dialog == "SnSet") {
      op.snSet = [this, steps](CSnSetDlg& d) { return Enter(d, steps) ? DialogEnd::Ok : DialogEnd::Cancel; };
    } else if (dialog == "SnProgram") {
      op.snProgram = [this, steps](CSnProgramDlg& d) {
        Press(d, steps);
        return DialogEnd::Cancel;
      };
    } else if (dialog == "Option") {
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
          if (parts[0] == "isp") d.OnIsp(true);
          if (parts[0] == "mass") d.OnMassProduction(true);
          if (parts[0] == "serial") d.OnDisplaySerial(true);
          if (parts[0] == "limit") d.OnProductionLimit(true), d.OnLimitText(parts[1]), d.OnOk();
        }
        return end;
      };
    }
  }
  void CompareIn(CDownloadInfoDlg& dialog) {
    dialog.Changed = [this, &dialog] {
      record.Line(Joined(dialog.lines) + (dialog.compareEnabled ? ", Compare" : "") +
                  (dialog.cancelEnabled ? ", Cancel" : ""));
    };
    dialog.OnCompareFile();
  }
  // Length, address, start, amount, direction, each "-" for an empty field.
  bool Enter(CSnSetDlg& dialog, Texts fields) {
    for (std::string& field : fields) field = field == "-" ? "" : field;
    return EnterSerial(dialog, {fields[0], fields[1], fields[2], fields[3], fields.size() > 4 ? Number(fields[4]) : 0});
  }
  // The buttons of Serial Number Program; a press is shown by the fields that it changes.
  void Press(CSnProgramDlg& dialog, const Texts& steps) {
    std::string shown;
    dialog.Changed = [this, &dialog, shown]() mutable {
      const std::string now = dialog.startText + " of " + dialog.endText + ", OK " + dialog.okText + " NG " +
                              dialog.ngText + " Total " + dialog.totalText +
                              (dialog.snProgramEnabled ? ", Program" : "");
      if (now != shown) record.Line(now);
      shown = now;
    };
    for (const std::string& step : steps) {
      if (step == "good" || step == "bad") writer.chip = standin::Chip{};
      if (step == "bad") writer.faults.failTask = 1;
      if (step == "set") dialog.OnSnSet();
      if (step == "good" || step == "bad" || step == "press") dialog.OnSnProgram();
      if (step == "reset") dialog.OnResetCount();
      if (step == "close") dialog.OnClose();
    }
  }
  CSnProgramDlg& Window() { return snWindow_ ? *snWindow_ : *SnProgressDlg(); }

  // The program as it starts, with the buttons on or off and the program folder as the current one.
  void Restart(bool buttonsOn) {
    std::filesystem::current_path(folder);
    app_.ExitInstance();
    ResetAppState();
    ResetMainControls();
    Controls(std::string(buttonsOn ? "on" : "off") + " Auto BlankCheck Program Verify Read WriterTest SmartOption",
             false);
    Start();
    app_.InitInstance();
    dialog_.OnInitDialog();
  }
  void Device(DeviceEvent::Kind kind, const Texts& words) {
    const std::string name = std::string("dev#{") + kWriterInterfaceClass + "}";
    dialog_.OnDevice({kind, words[0] == "writer" ? name : words[0] == "capitals" ? ToUpper(name) : "mouse"});
  }

  void Call(const std::string& text) {
    Texts words = Words(text);
    const auto call = calls_.find(words[0]);
    ASSERT_NE(call, calls_.end()) << text;
    words.erase(words.begin());
    call->second(words);
  }

  const ScenarioTexts& texts_;
  const std::filesystem::path before_ = std::filesystem::current_path();
  CPyxisLoadApp app_;
  CPyxisLoadDlg dialog_;
  std::unique_ptr<CSnProgramDlg> snWindow_;  // of a modal run; without it the modeless one is meant
  int result_ = 0;                           // of the last call that has one

  using Order = std::function<void(const std::string&)>;
  std::pair<std::string, Order> Assigning(const char* verb,
                                          std::function<void(const std::string&, const std::string&)> order) {
    return {verb, [order](const std::string& text) {
              const std::size_t at = text.find(" =");
              const std::string value = text.size() > at + 3 ? text.substr(at + 3) : "";
              order(text.substr(0, at), value);
            }};
  }
  const std::map<std::string, Order> orders_{
      {"sample", [this](auto& label) { LoadSample(label); }},
      {"folder", [this](auto& label) { PutFolderFor(label); }},
      {"select", [this](auto& label) { Select(label); }},
      Assigning("set", [this](auto& field, auto& value) { fields_.at(field).set(Unescaped(value)); }),
      Assigning("is", [this](auto& field, auto& value) { ExpectField(field, Unescaped(value)); }),
      // name and place
      Assigning("poke",
                [this](auto& where, auto& bytes) {
                  Poke(Words(where)[0], static_cast<std::size_t>(Number(Words(where)[1])), BytesOf(bytes));
                }),
      Assigning("bytes",
                [this](auto& where, auto& bytes) {
                  const Texts words = Words(where);
                  const Bytes wanted = BytesOf(bytes), held = Held(words[0]);
                  const auto at = words.size() > 1 ? static_cast<std::size_t>(Number(words[1])) : 0;
                  ASSERT_LE(at + wanted.size(), held.size());
                  EXPECT_EQ(Part(held, at, words.size() > 1 ? wanted.size() : held.size()), wanted);
                }),
      Assigning("measure",
                [this](auto& where, auto& value) {
                  EXPECT_TRUE(writer.SetMeasure(static_cast<std::uint8_t>(Number(Words(where)[0])),
                                                static_cast<std::size_t>(Number(Words(where)[1])),
                                                static_cast<std::uint8_t>(Number(value))));
                }),
      Assigning("lines",
                [](auto& part, auto& wanted) {
                  std::string got;
                  for (const std::string& line : Split(TheAppState().program.ReadyText, "\r\n"))
                    if (line.find(part) != std::string::npos) got += line;
                  EXPECT_EQ(got, Unescaped(wanted));
                }),
      Assigning("size", [this](auto& name, auto& size) { EXPECT_EQ(std::to_string(Held(name).size()), size); }),
      Assigning("write", [this](auto& file, auto& bytes) { Write(file, BytesOf(bytes)); }),
      Assigning(
          "image",
          [this](auto& file, auto& model) { Write(file, pyxis::folder::MakeFirmware(Model{Number(model)}, 0x1234)); }),
      {"same", [this](auto& two) { EXPECT_EQ(Held(Words(two)[0]), Held(Words(two)[1])); }},
      {"remove", [this](auto& file) { std::filesystem::remove(folder / file); }},
      {"mkdir", [this](auto& file) { std::filesystem::create_directory(folder / file); }},
      {"controls", [](auto& text) { Controls(text, false); }},
      {"are", [](auto& text) { Controls(text, true); }},
      {"fault", [this](auto& words) { EXPECT_TRUE(SetFault(writer.faults, words)); }},
      {"plug", [this](auto& in) { (Usb() ? usb.pluggedIn : vendor.pluggedIn) = in == "in"; }},
      {"answer", [this](auto& text) { op.answers.push_back(text == "Yes"); }},
      {"choose", [this](auto& file) { op.files.push_back(file.empty() ? file : Path(file)); }},
      {"chip",
       [this](auto& state) {
         writer.chip = standin::Chip();
         if (state == "missing") writer.chip.state = standin::ChipState::Missing;
       }},
      {"renew", [this](auto&) { writer = standin::WriterModel(); }},
      {"identity", [this](auto& text) { writer.identity = text; }},
      Assigning("feed", [this](auto& command, auto& bytes) { record.feed[command] = BytesOf(bytes); }),
      {"script", [this](auto& text) { Script(text); }},
      {"do", [this](auto& text) { Call(text); }}};

  using Args = const Texts&;
  const std::map<std::string, std::function<void(Args)>> calls_{
      {"Auto", [](Args) { OnAuto(); }},
      {"BlankCheck", [](Args) { OnBlankCheck(); }},
      {"Program", [](Args) { OnProgram(); }},
      {"Verify", [](Args) { OnVerify(); }},
      {"Read", [](Args) { OnRead(); }},
      {"WriterTest", [](Args) { WriterTest(); }},
      {"Load", [this](Args words) { Load(words[0]); }},
      {"Sample", [this](Args words) { LoadSample(words[0]); }},
      {"LoadFile", [](Args) { OnLoadFile(); }},
      {"Packages", [](Args) { DownloadPackages(); }},
      {"Package",
       [this](Args words) {
         result_ = DownloadPackageFile(Path(words[0]), static_cast<std::uint8_t>(Number(words[1])));
       }},
      {"Firmware", [this](Args words) { result_ = LoadFirmware(Path(words[0]), true); }},
      {"SelectFirmware", [](Args words) { SelectFirmware(static_cast<std::uint32_t>(Number(words[0]))); }},
      {"UpdateFirmware", [](Args) { OnUpdateFirmware(); }},
      {"ReadChipInfo", [](Args) { OnReadChipInfo(); }},
      {"DownloadInfo", [](Args) { OnDownloadInfo(); }},
      {"Compare", [this](Args words) { result_ = CompareWithWriter(Path(words[0])); }},
      {"CompareFile",
       [this](Args) {
         CDownloadInfoDlg dialog("", "");
         CompareIn(dialog);
       }},
      {"Task", [this](Args words) { result_ = RunTask(static_cast<std::uint8_t>(Number(words[0])), 1); }},
      {"StartTask", [](Args words) { StartTask(static_cast<std::uint8_t>(Number(words[0]))); }},
      {"Control", [](Args words) { SendControl(static_cast<std::uint8_t>(Number(words[0]))); }},
      {"Identity", [](Args) { ReadWriterIdentity(); }},
      {"IdentifyAtStart", [](Args) { IdentifyAtStart(); }},
      {"Disable", [](Args) { DisableOperations(); }},
      {"Enable", [](Args) { EnableOperations(); }},
      {"Restart", [this](Args words) { Restart(words[0] == "on"); }},
      {"Exit", [this](Args) { app_.ExitInstance(); }},
      {"Button", [this](Args words) { dialog_.OnButton(ControlNamed(words[0])); }},
      {"Menu", [this](Args words) { dialog_.OnCommand(EntryNamed(words[0])); }},
      {"Mouse", [this](Args) { dialog_.OnMouseMove(12, 7); }},
      {"Prompt", [this](Args words) { dialog_.OnMenuPrompt(words[0]); }},
      {"Close", [this](Args) { result_ = dialog_.OnSysClose(); }},
      {"Arrive", [this](Args words) { Device(DeviceEvent::Kind::Arrival, words); }},
      {"Leave", [this](Args words) { Device(DeviceEvent::Kind::Removal, words); }},
      {"Refresh", [](Args) { RefreshFromWriter(); }},
      {"MenuOffers",
       [this](Args) {
         std::string offered;
         for (const char* entry : kMenu)
           if (MenuEnabled(EntryNamed(entry))) offered += (offered.empty() ? "" : " ") + std::string(entry);
         record.Line(offered);
       }},
      // menu or selection, and the fields
      {"Enter",
       [this](Args words) {
         CSnSetDlg dialog(words[0] == "selection", false, false);
         result_ = Enter(dialog, {words.begin() + 1, words.end()});
       }},
      {"SnProgram", [](Args) { OnSerialNumberProgram(); }},
      {"SnWindow",
       [this](Args) {
         snWindow_ = std::make_unique<CSnProgramDlg>(false);
         snWindow_->OnInitDialog();
         snWindow_->RefreshFields();
         snWindow_->snProgramEnabled = true;
       }},
      {"Press", [this](Args words) { Press(Window(), words); }}};

  WriterState& state_ = TheAppState().writer;
  Selection& chosen_ = TheAppState().selection;
  ConversionState& conversion_ = TheAppState().conversion;
  static std::string& Text(ControlId id) { return TheMainControls()[id].text; }
  // clang-format off
  std::map<std::string, Field> fields_{
      {"result", Of(result_)}, {"SelectedChip", Of(chosen_.SelectedChip)}, {"ChipNameText", Of(chosen_.ChipNameText)},
      {"SnMode", Of(chosen_.SnMode)}, {"ExhvIsp", Of(chosen_.ExhvIsp)}, {"IspProgram", Of(chosen_.IspProgram)},
      {"MassProduction", Of(chosen_.MassProduction)}, {"ProductionLimitOn", Of(chosen_.ProductionLimitOn)},
      {"ProductionLimitCount", Of(chosen_.ProductionLimitCount)}, {"HasSmartOption", Of(chosen_.HasSmartOption)},
      {"OptionValue", Of(chosen_.OptionValue)}, {"SeriesIndex", Of(chosen_.SeriesIndex)},
      {"TypeIndex", Of(chosen_.TypeIndex)}, {"ReadSizeBytes", Of(chosen_.ReadSizeBytes)},
      {"ReadSwapBytes", Of(chosen_.ReadSwapBytes)}, {"LoadedFilePath", Of(conversion_.LoadedFilePath)},
      {"SystemConfigWord", Of(conversion_.SystemConfigWord)}, {"ImageChecksum", Of(conversion_.ImageChecksum)},
      {"DualSkip", Of(conversion_.DualSkip)}, {"ImageUnprotected", Of(conversion_.ImageUnprotected)},
      {"ReadyText", Of(TheAppState().program.ReadyText)}, {"StartDirectory", Of(TheAppState().program.StartDirectory)},
      {"WriterModel", Of(state_.WriterModel)}, {"FirmwareCode", Of(state_.FirmwareCode)},
      {"FirmwareVersion", Of(state_.FirmwareVersion)}, {"FirmwareLevel", Of(state_.FirmwareLevel)},
      {"FirmwareLoadFailed", Of(state_.FirmwareLoadFailed)}, {"TransferBusy", Of(state_.TransferBusy)},
      {"ProgressMode", Of(state_.ProgressMode)}, {"HwKnown", Of(state_.HwKnown)}, {"HwFolder", Of(state_.HwFolder)},
      {"ModelRegister", Of(state_.ModelRegister)}, {"WriterConnected", Of(state_.WriterConnected)},
      {"UseVendorApi", Of(state_.UseVendorApi)}, {"SnLoaded", Of(state_.SnLoaded)},
      {"PreviousCursor", Of(TheAppState().cursors.PreviousCursor)}, {"cursorsLoad", Of(op.cursorsLoad)}, {"language", Of(language.id)},
      {"updateResult", Of(record.updateResult)}, {"status", Of(TheMainControls().statusBar.pane0)},
      {"title", Of(TheMainControls().title)}, {"figure", Of(TheMainControls().pinFigure)},
      {"verdict", Of(TheMainControls().verdict.words)}, {"blank view", Of(TheHexView().Blanked)},
      {"FileField", Of(Text(ControlId::FileField))}, {"Buffer", Of(Text(ControlId::BufferArea))},
      {"Checksum", Of(Text(ControlId::ChecksumField))}, {"SnLength", Of(TheSnRecord().SnLength)},
      {"SnAmountText", Of(TheSnRecord().SnAmountText)}, {"SnStartText", Of(TheSnRecord().SnStartText)},
      {"SnEndText", Of(TheSnRecord().SnEndText)}, {"SnEndAddress", Of(TheSnRecord().SnEndAddress)}};
  // clang-format on
};

ScenarioTexts TextsFor(const std::string& room) {
  ScenarioTexts all = ReadScenarios("common"), own = ReadScenarios(room);
  all.insert(all.begin(), own.begin(), own.end());
  return all;
}

}  // namespace

Texts ScenariosOf(const std::string& room) {
  Texts names;
  for (const auto& [name, text] : ReadScenarios(room))
    if (name[0] != '@') names.push_back(name);
  return names;
}

void RunScenario(const std::string& room, const std::string& name) {
  const ScenarioTexts all = TextsFor(room);
  for (const auto& [found, text] : all) {
    if (found != name) continue;
    for (const Texts& row : text.rows)
      for (const Transport transport : {Transport::Usb, Transport::Vendor}) {
        SCOPED_TRACE(::testing::Message()
                     << name << ": " << Joined(row) << ", " << ::testing::PrintToString(transport));
        Scenario(transport, all).Run(Filled(text.lines, row));
      }
  }
}

std::string TestName(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  for (char& letter : name)
    if (!std::isalnum(static_cast<unsigned char>(letter))) letter = '_';
  return name;
}

}  // namespace pyxis::test
