// The stand-in's honesty: what it refuses, what a chip takes, how it counts serials and chips, what a restart keeps.
#include <unistd.h>

#include <memory>

#include "data/cases.h"
#include "link/command_frames.h"
#include "link/writer_commands.h"
#include "platform/text.h"
#include "standin/in_process.h"
#include "standin/socket_path.h"
#include "support/recorder.h"

namespace pyxis::test {
namespace {

using standin::Door;
using standin::WriterModel;

class Standin : public Bench, public ::testing::WithParamInterface<std::string> {
 protected:
  using C = const Case&;
  Standin() {
    auto& on = script.actions;
    auto& shows = script.states;
    on["writer"] = [this](C c) { writer = std::make_unique<WriterModel>(c[1] == "KM49" ? Model::Km49 : Model::Km48); };
    on["identity"] = [this](C c) { writer->identity = c[1]; };
    // Steps of the protocol, ";" between them: opcode and bytes, or the number of bytes that are read.
    on["steps"] = [this](C c) {
      for (const std::string& step : Parts(c[1], ';')) {
        const Texts words = Parts(step, ' ');
        std::uint8_t opcode = 0;
        while (opcode < 255 && NameOf(opcode) != words[0]) ++opcode;
        if (words.size() > 2 && words[1] == "read") {
          answer = writer->Read(opcode, static_cast<std::uint32_t>(std::stoi(words[2])), Door::Frames);
        } else {
          writer->Write(opcode, Hex(step.substr(words[0].size())), Door::Frames);
        }
      }
    };
    on["job"] = [this](C c) {
      option.assign(208, 0);
      option[16] = 0x12;
      option[71] = static_cast<std::uint8_t>(c.Number(1));
      Change(c, 2);
    };
    on["change"] = [this](C c) { Change(c, 1); };
    on["load"] = [this](C c) { LoadJob(option, Hex(c[1])); };
    on["chip"] = [this](C c) {
      const Texts names{"missing", "blank", "programmed", "protected", "worn"};
      writer->chip.state = static_cast<standin::ChipState>(std::find(names.begin(), names.end(), c[1]) - names.begin());
    };
    on["byte of the chip"] = [this](C c) {
      writer->chip.burnt.at(static_cast<std::size_t>(c.Number(1))) = static_cast<std::uint8_t>(c.Number(2));
    };
    on["task"] = [this](C c) { Run(c.Number(1), c.cells.size() > 2 ? static_cast<int>(c.Number(2)) : 6); };
    on["program a new chip"] = [this](C) {
      writer->chip = standin::Chip{};
      Run(20, 6);
    };
    on["autos"] = [this](C) {  // good ones in a row
      autos = -1;
      do Run(16, 6);
      while (++autos < 9 && verdict == 1);
    };
    on["lose the host"] = [this](C) { writer->LoseHost(); };
    on["pull the cable"] = [this](C) {
      writer->faults.disconnectAfter = 0;
      EXPECT_EQ(writer->NextTransfer(), standin::Line::Gone);
      writer->faults = {};
    };
    on["fault"] = [this](C c) { EXPECT_TRUE(SetFault(writer->faults, c[1])); };
    on["no fault"] = [this](C c) { EXPECT_FALSE(SetFault(writer->faults, c[1])); };
    on["restart"] = [this](C) {
      auto after = std::make_unique<WriterModel>(Model::Km49);
      ASSERT_TRUE(writer->Save(Path("state")) && after->Restore(Path("state")));
      EXPECT_EQ(after->Memory(), writer->Memory());
      writer = std::move(after);
    };
    shows["answer"] = [this] { return Shown(answer); };
    shows["breaches"] = [this] { return std::to_string(writer->Violations().size()); };
    shows["verdict"] = [this] { return std::to_string(verdict); };
    shows["serial"] = [this] { return verdict == 1 ? Printf("%02X", writer->chip.burnt.at(1)) : "none"; };
    shows["burnt"] = [this] { return Shown(writer->chip.burnt); };
    shows["info"] = [this] { return Shown(Part(writer->OptionArea(), 248, 8)); };
    shows["sums"] = [this] { return Printf("%X %X", writer->chip.checksum, writer->chip.upperChecksum); };
    shows["blank"] = [this] { return std::string(writer->chip.IsBlank() ? "yes" : "no"); };
    shows["data"] = [this] { return Shown(writer->DataArea()); };
    shows["autos"] = [this] { return std::to_string(autos); };
    shows["used up"] = [this] { return std::string(writer->OptionArea()[244] >> 4 == 1 ? "yes" : "no"); };
    shows["count"] = [this] { return std::to_string(writer->OptionArea()[244]); };
  }
  static Bytes Hex(const std::string& text) {
    Bytes bytes;
    for (const std::string& byte : Parts(text, ' '))
      bytes.push_back(static_cast<std::uint8_t>(std::stoi(byte, nullptr, 16)));
    return bytes;
  }
  void Change(C c, std::size_t from) {
    for (std::size_t i = from; i < c.cells.size(); ++i) {
      const Case pair{Parts(c.cells[i], '='), c.where};
      option.at(static_cast<std::size_t>(pair.Number(0))) = static_cast<std::uint8_t>(pair.Number(1));
    }
  }
  // The option area alone when there is no data.
  void LoadJob(const Bytes& area, const Bytes& data) {
    Put(OP_START_TASK, {48});
    Put(OP_CONTROL, {16});
    Put(OP_SET_MODE, {71});
    for (const auto& [selector, content] : {std::pair<std::uint8_t, Bytes>{4, area}, {8, data}}) {
      if (content.empty()) continue;
      Put(OP_SELECT_AREA, {selector, 23});
      Put(OP_WRITE_AREA, content);
      Put(OP_SELECT_AREA, {12, 7});
    }
    Put(OP_SET_MODE, {7});
    Put(OP_CONTROL, {144});
  }
  void Put(std::uint8_t opcode, const Bytes& data) { writer->Write(opcode, data, Door::Frames); }
  // A task, whose verdict a host reads six times.
  void Run(long task, int reads) {
    Put(OP_START_TASK, {static_cast<std::uint8_t>(task)});
    for (int i = 0; i < writer->zeroReads + reads; ++i) verdict = writer->Read(OP_TASK_STATUS, 1, Door::Vendor)[0] & 3;
  }

