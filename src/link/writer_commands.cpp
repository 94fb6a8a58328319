#include "link/writer_commands.h"

#include "link/transport.h"
#include "platform/byte_order.h"

namespace pyxis {

namespace {

void WriteByte(Opcode opcode, std::uint8_t byte) { WriteCommand(opcode, std::span(&byte, 1)); }

void SetAddress(std::uint16_t address) {
  std::array<std::uint8_t, 4> data{};
  StoreBe16(data.data() + 2, address);
  WriteCommand(OP_SET_ADDRESS, std::span(data).last(ActiveTransport().AddressWidth()));
}

void SetFrameProgress(Progress progress) {
  if (ActiveTransport().DrivesProgress()) TheAppState().writer.ProgressMode = progress;
}

}  // namespace

void WriteCommand(Opcode opcode, std::span<const std::uint8_t> data) { ActiveTransport().Write(opcode, data); }

bool ReadCommand(Opcode opcode, std::span<std::uint8_t> buffer) { return ActiveTransport().Read(opcode, buffer); }

void StopFrameProgress() { SetFrameProgress(Progress::None); }

namespace {
void SetBusy(bool busy) {
  if (ActiveTransport().DrivesProgress()) TheAppState().writer.TransferBusy = busy;
}
}  // namespace

FrameBusy::FrameBusy() { SetBusy(true); }
FrameBusy::~FrameBusy() { SetBusy(false); }

TransferProgress::TransferProgress() { SetFrameProgress(Progress::Transfers); }
TransferProgress::~TransferProgress() { StopFrameProgress(); }

void SetWriterMode(std::uint8_t mode) { WriteByte(OP_SET_MODE, mode); }
void StartTask(std::uint8_t task) { WriteByte(OP_START_TASK, task); }
void SendControl(std::uint8_t control) { WriteByte(OP_CONTROL, control); }

OpenArea::OpenArea(std::uint8_t selector) {
  WriteCommand(OP_SELECT_AREA, std::array<std::uint8_t, 2>{selector, area::kOpen});
}

OpenArea::~OpenArea() { WriteCommand(OP_SELECT_AREA, std::array<std::uint8_t, 2>{area::kNone, area::kClose}); }

void SetAddressZero() { SetAddress(0); }

std::uint8_t PeekByte(std::uint16_t address) {
  const FrameBusy busy;
  StopFrameProgress();
  std::uint8_t byte = 0;
  if (!ActiveTransport().CanAddress()) return byte;
  SetWriterMode(mode::kMemory);
  SetAddress(address);
  const TransferProgress progress;
  ReadCommand(OP_READ_MEMORY, std::span(&byte, 1));
  return byte;
}

void ReadInfoBlock(std::span<std::uint8_t, kInfoBlockSize> target) {
  StopFrameProgress();
  SetWriterMode(mode::kArea);
  {
    const OpenArea open(area::kOption);
    ReadCommand(OP_READ_AREA, target);
  }
  SetWriterMode(mode::kIdle);
}

void SendTestSelect(std::uint8_t step) {
  SetWriterMode(mode::kArea);
  WriteByte(OP_TEST_SELECT, step);
}

void SendTestSet(std::uint16_t value) {
  SetWriterMode(mode::kArea);
  std::array<std::uint8_t, 2> data;
  if (ActiveTransport().TestValueLowByteFirst()) {
    StoreLe16(data.data(), value);
  } else {
    StoreBe16(data.data(), value);
  }
  WriteCommand(OP_TEST_SET, data);
}

void ReadTestMeasure(std::span<std::uint8_t, 6> target) { ReadCommand(OP_TEST_MEASURE, target); }

}  // namespace pyxis
