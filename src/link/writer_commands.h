// The writer's command set. Every operation goes over the active transport (link/transport.h).
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "link/opcodes.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace mode {
inline constexpr std::uint8_t kMemory = 0;     // before an addressed memory access
inline constexpr std::uint8_t kIdle = 7;       // at the end of a sequence
inline constexpr std::uint8_t kArea = 71;      // before access to an area, and before the self-test set-up
inline constexpr std::uint8_t kArrival = 128;  // once at device arrival
}  // namespace mode

namespace task {
inline constexpr std::uint8_t kAuto = 16;
inline constexpr std::uint8_t kBlankCheck = 18;
inline constexpr std::uint8_t kProgram = 20;
inline constexpr std::uint8_t kVerify = 22;
inline constexpr std::uint8_t kOpenPackageLoad = 48;
inline constexpr std::uint8_t kOpenFirmwareLoad = 50;
inline constexpr std::uint8_t kReadChip = 52;
}  // namespace task

namespace control {
inline constexpr std::uint8_t kBeginLoad = 16;
inline constexpr std::uint8_t kEndLoad = 144;
}  // namespace control

namespace area {
inline constexpr std::uint8_t kOption = 4;
inline constexpr std::uint8_t kData = 8;
inline constexpr std::uint8_t kOpen = 23;  // the action that goes with a selector
inline constexpr std::uint8_t kNone = 12;  // closes, with the action kClose
inline constexpr std::uint8_t kClose = 7;
}  // namespace area

// Memory addresses; offsets in a firmware image as well.
namespace address {
inline constexpr std::uint16_t kModel = 0xFA8F;
inline constexpr std::uint16_t kFirmwareCode = 0xFA90;  // high byte first
inline constexpr std::uint16_t kFirmwareVersion = 0xFA92;
inline constexpr std::uint16_t kFirmwareLevel = 0xFA94;  // high byte first
}  // namespace address
inline constexpr std::size_t kFirmwareImageSize = 0x10800;  // bytes from address 0 on

// A command with data over the active transport.
void WriteCommand(Opcode opcode, std::span<const std::uint8_t> data);
// A command from the writer. True on success; with velmarapi always true, since nobody looks at that library's results.
bool ReadCommand(Opcode opcode, std::span<std::uint8_t> buffer);

// No transfer drives the bar; the frame link's own rule, velmarapi reports no progress.
void StopFrameProgress();
// While it lives, TransferBusy is set on the frame link.
class FrameBusy {
 public:
  FrameBusy();
  ~FrameBusy();
  FrameBusy(const FrameBusy&) = delete;
  FrameBusy& operator=(const FrameBusy&) = delete;
};
// While it lives, transfers drive the bar on the frame link.
class TransferProgress {
 public:
  TransferProgress();
  ~TransferProgress();
  TransferProgress(const TransferProgress&) = delete;
  TransferProgress& operator=(const TransferProgress&) = delete;
};

void SetWriterMode(std::uint8_t mode);
void StartTask(std::uint8_t task);
void SendControl(std::uint8_t control);
// An area of the writer, open while it lives.
class OpenArea {
 public:
  explicit OpenArea(std::uint8_t selector);
  ~OpenArea();
  OpenArea(const OpenArea&) = delete;
  OpenArea& operator=(const OpenArea&) = delete;
};
void SetAddressZero();  // two bytes on the frame link, four with velmarapi
std::uint8_t PeekByte(std::uint16_t address);
// Reports nothing: a failed read leaves the target as it was.
void ReadInfoBlock(std::span<std::uint8_t, kInfoBlockSize> target);

void SendTestSelect(std::uint8_t step);
void SendTestSet(std::uint16_t value);
void ReadTestMeasure(std::span<std::uint8_t, 6> target);

}  // namespace pyxis
