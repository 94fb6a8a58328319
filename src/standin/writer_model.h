// The stand-in writer: a model of the writer's firmware behind its command set. It refuses what a writer couldn't do
// and keeps every breach of the protocol in a list.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "shell/ground/app_state.h"
#include "standin/chip.h"
#include "standin/faults.h"
#include "standin/measures.h"
#include "standin/serial_series.h"

namespace pyxis::standin {

enum class Door { Frames, Vendor };

// How the writer takes the next transfer.
enum class Line { Answers, Silent, Gone };

class WriterModel {
 public:
  explicit WriterModel(Model model = Model::Km48, std::string identity = "PYX STANDALONE LOADER_V1.1");

  void Write(std::uint8_t opcode, std::span<const std::uint8_t> data, Door door);
  // Always `length` bytes.
  std::vector<std::uint8_t> Read(std::uint8_t opcode, std::size_t length, Door door);

  Line Now() const;
  // The same, and a transfer less until a fault that counts them. Each door asks it before a transfer, and takes that
  // to Write or Read only when the writer answers.
  Line NextTransfer();

  const std::vector<std::string>& Violations() const { return violations_; }
  void Violate(const std::string& text);
  // The host has what a status read brought it. Read tells it itself where the answer is the delivery, at Door::Vendor.
  void StatusDelivered(std::uint8_t status);
  // A transfer was lost: what the host sends until its next sequence counts as no breach.
  void LoseHost() {
    hostLost_ = true;
    verdictsDelivered_ = 0;
  }

  // The cable, which feeds the writer, is out.
  void LosePower();

  // The job, the memory and the counters, kept over a restart. False when the file can't be written, or isn't a
  // writer's memory.
  bool Save(const std::string& path) const;
  bool Restore(const std::string& path);

  std::string identity;  // 26 characters
  Chip chip;
  bool freshChips = false;  // a handler puts a blank chip in before each Auto and Program
  Faults faults;
  std::map<std::uint8_t, Measurement> measures;  // of the self-test, by step; a step without one measures sound values
  // One value of a step, the others sound. False for an unknown step or place.
  bool SetMeasure(std::uint8_t step, std::size_t place, std::uint8_t value);
  int zeroReads = 3;  // status reads of 0 before a verdict

  const std::vector<std::uint8_t>& Memory() const { return memory_; }
  std::vector<std::uint8_t>& Memory() { return memory_; }
  const std::vector<std::uint8_t>& OptionArea() const { return optionArea_; }
  std::vector<std::uint8_t>& OptionArea() { return optionArea_; }
  const std::vector<std::uint8_t>& DataArea() const { return dataArea_; }
  int FirmwareLoads() const { return firmwareLoads_; }

 private:
  enum class Load { None, Opened, Package, Firmware };

  bool LengthIs(std::uint8_t opcode, std::size_t length, std::size_t wanted);
  void SetAddress(std::span<const std::uint8_t> data, Door door);
  void WriteMemory(std::span<const std::uint8_t> data);
  std::vector<std::uint8_t> ReadMemory(std::size_t length);
  void SelectArea(std::uint8_t selector, std::uint8_t action);
  std::vector<std::uint8_t>* SelectedArea();
  void WriteArea(std::span<const std::uint8_t> data);
  std::vector<std::uint8_t> ReadArea(std::size_t length);
  void StartTask(std::uint8_t task);
  void Control(std::uint8_t control);
  void CloseLoad();
  bool RunTask(std::uint8_t task);
  void SettleTask();
  bool RunAuto();
  bool RunProgram();
  bool RunVerify();
  void KeepChecksums();
  std::uint16_t WholeChecksum() const;
  void ShowChipInfo();
  void TestSet(std::span<const std::uint8_t> data, Door door);
  void TestSelect(std::uint8_t step);
  Measurement Measured();
  std::vector<std::uint8_t> ChipData();
  // What the next chip gets: DataPackage, with the serial to come in its place. Nothing when the series is used up, or
  // is none that fits this job.
  std::optional<std::vector<std::uint8_t>> DataForNextChip() const;
  bool ChipIsGood() const;
  void StartSeries();
  void StepSerial();
  std::uint8_t TaskStatus();
  static bool CountsDown(std::optional<int>& counter);
  bool HoldsJob() const;
  bool LimitIsUsedUp() const;
  bool FlashJob() const;

  std::vector<std::uint8_t> memory_;
  std::vector<std::uint8_t> optionArea_;  // 512 bytes once a load has been closed
  std::vector<std::uint8_t> dataArea_;
  // The option area of the job. A series from the menu takes the area's place, but the job goes on.
  std::vector<std::uint8_t> jobHeader_;
  std::vector<std::uint8_t> series_;  // SerialHead and SerialBlock of the last load
  Serial nextSerial_{};
  std::optional<std::uint8_t> mode_;
  std::optional<std::size_t> address_;
  std::uint8_t selectedArea_ = 0;
  Load load_ = Load::None;
  bool optionWritten_ = false;
  static constexpr int kChipReadStarts = 2;
  int chipReadStarts_ = 0;
  std::size_t testSets_ = 0;  // good values of the self-test's set-up
  std::optional<std::uint8_t> testStep_;
  bool dataWritten_ = false;
  bool hostLost_ = false;
  bool taskStarted_ = false;
  std::uint8_t verdict_ = 0;
  int statusReads_ = 0;
  std::optional<std::uint8_t> unsettledTask_;  // a good one whose verdict the host hasn't got yet
  int verdictsDelivered_ = 0;                  // in a row
  std::uint32_t produced_ = 0;                 // good Autos of a job with a production limit
  int firmwareLoads_ = 0;
  std::vector<std::string> violations_;
};

}  // namespace pyxis::standin
