// The tasks of the stand-in writer: what it does with the chip in its socket.
#include <algorithm>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "platform/byte_order.h"
#include "platform/text.h"
#include "standin/writer_model.h"

namespace pyxis::standin {

namespace {

constexpr std::uint8_t kVerdictGood = 1;
constexpr std::uint8_t kVerdictFailed = 3;
constexpr std::uint8_t kNoise = 0xFC;  // the bits of a status byte that mean nothing
constexpr std::uint8_t kLimitUsedUp = 0x10;

// The count of a packed decimal field.
std::uint32_t FromPackedDecimal(std::uint32_t packed) {
  std::uint32_t count = 0;
  for (int shift = 28; shift >= 0; shift -= 4) count = count * 10 + ((packed >> shift) & 0xF);
  return count;
}

}  // namespace

bool WriterModel::HoldsJob() const {
  return optionArea_.size() == kInfoBlockSize && FieldWord(optionArea_, Field::ImageChecksum) != 0 &&
         !dataArea_.empty();
}

bool WriterModel::FlashJob() const { return FieldByte(optionArea_, Field::ChipClass) == kChipClassFlash; }

void WriterModel::StartTask(std::uint8_t task) {
  if (load_ == Load::Package || load_ == Load::Firmware) Violate(Printf("task %d during a load", task));
  switch (task) {
    case task::kAuto:
    case task::kBlankCheck:
    case task::kProgram:
    case task::kVerify:
      taskStarted_ = true;
      statusReads_ = 0;
      verdict_ = RunTask(task) && !CountsDown(faults.failTask) ? kVerdictGood : kVerdictFailed;
      return;
    case task::kOpenPackageLoad: load_ = Load::Opened; return;
    case task::kOpenFirmwareLoad: load_ = Load::Firmware; return;
    case task::kReadChip: chipReadAsked_ = true; return;
    default: Violate(Printf("unknown task %d", task));
  }
}

std::uint8_t WriterModel::TaskStatus() {
  if (!taskStarted_) Violate("status read without a task");
  ++statusReads_;
  return faults.noVerdict || statusReads_ <= zeroReads ? kNoise : static_cast<std::uint8_t>(kNoise | verdict_);
}

bool WriterModel::RunTask(std::uint8_t task) {
  if (!HoldsJob() || !chip.Present()) return false;
  switch (task) {
    case task::kAuto: return RunAuto();
    case task::kBlankCheck: return chip.Erase(FlashJob());
    case task::kProgram: return RunProgram();
    default: return RunVerify();
  }
}

bool WriterModel::RunAuto() {
  const bool limited = FieldByte(optionArea_, Field::ProductionFlags) == kProductionLimit;
  const std::uint32_t limit = FromPackedDecimal(LoadBe32(&optionArea_[Field::ProductionLimit.offset]));
  if (limited && produced_ >= limit) return false;
  if (!chip.Erase(FlashJob()) || !RunProgram() || !RunVerify()) return false;
  if (limited && ++produced_ >= limit) optionArea_[Field::WriterStatus.offset] = kLimitUsedUp;
  return true;
}

bool WriterModel::RunProgram() { return chip.Burn(dataArea_, FieldWord(optionArea_, Field::ConfigWord)); }

// Also fills ChipInfo: configuration, checksum of the upper half, ID, checksum.
bool WriterModel::RunVerify() {
  const bool same = chip.Holds(dataArea_);
  std::uint8_t* info = &optionArea_[Field::ChipInfo.offset];
  const std::uint16_t checksum = same ? FieldWord(optionArea_, Field::ImageChecksum) : 0;
  StoreBe16(info, chip.config);
  StoreBe16(info + 2, checksum);
  StoreBe16(info + 4, LoadBe16(&memory_[address::kFirmwareCode]));
  StoreBe16(info + 6, checksum);
  return same;
}

}  // namespace pyxis::standin
