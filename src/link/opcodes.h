// The writer's opcodes, the last byte of a CommandBlock.
#pragma once

#include <cstdint>

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

}  // namespace pyxis
