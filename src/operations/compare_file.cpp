#include "operations/compare_file.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "catalogue/chip_catalogue.h"
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
  {
    const OpenArea open(area::kData);
    const TransferProgress progress;
    ReadCommand(OP_READ_AREA, std::span(received).first(expected.size()));
  }
  SetWriterMode(mode::kIdle);
  if (!comparison) return false;
  for (std::size_t at = 0; at < comparison->length; ++at)
    if (expected[at] != received[comparison->WriterAt(at)]) return false;
  return true;
}

std::string ChipLine() { return kChipNameCaption + ChipNameOf(TheAppState().writer.WriterInfoBlock); }

// Year, month, day, hour, minute, second. Only the year is taken as a whole.
std::string TimeLine() {
  const auto part = [](TimePart which) { return DownloadTimePart(TheAppState().writer.WriterInfoBlock, which); };
  const auto low = [&part](TimePart which) { return part(which) & 0xFF; };
  return Printf("Download File Time :%d/%d/%d_%d:%d:%d", part(TimePart::Year), low(TimePart::Month), low(TimePart::Day),
                low(TimePart::Hour), low(TimePart::Minute), low(TimePart::Second));
}

void TellNoTarget(const CompareKind& kind, const std::string& chosen, Reason reason) {
  const auto tell = [](const char* text, const std::string& path) {
    TheMachine().op->Tell(Printf(text, path.c_str()));
  };
  switch (reason) {
    case Reason::NotReadable:
      if (kind.target != CompareKind::Target::IntelHex) return TellOpenFail(chosen);
      return tell(kOpenFailed, chosen);
    case Reason::NotIntelHex:
      return tell(kNotIntelHex, chosen);
    case Reason::OwnTarget:
      return tell("%s would be overwritten by its own image\n", chosen);
    default:
      return tell(kWriteFileError, CompareTargetPath(kind, chosen));
  }
}

}  // namespace

Outcome CompareWithWriter(const std::string& path) {
  StopFrameProgress();
  SetWriterMode(mode::kArea);
  const File file = OpenFile(path, "rb");
  const auto expected = file ? ReadFirstBytes(file.get()) : std::nullopt;
  if (!expected) return Failed(Reason::NotReadable);
  return DataAreaEquals(*expected) ? kGood : Failed(Reason::Different);
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

Outcome CDownloadInfoDlg::CompareChosen(const CompareKind& kind, const std::string& chosen) {
  if (const Outcome made = MakeCompareTarget(kind, chosen); !made.Good()) {
    TellNoTarget(kind, chosen, made.reason);
    return made;
  }
  const std::string target = CompareTargetPath(kind, chosen);
  const Outcome outcome = CompareWithWriter(target);
  if (outcome.reason == Reason::NotReadable) TellOpenFail(target);
  lines[2] = Printf(kResultFormat, outcome.Good() ? "OK" : "Fail");
  return outcome;
}

Outcome CDownloadInfoDlg::OnCompareFile() {
  lines[2] = Printf(kResultFormat, "");
  Enable(false);
  const std::string chip = ChipNameOf(TheAppState().writer.WriterInfoBlock);
  const CompareKind& kind = IcOrUnknown(chip).comparison;
  const auto chosen = TheMachine().op->ChooseFile({FileKind::Comparison, kind.filter});
  Outcome outcome = Cancelled(Reason::NoFile);
  if (chosen) {
    const bool sameChip = ChipNameOf(TheAppState().writer.WriterInfoBlock) == chip;
    outcome = sameChip ? CompareChosen(kind, *chosen) : RefuseOtherChip();
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
