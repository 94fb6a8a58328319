#include "operations/read_chip.h"

#include <array>
#include <cstdint>
#include <vector>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "operations/tasks.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "shell/app_state.h"
#include "shell/main_controls.h"
#include "view/show_file.h"

namespace pyxis {

namespace {

constexpr int kProgressMode = 6;
constexpr std::uint32_t kTemplateSettleMs = 2000;
constexpr std::uint32_t kBeforeReadMs = 100;
constexpr std::uint32_t kBetweenStartsMs = 1000;

// Lets the writer know the chip where its job doesn't.
void LoadTemplateIfNeeded() {
  AppState& app = TheAppState();
  const bool knowsChip = ChipNameOf(app.WriterInfoBlock) == app.SelectedChip;
  if (knowsChip && FieldByte(app.WriterInfoBlock, Field::SerialHead) != kSerialNeedsReload) return;
  if (!RewriteOptionArea(TemplatePath(app.SelectedChip))) return;
  ReadInfoBlock(app.WriterInfoBlock);
  WaitMs(kTemplateSettleMs);
}

// Bytes that are left to read; negative when DualStart doesn't fit the IC.
std::int64_t LengthToRead() {
  std::array<std::uint8_t, kInfoBlockSize> block{};
  ReadInfoBlock(block);
  return std::int64_t{TheAppState().ReadSizeBytes} - 2 * std::int64_t{FieldWord(block, Field::DualStart)};
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
  AppState& app = TheAppState();
  app.LoadedFilePath.clear();
  ShowFile("");
  app.LoadedFilePath = path;
  ShowFile(path);
}

}  // namespace

std::string ReadDataPath() { return TheAppState().AppDir + "readdata.txt"; }

bool ReadChip() {
  const std::string path = ReadDataPath();
  ReplacedFile file(path);
  if (!file.IsOpen()) return false;
  const std::int64_t wanted = LengthToRead();
  if (wanted <= 0) return false;
  const auto length = static_cast<std::size_t>(wanted);

  DisableOperations();
  StartTask(task::kReadChip);
  WaitMs(kBetweenStartsMs);
  StartTask(task::kReadChip);
  SetFrameProgress(0);
  std::vector<std::uint8_t> received(std::size_t{TheAppState().ReadSizeBytes} + 1);
  ReadCommand(OP_READ_CHIP, std::span(received).first(length));
  const bool written = file.Write(WordsOf(received, length, TheAppState().ReadSwapBytes));
  if (written) ShowResult(path);
  EnableOperations();
  return written;
}

void OnRead() {
  LoadTemplateIfNeeded();
  WaitMs(kBeforeReadMs);
  BeginOperation(kProgressMode);
  const bool good = ReadChip();
  TheAppState().ProgressMode = 0;
  TheMachine().op->Tell(good ? "Read OK" : "Read FAIL");
  EndOperation();
}

}  // namespace pyxis
