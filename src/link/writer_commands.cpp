#include "link/writer_commands.h"

#include "link/command_frames.h"
#include "platform/byte_order.h"
#include "platform/machine.h"
#include "platform/vendor_api.h"

namespace pyxis {

namespace {

bool Vendor() { return TheAppState().writer.UseVendorApi; }

void WriteByte(Opcode opcode, std::uint8_t byte) { WriteCommand(opcode, std::span(&byte, 1)); }

// High byte first; with velmarapi behind two zero bytes.
void SetAddress(std::uint16_t address) {
  std::array<std::uint8_t, 4> data{};
  StoreBe16(data.data() + 2, address);
  WriteCommand(OP_SET_ADDRESS, Vendor() ? std::span<const std::uint8_t>(data) : std::span(data).subspan(2));
}

std::uint8_t PeekByteOverFrames(std::uint16_t address) {
  AppState& app = TheAppState();
  app.writer.TransferBusy = true;
  app.writer.ProgressMode = Progress::None;
  std::uint8_t byte = 0;
  if (app.writer.HwKnown) {
    SetWriterMode(mode::kMemory);
    SetAddress(address);
    app.writer.ProgressMode = Progress::Transfers;
    ReceiveBlock(&byte, 1, OP_READ_MEMORY);
    app.writer.ProgressMode = Progress::None;
  }
  app.writer.TransferBusy = false;
  return byte;
}

}  // namespace

int WriteCommand(Opcode opcode, std::span<const std::uint8_t> data) {
  const auto length = static_cast<std::uint32_t>(data.size());
  if (!Vendor()) return SendBlock(data.data(), length, opcode);
  TheMachine().vendor->VMWrite(opcode, data.data(), length);
  return 1;
}

int ReadCommand(Opcode opcode, std::span<std::uint8_t> buffer) {
  const auto length = static_cast<std::uint32_t>(buffer.size());
  if (!Vendor()) return ReceiveBlock(buffer.data(), length, opcode);
  TheMachine().vendor->VMRead(opcode, buffer.data(), length);
  return 1;
}

void SetFrameProgress(Progress progress) {
  if (!Vendor()) TheAppState().writer.ProgressMode = progress;
}

void SetWriterMode(std::uint8_t mode) { WriteByte(OP_SET_MODE, mode); }
void StartTask(std::uint8_t task) { WriteByte(OP_START_TASK, task); }
void SendControl(std::uint8_t control) { WriteByte(OP_CONTROL, control); }

void SelectArea(std::uint8_t selector) {
  WriteCommand(OP_SELECT_AREA, std::array<std::uint8_t, 2>{selector, area::kOpen});
}

void CloseArea() { WriteCommand(OP_SELECT_AREA, std::array<std::uint8_t, 2>{area::kNone, area::kClose}); }

void SetAddressZero() { SetAddress(0); }

std::uint8_t PeekByte(std::uint16_t address) {
  if (!Vendor()) return PeekByteOverFrames(address);
  SetWriterMode(mode::kMemory);
  SetAddress(address);
  std::uint8_t byte = 0;
  ReadCommand(OP_READ_MEMORY, std::span(&byte, 1));
  return byte;
}

int ReadInfoBlock(std::span<std::uint8_t, kInfoBlockSize> target) {
  SetFrameProgress(Progress::None);
  SetWriterMode(mode::kArea);
  SelectArea(area::kOption);
  ReadCommand(OP_READ_AREA, target);
  CloseArea();
  SetWriterMode(mode::kIdle);
  return 1;
}

void SendTestSelect(std::uint8_t step) {
  SetWriterMode(mode::kArea);
  WriteByte(OP_TEST_SELECT, step);
}

void SendTestSet(std::uint16_t value) {
  SetWriterMode(mode::kArea);
  std::array<std::uint8_t, 2> data;
  if (Vendor()) {
    StoreBe16(data.data(), value);
  } else {
    StoreLe16(data.data(), value);
  }
  WriteCommand(OP_TEST_SET, data);
}

void ReadTestMeasure(std::span<std::uint8_t, 6> target) { ReadCommand(OP_TEST_MEASURE, target); }

}  // namespace pyxis
