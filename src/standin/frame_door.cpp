#include "standin/frame_door.h"

#include <algorithm>
#include <cstring>

#include "link/command_frames.h"
#include "link/writer_commands.h"
#include "platform/byte_order.h"
#include "platform/text.h"

namespace pyxis::standin {

namespace {

constexpr int kTransferError = -5;
constexpr int kNoDevice = -19;
constexpr std::uint32_t kLargestTransfer = 1 << 20;

bool ReadsFromWriter(std::uint8_t opcode) {
  switch (opcode) {
    case OP_IDENTITY:
    case OP_TEST_MEASURE:
    case OP_READ_MEMORY:
    case OP_READ_AREA:
    case OP_TASK_STATUS:
    case OP_READ_CHIP:
      return true;
    default:
      return false;
  }
}

}  // namespace

int FrameDoor::Refusal() {
  const Line line = gone_ ? Line::Gone : model_.NextTransfer();
  if (line == Line::Gone) gone_ = true;
  return line == Line::Answers ? 0 : gone_ ? kNoDevice : kSilent;
}

std::uint32_t FrameDoor::NextChunk() const { return std::min(left_, kChunkSize); }

int FrameDoor::TakeCommand(const std::uint8_t* data, int count) {
  if (count != static_cast<int>(kFrameBlockSize) || std::memcmp(data, MakeCommandBlock(0, 0).data(), 8) != 0) {
    model_.Violate(Printf("%d bytes that are no command block", count));
    return kTransferError;
  }
  left_ = LoadLe32(data + 8);
  opcode_ = data[12];
  buffer_.clear();
  if (left_ > kLargestTransfer) {
    model_.Violate(Printf("opcode %d with %u bytes", opcode_, left_));
    return kTransferError;
  }
  if (ReadsFromWriter(opcode_)) {
    buffer_ = model_.Read(opcode_, left_, Door::Frames);
    phase_ = left_ == 0 ? Phase::Status : Phase::DataIn;
  } else if (left_ == 0) {
    model_.Write(opcode_, {}, Door::Frames);
    phase_ = Phase::Status;
  } else {
    phase_ = Phase::DataOut;
  }
  return count;
}

int FrameDoor::Out(const std::uint8_t* data, int count) {
  if (const int refusal = Refusal(); refusal != 0) return refusal;
  if (phase_ == Phase::DataOut) {
    if (count != static_cast<int>(NextChunk())) {
      model_.Violate(Printf("a chunk of %d bytes, must be %u", count, NextChunk()));
      return kTransferError;
    }
    buffer_.insert(buffer_.end(), data, data + count);
    left_ -= static_cast<std::uint32_t>(count);
    if (left_ == 0) {
      model_.Write(opcode_, buffer_, Door::Frames);
      phase_ = Phase::Status;
    }
    return count;
  }
  if (phase_ != Phase::Command) model_.Violate("a write while the writer has something to say");
  return TakeCommand(data, count);
}

int FrameDoor::In(std::uint8_t* data, int count) {
  if (const int refusal = Refusal(); refusal != 0) return refusal;
  if (phase_ == Phase::DataIn) {
    if (count != static_cast<int>(NextChunk())) {
      model_.Violate(Printf("a read of %d bytes, must be %u", count, NextChunk()));
      return kTransferError;
    }
    std::copy_n(buffer_.end() - left_, count, data);
    left_ -= static_cast<std::uint32_t>(count);
    if (left_ == 0) phase_ = Phase::Status;
    if (opcode_ == OP_TASK_STATUS) model_.StatusDelivered(*data);
    return count;
  }
  if (phase_ != Phase::Status || count != static_cast<int>(kFrameBlockSize)) {
    model_.Violate(Printf("a read of %d bytes that nothing announced", count));
    return kTransferError;
  }
  phase_ = Phase::Command;
  if (model_.faults.dropStatusBlock && --*model_.faults.dropStatusBlock <= 0) {
    model_.faults.dropStatusBlock.reset();
    return kTransferError;
  }
  const StatusBlock status{'U', 'S', 'B', 'S'};
  std::copy(status.begin(), status.end(), data);
  return count;
}

}  // namespace pyxis::standin
