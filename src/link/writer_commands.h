// The writer's command set. Every operation goes over the active transport: velmarapi when UseVendorApi is set, else
// the frame link.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "shell/ground/app_state.h"

namespace pyxis {

enum Opcode : std::uint8_t {
  OP_SET_MODE = 0,
  OP_TEST_SELECT = 1,
  OP_TEST_BYTE = 2,
  OP_TEST_SET = 3,
  OP_IDENTITY = 4,
  OP_TEST_MEASURE = 5,
  OP_SET_ADDRESS = 15,
  OP_WRITE_MEMORY = 16,
  OP_READ_MEMORY = 17,
  OP_WRITE_AREA = 18,
  OP_READ_AREA = 19,
  OP_SELECT_AREA = 20,
  OP_START_TASK = 21,
  OP_TASK_STATUS = 22,
  OP_CONTROL = 23,
  OP_READ_CHIP = 24,
};

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

inline constexpr std::uint8_t kRegisterKm48 = 0x98;
inline constexpr std::uint8_t kRegisterKm49 = 0x99;

// A command with data over the active transport. Non-zero on success; with velmarapi always non-zero, since nobody
// looks at that library's results.
int WriteCommand(Opcode opcode, std::span<const std::uint8_t> data);
int ReadCommand(Opcode opcode, std::span<std::uint8_t> buffer);

// ProgressMode of the next transfers, on the frame link alone: velmarapi reports no progress.
void SetFrameProgress(Progress progress);

void SetWriterMode(std::uint8_t mode);
void StartTask(std::uint8_t task);
void SendControl(std::uint8_t control);
void SelectArea(std::uint8_t selector);  // with the action kOpen
void CloseArea();
void SetAddressZero();  // two bytes on the frame link, four with velmarapi
std::uint8_t PeekByte(std::uint16_t address);
int ReadInfoBlock(std::span<std::uint8_t, kInfoBlockSize> target);  // always reports success

void SendTestSelect(std::uint8_t step);
void SendTestSet(std::uint16_t value);
void ReadTestMeasure(std::span<std::uint8_t, 6> target);

}  // namespace pyxis
