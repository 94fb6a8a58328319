#include "serial/sn_set.h"

#include <algorithm>
#include <array>

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "platform/byte_order.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/hex_digits.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "serial/big_number.h"
#include "serial/sn_record.h"
#include "shell/ground/app_state.h"
#include "shell/ground/messages.h"

namespace pyxis {

namespace {

constexpr std::uint32_t kSettleMs = 1500;
constexpr std::size_t kSerialFileSize = 256;
constexpr std::uint8_t kFixedLength = 4;

bool LengthIsGood() { return TheSnRecord().SnLength >= 1 && TheSnRecord().SnLength <= kSerialBytes; }

void Refuse(const std::string& text) { TheMachine().op->Tell(text, kMessageCaption, MessageIcon::Warning); }

// Digits at the right end of a field, two to a byte; digits beyond the field are the high ones, and are left out.
// Conversion ends at the first character that is no digit.
std::array<std::uint8_t, kSerialBytes> ToBytes(const std::string& text) {
  std::string field = text.substr(0, CountHexDigits(text));
  constexpr std::size_t width = 2 * kSerialBytes;
  field = field.size() > width ? field.substr(field.size() - width) : std::string(width - field.size(), '0') + field;
  std::array<std::uint8_t, kSerialBytes> bytes;
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<std::uint8_t>(ParseHexDigits(std::string_view(field).substr(2 * i, 2)));
  return bytes;
}

}  // namespace

CSnSetDlg::CSnSetDlg(bool snFromIcSelection, bool exhvIsp, bool isp)
    : snFromIcSelection_(snFromIcSelection), exhvIsp_(exhvIsp), isp_(isp) {}

void CSnSetDlg::OnInitDialog() {
  const SnRecord& record = TheSnRecord();
  amountText = record.SnAmountText;
  startText = HexPadded(record.SnStartText);
  addressText = Printf("%04X", record.SnStartAddress);
  lengthText = Printf("%X", record.SnLength);
  direction = record.SnDirection;
}

bool CSnSetDlg::OnLengthChange(const std::string& text) {
  SnRecord& record = TheSnRecord();
  lengthText = text;
  record.SnLength = static_cast<std::uint8_t>(ParseHexDigits(WithoutHexPrefix(text)));
  if (!LengthIsGood()) {
    Refuse("'Input Serial Number Length Error");
    return false;
  }
  record.SnStartText = startText = std::string(std::size_t{2} * record.SnLength, '0');
  Changed();
  return true;
}

void CSnSetDlg::OnAddressChange(const std::string& text) {
  addressText = text;
  TheSnRecord().SnStartAddress = ParseHexDigits(WithoutHexPrefix(text));
}

bool CSnSetDlg::OnStartChange(const std::string& text) {
  SnRecord& record = TheSnRecord();
  if (WithoutHexPrefix(text).size() > std::size_t{2} * record.SnLength) {
    startText = record.SnStartText;
    Changed();
    return false;
  }
  startText = text;
  record.SnStartText = WithoutHexPrefix(text);
  return true;
}

void CSnSetDlg::OnAmountChange(const std::string& text) {
  amountText = text;
  TheSnRecord().SnAmountText = WithoutHexPrefix(text);
}

void CSnSetDlg::OnDirection(int button) {
  direction = button == 0 ? 0 : 1;
  TheSnRecord().SnDirection = static_cast<std::uint8_t>(direction);
}

Outcome CSnSetDlg::OnLoad() {
  // The limits and the template of another IC would be taken.
  if (!guard_.SameChip()) return RefuseOtherChip();
  const Outcome outcome = LoadSnSetup();
  if (outcome.end != End::Refused) {
    WaitMs(kSettleMs);
    ended = true;
  }
  Changed();
  return outcome;
}

Outcome CSnSetDlg::CheckPlace() {
  const SnRecord& record = TheSnRecord();
  const SerialPlace& place = IcOrUnknown(TheAppState().selection.SelectedChip).serial;
  if (place.fixedAddress != kAnyAddress) {
    // These two are told and pass all the same.
    const bool otherLength = record.SnLength != kFixedLength, otherStart = record.SnStartAddress != place.fixedAddress;
    if (otherLength) Refuse("S/N Length Enter 4");
    if (otherStart) Refuse("S/N Start Address Error");
    return {End::Good, otherLength || otherStart ? Reason::OtherPlace : Reason::None};
  }
  if (place.endLimit >= std::uint64_t{record.SnStartAddress} + record.SnLength) return kGood;
  Refuse(Printf("S/N End Address > 0x%X", place.endLimit));
  return Refused(Reason::OutOfRange);
}

Outcome CSnSetDlg::LoadSnSetup() {
  SnRecord& record = TheSnRecord();
  const Outcome place = CheckPlace();
  if (!place.Good()) return place;
  record.SnStartText = WithoutHexPrefix(startText);
  BigNumber start, amount, sum;
  start.TakeHex(record.SnStartText);
  amount.TakeHex(WithoutHexPrefix(amountText));
  sum.SetSum(start, amount);
  record.SnEndText = sum.Hex();
  record.SnAmountText = amount.Hex();
  if (amount.IsZero()) {
    Refuse("Please Keyin 'S/N Amount'. ( >= 1 )");
    return Refused(Reason::OutOfRange);
  }
  record.SnStartBytes = ToBytes(record.SnStartText);
  record.SnEndBytes = ToBytes(record.SnEndText);
  sum.Decrement();
  record.SnEndText = sum.Hex();
  if (record.SnEndText.size() > std::size_t{2} * record.SnLength) {
    Refuse("End Serial Number > SN Length");
    return Refused(Reason::OutOfRange);
  }
  record.SnStartAddress = ParseHexDigits(WithoutHexPrefix(addressText));
  record.SnEndAddress = record.SnStartAddress + record.SnLength - 1;
  const Written result = WriteSerialFile();
  if (result == Written::Broken) {
    Refuse(Printf(kWriteFileError, SerialFilePath().c_str()));
    return Refused(Reason::NotWritable);
  }
  written = result == Written::Good;
  if (written && !snFromIcSelection_) TheAppState().writer.SnLoaded = RewriteOptionArea(SerialFilePath()).Good();
  return written ? place : Failed(Reason::NotReadable);
}

// The first bytes of the IC's template with the run written over them. Half a file would burn half a serial: none is
// left of one that couldn't be written to its end.
CSnSetDlg::Written CSnSetDlg::WriteSerialFile() const {
  const SnRecord& record = TheSnRecord();
  const AppState& app = TheAppState();
  auto file = ReadWholeFile(TemplatePath(app.selection.SelectedChip));
  if (!file) return Written::NotOpened;
  file->resize(kSerialFileSize, 0xFF);
  std::uint8_t* bytes = file->data();
  bytes[Field::SerialHead.offset] = static_cast<std::uint8_t>(
      (record.SnDirection & kLowNibble) | (snFromIcSelection_ ? kSerialBySelection : kSerialByMenu));
  bytes[kSerialLengthOffset] = record.SnLength;
  StoreBe16(bytes + kSerialStartOffset, record.SnStartAddress);
  const bool words = IcOrUnknown(app.selection.SelectedChip).serial.endMarkCounts == SnUnit::Words;
  StoreBe16(bytes + kSerialEndMarkOffset, record.SnStartAddress + (words ? record.SnLength / 2U : record.SnLength));
  bytes[Field::IspFlags.offset] = exhvIsp_ || isp_ ? kExhvIspBit : 0;
  const auto block = file->begin() + static_cast<std::ptrdiff_t>(Field::SerialBlock.offset);
  std::copy(record.SnStartBytes.begin(), record.SnStartBytes.end(),
            std::copy(record.SnEndBytes.begin(), record.SnEndBytes.end(), block));
  bytes[Field::WriterModelByte.offset] = RegisterOf(app.writer.WriterModel);
  ReplacedFile serial(SerialFilePath());
  if (!serial.IsOpen()) return Written::NotOpened;
  if (serial.Write(*file)) return Written::Good;
  RemoveFile(SerialFilePath());
  return Written::Broken;
}

}  // namespace pyxis
