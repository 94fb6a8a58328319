// The frame door of the stand-in writer: CommandBlock, data in chunks of 512 bytes, StatusBlock. One transfer a call.
#pragma once

#include <cstdint>
#include <vector>

#include "standin/writer_model.h"

namespace pyxis::standin {

inline constexpr int kSilent = -110;  // as after a time-out; nothing has happened to the transfer

class FrameDoor {
 public:
  explicit FrameDoor(WriterModel& model) : model_(model) {}
  // Results as a bulk transfer gives them: a byte count, or negative; kSilent when the writer doesn't answer.
  int Out(const std::uint8_t* data, int count);
  int In(std::uint8_t* data, int count);
  bool Gone() const { return gone_; }
  void Reconnect() { *this = FrameDoor(model_); }
  FrameDoor& operator=(const FrameDoor& other) {
    phase_ = other.phase_, opcode_ = other.opcode_, left_ = other.left_, buffer_ = other.buffer_, gone_ = other.gone_;
    return *this;
  }

 private:
  enum class Phase { Command, DataOut, DataIn, Status };
  int Refusal();  // 0: the transfer goes to the writer
  int TakeCommand(const std::uint8_t* data, int count);
  std::uint32_t NextChunk() const;

  WriterModel& model_;
  Phase phase_ = Phase::Command;
  std::uint8_t opcode_ = 0;
  std::uint32_t left_ = 0;
  std::vector<std::uint8_t> buffer_;
  bool gone_ = false;
};

}  // namespace pyxis::standin