  std::unique_ptr<WriterModel> writer = std::make_unique<WriterModel>();
  Bytes option, answer;
  int verdict = 0, autos = 0;
  Script script;
};

TEST_P(Standin, Follows) { script.Run("standin.tsv", GetParam()); }
INSTANTIATE_TEST_SUITE_P(Scripts, Standin, ::testing::ValuesIn(SectionsBut("standin.tsv", {})));

TEST_F(Standin, AStateThatIsCutIsNotTaken) {
  ASSERT_TRUE(writer->Save(Path("state")));
  const Bytes whole = Contents("state");
  for (std::size_t size = 0; size < whole.size(); size += size < 20 ? 1 : 251) {
    Write("cut", Part(whole, 0, size));
    EXPECT_FALSE(writer->Restore(Path("cut"))) << size;
  }
  EXPECT_TRUE(writer->Restore(Path("state")));
}

TEST_F(Standin, FramingIsStrict) {
  standin::FrameDoor door(*writer);
  std::uint8_t buffer[600] = {};
  EXPECT_LT(door.In(buffer, 13), 0);
  EXPECT_LT(door.Out(buffer, 13), 0);
  const CommandBlock block = MakeCommandBlock(513, OP_WRITE_AREA);
  EXPECT_EQ(door.Out(block.data(), 13), 13);
  EXPECT_LT(door.Out(buffer, 513), 0);
  EXPECT_EQ(door.Out(buffer, 512), 512);
  EXPECT_LT(door.In(buffer, 13), 0);
  EXPECT_EQ(writer->Violations().size(), 4U);
}

TEST_F(Standin, ABusHasOneHolderAndASocketItsPlace) {
  standin::StandinUsbHost usb(*writer);
  const UsbHost::Handle handle = usb.Open(usb.FindDevices()[1][1]);
  EXPECT_LT(usb.SetConfiguration(handle, 2), 0);
  EXPECT_LT(usb.SetConfiguration(nullptr, 1), 0);
  EXPECT_EQ(usb.ClaimInterface(handle, 0), 0);
  EXPECT_TRUE(usb.ClaimInterface(handle, 0) < 0 && usb.ClaimInterface(handle, 1) < 0);
  const CommandBlock block = MakeCommandBlock(1, OP_READ_MEMORY);
  std::uint8_t byte = 0;
  const auto write = [&](UsbHost::Handle of, int to) { return usb.BulkWrite(of, to, block.data(), 13, 0); };
  const auto read = [&](UsbHost::Handle of, int from) { return usb.BulkRead(of, from, &byte, 1, 0); };
  EXPECT_TRUE(write(nullptr, kEndpointOut) < 0 && write(handle, kEndpointIn) < 0);
  EXPECT_EQ(write(handle, kEndpointOut), 13);
  EXPECT_TRUE(read(nullptr, kEndpointIn) < 0 && read(handle, kEndpointOut) < 0);
  EXPECT_EQ(read(handle, kEndpointIn), 1);
  for (const std::optional<int> stall : {std::optional(0), std::optional<int>()}) {  // silent until it is opened again
    writer->faults.stallAfter = stall;
    EXPECT_LT(write(handle, kEndpointOut), 0);
  }
  usb.Close(handle);
  EXPECT_EQ(write(usb.Open(usb.FindDevices()[1][1]), kEndpointOut), 13);
  EXPECT_FALSE(writer->SetMeasure(1, 0, 5) || writer->SetMeasure(0, 6, 5));
  for (const auto& [socket, folderOfRun, path] :
       Table<const char*, const char*, std::string>{{"/a", "/b", "/a"},
                                                    {"", "/b", "/b/pyxiswriter.sock"},
                                                    {"", "", Printf("/tmp/pyxiswriter-%u.sock", getuid())}}) {
    setenv("PYXISWRITER_SOCKET", socket, 1);
    setenv("XDG_RUNTIME_DIR", folderOfRun, 1);
    EXPECT_EQ(standin::SocketPath(), path);
  }
  unsetenv("PYXISWRITER_SOCKET");
  unsetenv("XDG_RUNTIME_DIR");
}

TEST_F(Standin, AStateThatIsCutOrAnotherFileIsRefused) {
  ASSERT_TRUE(writer->Save(Path("state")));
  const Bytes state = Contents("state");
  for (const std::size_t length : {std::size_t{0}, std::size_t{11}, std::size_t{100}, state.size() - 1}) {
    Write("cut", std::span(state).first(length));
    WriterModel fresh;
    EXPECT_FALSE(fresh.Restore(Path("cut"))) << length;
    EXPECT_TRUE(fresh.DataArea().empty());
  }
  for (const std::size_t at : {0U, 6U, 7U}) {
    Bytes other = state;
    other[at] ^= 1;
    Write("other", other);
    EXPECT_FALSE(WriterModel().Restore(Path("other"))) << at;
  }
  EXPECT_TRUE(WriterModel().Restore(Path("state")));
}

}  // namespace
}  // namespace pyxis::test
