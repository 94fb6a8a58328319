#include "operations/compare_file.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/compare_target.h"
#include "operations/download.h"
#include "platform/byte_order.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "shell/ground/messages.h"
#include "shell/ground/selection_guard.h"

namespace pyxis {

namespace {

constexpr char kResultFormat[] = "Compare Result : %s";
constexpr std::uint8_t kCountsWords = 1;  // low nibble of LengthUnit
constexpr std::uint8_t kOrderOfData = 2;  // low nibble of ReadBackOrder: words stand as in the program file

// No job is longer than 65,535 words, so that what lies behind them never counts.
constexpr std::size_t kMostBytes = kTransferBufferSize;

// How the job's data and a file are laid side by side.
struct Comparison {
  std::size_t length = 0;  // bytes
  bool exchanged = false;  // the two bytes of each word

  std::size_t WriterAt(std::size_t fileAt) const { return exchanged ? fileAt ^ 1 : fileAt; }
};

// Nothing when the file can't be compared over the whole length, or when that leaves nothing to compare.
std::optional<Comparison> ComparisonOf(std::size_t fileLength) {
  const auto& block = TheAppState().writer.WriterInfoBlock;
  const std::size_t units = FieldWord(block, Field::ImageLength);
  if (units == 0 || fileLength == 0) return std::nullopt;
  if ((FieldByte(block, Field::LengthUnit) & kLowNibble) != kCountsWords)
    return Comparison{std::min(units, fileLength), false};
  if (fileLength < 2 * units) return std::nullopt;
  return Comparison{2 * units, (FieldByte(block, Field::ReadBackOrder) & kLowNibble) != kOrderOfData};
}

// The first bytes of the file, as many as can count; nothing when they can't be read.
std::optional<std::vector<std::uint8_t>> ReadFirstBytes(std::FILE* file) {
  std::vector<std::uint8_t> bytes(std::min(static_cast<std::size_t>(std::max(FileLength(file), 0L)), kMostBytes));
  if (!bytes.empty() && std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) return std::nullopt;
  return bytes;
}

bool DataAreaEquals(const std::vector<std::uint8_t>& expected) {
  const auto comparison = ComparisonOf(expected.size());
  // Filled with what differs, so that bytes that a failed transfer doesn't bring can't pass. One spare byte: a transfer
  // of length 0 needs a buffer to point to.
  std::vector<std::uint8_t> received(expected.size() + 1);
  if (comparison)
    for (std::size_t at = 0; at < comparison->length; ++at)
      received[comparison->WriterAt(at)] = static_cast<std::uint8_t>(~expected[at]);
  SelectArea(area::kData);
  {
    const TransferProgress progress;
    ReadCommand(OP_READ_AREA, std::span(received).first(expected.size()));
  }
  CloseArea();
  SetWriterMode(mode::kIdle);
  if (!comparison) return false;
  for (std::size_t at = 0; at < comparison->length; ++at)
    if (expected[at] != received[comparison->WriterAt(at)]) return false;
  return true;
}

std::string ChipLine() { return "Chip Name : " + ChipNameOf(TheAppState().writer.WriterInfoBlock); }

// Year, month, day, hour, minute, second. Only the year is taken as a whole.
std::string TimeLine() {
  const auto part = [](TimePart which) { return DownloadTimePart(TheAppState().writer.WriterInfoBlock, which); };
  const auto low = [&part](TimePart which) { return part(which) & 0xFF; };
  return Printf("Download File Time :%d/%d/%d_%d:%d:%d", part(TimePart::Year), low(TimePart::Month), low(TimePart::Day),
                low(TimePart::Hour), low(TimePart::Minute), low(TimePart::Second));
}

}  // namespace

bool CompareWithWriter(const std::string& path) {
  StopFrameProgress();
  SetWriterMode(mode::kArea);
  const File file = OpenFile(path, "rb");
  const auto expected = file ? ReadFirstBytes(file.get()) : std::nullopt;
  if (!expected) {
    TheMachine().op->Tell(Printf(kOpenFail, path.c_str()), kPlainCaption);
    return false;
  }
  return DataAreaEquals(*expected);
}

// Of a writer that has come. The last result belongs to the job before.
void CDownloadInfoDlg::ShowJob() {
  lines = {ChipLine(), TimeLine(), ""};
  Changed();
}

void CDownloadInfoDlg::Enable(bool enabled) {
  compareEnabled = cancelEnabled = enabled;
  Changed();
  PumpPaint();
}

Outcome CDownloadInfoDlg::OnCompareFile() {
  lines[2] = Printf(kResultFormat, "");
  Enable(false);
  const std::string chip = ChipNameOf(TheAppState().writer.WriterInfoBlock);
  const CompareKind& kind = CompareKindOf(chip);
  const auto chosen = TheMachine().op->ChooseFile({FileKind::Comparison, kind.filter});
  Outcome outcome = chosen ? Failed(Reason::NotReadable) : Cancelled(Reason::NoFile);
  if (chosen && ChipNameOf(TheAppState().writer.WriterInfoBlock) != chip) {
    outcome = RefuseOtherChip();
  } else if (chosen && MakeCompareTarget(kind, *chosen)) {
    outcome = CompareWithWriter(CompareTargetPath(kind, *chosen)) ? kGood : Failed(Reason::Different);
    lines[2] = Printf(kResultFormat, outcome.Good() ? "OK" : "Fail");
  }
  SetProgressPosition(0);
  Enable(true);
  return outcome;
}

void OnDownloadInfo() {
  AppState& app = TheAppState();
  ReadInfoBlock(app.writer.WriterInfoBlock);
  CDownloadInfoDlg dialog(ChipLine(), TimeLine());
  TheMachine().op->RunDialog(dialog);
}

}  // namespace pyxis
