#include "operations/chip_info.h"

#include <algorithm>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/run_task.h"
#include "platform/byte_order.h"
#include "platform/clock.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "shell/ground/messages.h"

namespace pyxis {

namespace {

enum Line { kName, kConfig, kChecksum, kId };
constexpr std::array<const char*, 4> kCaptions{kChipNameCaption, "System Config : ", "Checksum : ", "ID : "};
constexpr char kNoSupport[] = "NO Support";

constexpr std::uint32_t kSettleMs = 1000;
constexpr std::uint8_t kHiddenConfig = 18;   // LengthUnit of chips whose configuration can't be shown
constexpr std::uint8_t kLastDualClass = 15;  // ChipClass of the chips with a dual mode: up to this
constexpr std::size_t kConfigAt = 0;         // places in ChipInfo; words, high byte first
constexpr std::size_t kUpperChecksumAt = 2;
constexpr std::size_t kIdAt = 4;
constexpr std::size_t kChecksumAt = 6;

std::uint8_t* ChipInfo() { return &TheAppState().writer.WriterInfoBlock[Field::ChipInfo.offset]; }

std::uint8_t NibbleOf(FieldPlace field) { return FieldByte(TheAppState().writer.WriterInfoBlock, field) & kLowNibble; }

// Chips with one configuration byte have no checksum and no ID.
bool HasChecksumAndId() { return NibbleOf(Field::LengthUnit) != kCountsBytesOfOne; }
bool IsSupported() { return NibbleOf(Field::ConfigKind) == kTellsChipInfo; }

std::string LineOf(Line line, const std::string& value) { return kCaptions[line] + value; }
std::string LineOf(Line line, unsigned value) { return LineOf(line, Printf("%x", value)); }

unsigned WordAt(std::size_t at) { return LoadBe16(ChipInfo() + at); }

// In dual mode only the upper half of the memory counts.
bool UpperHalfCounts() {
  const AppState& app = TheAppState();
  return FieldByte(app.writer.WriterInfoBlock, Field::ChipClass) <= kLastDualClass &&
         (*ChipInfo() & kNotDualBit >> 8) == 0 && app.conversion.DualSkip != 0;
}

void ShowChip(std::array<std::string, 4>& lines) {
  if (!HasChecksumAndId()) {
    lines[kConfig] = LineOf(kConfig, *ChipInfo());
    return;
  }
  const bool hidden = FieldByte(TheAppState().writer.WriterInfoBlock, Field::LengthUnit) == kHiddenConfig;
  lines[kConfig] = hidden ? LineOf(kConfig, kNoSupport) : LineOf(kConfig, WordAt(kConfigAt));
  lines[kChecksum] = LineOf(kChecksum, WordAt(UpperHalfCounts() ? kUpperChecksumAt : kChecksumAt));
  lines[kId] = LineOf(kId, WordAt(kIdAt));
}

}  // namespace

void CReadChipInfoDlg::Show() {
  Changed();
  PumpPaint();
}

namespace {

// Name and checksum.
std::string JobOfWriter() {
  const auto& block = TheAppState().writer.WriterInfoBlock;
  return ChipNameOf(block) + Printf(" %04X", FieldWord(block, Field::ImageChecksum));
}

}  // namespace

void CReadChipInfoDlg::OnWriterArrived() {
  if (!supported_ || JobOfWriter() == job_) return;
  readEnabled = false;
  const auto shown = std::ranges::find(lines, "");
  std::copy_n(kCaptions.begin(), shown - lines.begin(), lines.begin());
  Changed();
}

void CReadChipInfoDlg::OnInitDialog() {
  job_ = JobOfWriter();
  readEnabled = supported_;
  std::copy(kCaptions.begin(), kCaptions.end(), lines.begin());
  if (!supported_) lines = {kNoSupport};
  if (!HasChecksumAndId()) lines[kChecksum] = lines[kId] = "";
  Changed();
}

Outcome CReadChipInfoDlg::OnRead() {
  if (!readEnabled) return Refused(Reason::NotSupported);
  AppState& app = TheAppState();
  readEnabled = cancelEnabled = false;
  const std::size_t shown = HasChecksumAndId() ? lines.size() : std::size_t{kChecksum};
  std::copy_n(kCaptions.begin(), shown, lines.begin());
  Show();

  const bool verified = RunTaskOfDialog(task::kVerify, app.selection.VerifyTicks).Good();
  WaitMs(kSettleMs);
  // A block that can't be read must not show the chip that was in the socket before.
  std::fill_n(ChipInfo(), Field::ChipInfo.width, std::uint8_t{0});
  ReadInfoBlock(app.writer.WriterInfoBlock);
  lines[kName] = LineOf(kName, ChipNameOf(app.writer.WriterInfoBlock));
  if (IsSupported()) ShowChip(lines);
  readEnabled = cancelEnabled = true;
  Show();
  return verified ? kGood : GoodBut(Reason::VerdictFailed);
}

void OnReadChipInfo() {
  CReadChipInfoDlg dialog(IsSupported());
  dialog.OnInitDialog();
  TheMachine().op->RunDialog(dialog);
}

}  // namespace pyxis
