#include "operations/read_chip.h"

#include <array>
#include <cstdint>
#include <vector>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "operations/run_task.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "shell/loaded_file.h"
#include "view/show_file.h"

namespace pyxis {

namespace {

constexpr std::uint32_t kTemplateSettleMs = 2000;
constexpr std::uint32_t kBeforeReadMs = 100;
constexpr std::uint32_t kBetweenStartsMs = 1000;

bool WriterKnowsChip() {
  const AppState& app = TheAppState();
  return ChipNameOf(app.writer.WriterInfoBlock) == app.selection.SelectedChip;
}

// Lets the writer know the chip where its job doesn't.
Outcome LoadTemplateIfNeeded() {
  AppState& app = TheAppState();
  if (WriterKnowsChip() && FieldByte(app.writer.WriterInfoBlock, Field::SerialHead) != kSerialNeedsReload) return kGood;
  if (!RewriteOptionArea(TemplatePath(app.selection.SelectedChip)).Good())
    return WriterKnowsChip() ? GoodBut(Reason::OptionNotArrived) : Failed(Reason::OptionNotArrived);
  ReadInfoBlock(app.writer.WriterInfoBlock);
  WaitMs(kTemplateSettleMs);
  return WriterKnowsChip() ? kGood : Failed(Reason::OtherChip);
}

// Bytes that are left to read; negative when DualStart doesn't fit the IC.
std::int64_t LengthToRead() {
  std::array<std::uint8_t, kInfoBlockSize> block{};
  ReadInfoBlock(block);
  return std::int64_t{TheAppState().selection.ReadSizeBytes} - 2 * std::int64_t{FieldWord(block, Field::DualStart)};
}

// Whole words: the last one of an odd length takes a byte from behind it.
std::vector<std::uint8_t> WordsOf(const std::vector<std::uint8_t>& received, std::size_t length, bool exchanged) {
  std::vector<std::uint8_t> words;
  words.reserve(length + 1);
  for (std::size_t at = 0; at < length; at += 2) {
    words.push_back(received[exchanged ? at + 1 : at]);
    words.push_back(received[exchanged ? at : at + 1]);
  }
  return words;
}

void ShowResult(const std::string& path) {
  BlankLoadedFile();
  TheAppState().conversion.LoadedFilePath = path;
  ShowFile(path);
}

}  // namespace

std::string ReadDataPath() { return TheAppState().program.AppDir + "readdata.txt"; }

Outcome ReadChip() {
  const std::int64_t wanted = LengthToRead();
  if (wanted <= 0) return Failed(Reason::NothingToRead);
  const auto length = static_cast<std::size_t>(wanted);
  const std::string path = ReadDataPath();
  ReplacedFile file(path);  // before the chip is asked, so that a file that can't be made costs no read
  if (!file.IsOpen()) return Failed(Reason::NotWritable);

  const OperationsOff off;
  StartTask(task::kReadChip);
  WaitMs(kBetweenStartsMs);
  StartTask(task::kReadChip);
  StopFrameProgress();
  std::vector<std::uint8_t> received(std::size_t{TheAppState().selection.ReadSizeBytes} + 1);
  ReadCommand(OP_READ_CHIP, std::span(received).first(length));
  if (!file.Write(WordsOf(received, length, TheAppState().selection.ReadSwapBytes))) return Failed(Reason::NotWritable);
  ShowResult(path);
  return kGood;
}

Outcome OnRead() {
  const Outcome told = LoadTemplateIfNeeded();
  WaitMs(kBeforeReadMs);
  OperationDisplay display(Progress::Read);
  const Outcome outcome = ReadChip();
  display.EndProgress();
  TheMachine().op->Tell(outcome.Good() ? "Read OK" : "Read FAIL");
  return outcome.Good() ? told : outcome;
}

}  // namespace pyxis
