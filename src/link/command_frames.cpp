#include "link/command_frames.h"

#include <algorithm>

#include "link/writer_commands.h"
#include "link/writer_link.h"
#include "platform/byte_order.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

namespace {

constexpr std::size_t kLengthOffset = 8;
constexpr std::size_t kOpcodeOffset = 12;

bool ShowsProgress() { return TheAppState().writer.ProgressMode == Progress::Transfers; }

void BeginProgress() {
  if (!ShowsProgress()) return;
  SetProgressRange(0, 100);
  SetProgressPosition(1);
}

// One step a whole chunk; a transfer below one chunk gets a range of 2, so that the bar has somewhere to go.
void BeginSteps(std::uint32_t length, int position) {
  if (!ShowsProgress()) return;
  const auto steps = static_cast<int>(length / kChunkSize);
  SetProgressRange(0, steps < 1 ? 2 : steps);
  SetProgressPosition(position);
}

// Nothing changes ProgressMode within a command.
void ShowStep(bool shows, int step) {
  if (shows) SetProgressPosition(step);
}

// Sends let paints through around each transfer; receives don't.
bool PaintedWrite(MainView& view, const std::uint8_t* data, std::uint32_t count) {
  view.PumpPaint();
  const bool good = LinkWrite(data, count);
  view.PumpPaint();
  return good;
}

bool ReadStatus() {
  StatusBlock status;
  return LinkRead(status.data(), kFrameBlockSize);
}

}  // namespace

CommandBlock MakeCommandBlock(std::uint32_t length, std::uint8_t opcode) {
  CommandBlock block{'U', 'S', 'B', 'C'};
  StoreLe32(block.data() + kLengthOffset, length);
  block[kOpcodeOffset] = opcode;
  return block;
}

int SendBlock(const std::uint8_t* data, std::uint32_t length, std::uint8_t opcode) {
  BeginProgress();
  if (!FrameLinkOpen() || data == nullptr) return 0;
  const CommandBlock block = MakeCommandBlock(length, opcode);
  MainView& view = *TheMachine().view;
  if (!PaintedWrite(view, block.data(), kFrameBlockSize)) return 0;

  BeginSteps(length, 1);
  const bool shows = ShowsProgress();
  int step = 1;
  for (std::uint32_t sent = 0; sent < length; ++step) {
    const std::uint32_t chunk = std::min(length - sent, kChunkSize);
    PaintedWrite(view, data + sent, chunk);  // a damaged transfer shows in the read-back
    ShowStep(shows, step);
    sent += chunk;
  }
  view.PumpPaint();
  const bool good = ReadStatus();
  view.PumpPaint();
  ShowStep(shows, step);
  return good ? 1 : 0;
}

int ReceiveBlock(std::uint8_t* buffer, std::uint32_t length, std::uint8_t opcode) {
  BeginProgress();
  if (!FrameLinkOpen() || buffer == nullptr) return 0;
  const CommandBlock block = MakeCommandBlock(length, opcode);
  if (!LinkWrite(block.data(), kFrameBlockSize)) return 0;

  BeginSteps(length, 0);
  const bool shows = ShowsProgress();
  int step = 1;
  for (std::uint32_t received = 0; received < length; ++step) {
    const std::uint32_t chunk = std::min(length - received, kChunkSize);
    LinkRead(buffer + received, chunk);
    ShowStep(shows, step);
    received += chunk;
  }
  const bool good = ReadStatus();
  ShowStep(shows, step);
  return good ? 1 : 0;
}

int ReadIdentity(std::uint8_t* buffer) {
  if (!FrameLinkOpen() || buffer == nullptr) return 0;
  const CommandBlock block = MakeCommandBlock(kIdentitySize, OP_IDENTITY);
  if (!LinkWrite(block.data(), kFrameBlockSize)) return 0;
  if (!LinkRead(buffer, kIdentitySize)) return 0;
  return ReadStatus() ? 1 : 0;
}

}  // namespace pyxis
