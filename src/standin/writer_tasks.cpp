// The tasks of the stand-in writer: what it does with the chip in its socket.
#include <algorithm>
#include <utility>

#include "intake/file_readers.h"
#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "platform/byte_order.h"
#include "platform/text.h"
#include "standin/writer_model.h"

namespace pyxis::standin {

namespace {

constexpr std::uint8_t kVerdictGood = 1;
constexpr std::uint8_t kVerdictFailed = 3;
constexpr std::uint8_t kStatusBits = 3;          // the bits of a status byte that hold the verdict
constexpr int kVerdictReads = 6;                 // in a row, until a host takes it
constexpr std::uint8_t kNoise = 0xFC;            // the bits of a status byte that mean nothing
constexpr std::uint8_t kNoAnswer = 0xFF;         // of an empty socket
constexpr std::uint8_t kLastDualClass = 15;      // ChipClass of the ICs with a dual mode: up to this
constexpr std::uint16_t kChecksumBits = 0x3FFF;  // of those ICs

// The count of a packed decimal field.
std::uint32_t FromPackedDecimal(std::uint32_t packed) {
  std::uint32_t count = 0;
  for (int shift = 28; shift >= 0; shift -= 4) count = count * 10 + ((packed >> shift) & 0xF);
  return count;
}

}  // namespace

bool WriterModel::HoldsJob() const {
  return optionArea_.size() == kInfoBlockSize && ChipNameOf(optionArea_) == ChipNameOf(jobHeader_) &&
         FieldWord(jobHeader_, Field::ImageChecksum) != 0 && !dataArea_.empty();
}

bool WriterModel::LimitIsUsedUp() const {
  return FieldByte(jobHeader_, Field::ProductionFlags) == kProductionLimit &&
         produced_ >= FromPackedDecimal(LoadBe32(&jobHeader_[Field::ProductionLimit.offset]));
}

bool WriterModel::FlashJob() const { return FieldByte(jobHeader_, Field::ChipClass) == kChipClassFlash; }

// A series starts with the load that brings it. Only an option area that comes alone and tells the same series of the
// same job, as a change of the protection does, goes on where the series stood.
void WriterModel::StartSeries() {
  std::vector<std::uint8_t> told;
  for (const FieldPlace field : {Field::SerialHead, Field::SerialBlock})
    told.insert(told.end(), optionArea_.begin() + static_cast<std::ptrdiff_t>(field.offset),
                optionArea_.begin() + static_cast<std::ptrdiff_t>(field.offset + field.width));
  const bool goesOn =
      !dataWritten_ && told == series_ && SerialSeries::RoadOf(optionArea_) == SerialSeries::Road::IcSelection;
  if (!goesOn) nextSerial_ = SerialSeries(optionArea_).First();
  series_ = told;
}

void WriterModel::StepSerial() {
  if (SerialSeries::RoadOf(optionArea_) != SerialSeries::Road::None) nextSerial_ = SerialSeries::After(nextSerial_);
}

std::optional<std::vector<std::uint8_t>> WriterModel::DataForNextChip() const {
  if (SerialSeries::RoadOf(optionArea_) == SerialSeries::Road::None) return dataArea_;
  const SerialSeries series(optionArea_);
  const auto places = series.Places(dataArea_.size());
  if (!places || series.IsPast(nextSerial_)) return std::nullopt;
  std::vector<std::uint8_t> data = dataArea_;
  for (std::size_t i = 0; i < places->size(); ++i)
    data[(*places)[i]] = nextSerial_[nextSerial_.size() - places->size() + i];
  return data;
}

// Byte for byte the job's data, but for a serial of the series that has been given out, or is about to be.
bool WriterModel::ChipIsGood() const {
  if (SerialSeries::RoadOf(optionArea_) == SerialSeries::Road::None) return chip.Holds(dataArea_);
  const SerialSeries series(optionArea_);
  const auto places = series.Places(dataArea_.size());
  if (!places || chip.burnt.size() != dataArea_.size()) return false;
  std::vector<std::uint8_t> data = dataArea_;
  Serial serial{};
  for (std::size_t i = 0; i < places->size(); ++i)
    data[(*places)[i]] = serial[serial.size() - places->size() + i] = chip.burnt[(*places)[i]];
  return chip.Holds(data) && series.WasGiven(serial, nextSerial_);
}

void WriterModel::StartTask(std::uint8_t task) {
  if (std::exchange(hostLost_, false)) CloseLoad();  // the load of before was broken off
  if (load_ == Load::Package || load_ == Load::Firmware) Violate(Printf("task %d during a load", task));
  if (task != task::kReadChip) chipReadStarts_ = 0;
  switch (task) {
    case task::kAuto:
    case task::kBlankCheck:
    case task::kProgram:
    case task::kVerify: {
      taskStarted_ = true;
      statusReads_ = verdictsDelivered_ = 0;
      const bool burns = task == task::kAuto || task == task::kProgram;
      if (burns && freshChips) chip = Chip{};
      const bool good = RunTask(task) && !CountsDown(faults.failTask);
      unsettledTask_ = good ? std::optional(task) : std::nullopt;
      verdict_ = good ? kVerdictGood : kVerdictFailed;
      return;
    }
    case task::kOpenPackageLoad:
      load_ = Load::Opened;
      return;
    case task::kOpenFirmwareLoad:
      load_ = Load::Firmware;
      return;
    case task::kReadChip:
      ++chipReadStarts_;
      return;
    default:
      Violate(Printf("unknown task %d", task));
  }
}

std::uint8_t WriterModel::TaskStatus() {
  if (!taskStarted_) Violate("status read without a task");
  ++statusReads_;
  return faults.noVerdict || statusReads_ <= zeroReads ? kNoise : static_cast<std::uint8_t>(kNoise | verdict_);
}

void WriterModel::StatusDelivered(std::uint8_t status) {
  verdictsDelivered_ = (status & kStatusBits) != 0 ? verdictsDelivered_ + 1 : 0;
  if (verdictsDelivered_ == kVerdictReads) SettleTask();
}

// Only a chip that the host knows to be good counts: its serial is given out, and it is one of the production limit.
void WriterModel::SettleTask() {
  const std::optional<std::uint8_t> task = std::exchange(unsettledTask_, std::nullopt);
  if (task != task::kAuto && task != task::kProgram) return;
  StepSerial();
  if (task != task::kAuto) return;
  ++produced_;
  if (LimitIsUsedUp()) optionArea_[Field::WriterStatus.offset] = kLimitUsedUp;
}

// The cable feeds the writer: a task that isn't settled ends in the middle of its chip, and a load with what has come.
void WriterModel::LosePower() {
  const std::optional<std::uint8_t> task = std::exchange(unsettledTask_, std::nullopt);
  if (task == task::kAuto || task == task::kProgram) chip.BreakOff();
  CloseLoad();
}

bool WriterModel::RunTask(std::uint8_t task) {
  if (!HoldsJob()) return false;
  if (!chip.Present()) {
    std::fill_n(optionArea_.begin() + Field::ChipInfo.offset, Field::ChipInfo.width, kNoAnswer);
    return false;
  }
  switch (task) {
    case task::kAuto:
      return RunAuto();
    case task::kBlankCheck:
      return chip.Erase(FlashJob());
    case task::kProgram:
      return RunProgram();
    default:
      return RunVerify();
  }
}

bool WriterModel::RunAuto() {
  if (LimitIsUsedUp() || !DataForNextChip()) return false;
  return chip.Erase(FlashJob()) && RunProgram() && RunVerify();
}

bool WriterModel::RunProgram() {
  const auto data = DataForNextChip();
  if (!data || !chip.Burn(*data, FieldWord(jobHeader_, Field::ConfigWord))) return false;
  KeepChecksums();
  return true;
}

// By the rules of the job that the chip is burnt with. In dual mode the job's checksum is that of the upper half.
void WriterModel::KeepChecksums() {
  const bool dual = FieldByte(jobHeader_, Field::ChipClass) <= kLastDualClass &&
                    FieldByte(jobHeader_, Field::EepromImage) == 0 && FieldWord(jobHeader_, Field::DualStart) != 0 &&
                    (chip.config & kNotDualBit) == 0;
  chip.upperChecksum = FieldWord(jobHeader_, Field::ImageChecksum);
  chip.checksum = dual ? WholeChecksum() : chip.upperChecksum;
}

// All words, which stand high byte first, and the configuration word.
std::uint16_t WriterModel::WholeChecksum() const {
  const std::size_t words = std::min<std::size_t>(FieldWord(jobHeader_, Field::ImageLength), dataArea_.size() / 2);
  std::uint16_t sum = 0xFFFF;
  for (std::size_t i = 0; i < words; ++i) sum = ChecksumAfter(sum, LoadBe16(&dataArea_[2 * i]));
  return ChecksumAfter(sum, chip.config) & kChecksumBits;
}

bool WriterModel::RunVerify() {
  ShowChipInfo();
  return ChipIsGood();
}

// Configuration, checksum of the upper half, ID, checksum: of the chip, whether or not it holds the job.
void WriterModel::ShowChipInfo() {
  std::uint8_t* info = &optionArea_[Field::ChipInfo.offset];
  StoreBe16(info, chip.config);
  StoreBe16(info + 2, chip.upperChecksum);
  StoreBe16(info + 4, LoadBe16(&memory_[address::kFirmwareCode]));
  StoreBe16(info + 6, chip.checksum);
}

}  // namespace pyxis::standin
