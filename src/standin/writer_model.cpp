#include "standin/writer_model.h"

#include <algorithm>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "platform/byte_order.h"
#include "platform/text.h"

namespace pyxis::standin {

namespace {

constexpr std::uint8_t kErased = 0xFF;

}  // namespace

WriterModel::WriterModel(Model model, std::string identityText)
    : identity(std::move(identityText)),
      memory_(kFirmwareImageSize, kErased),
      optionArea_(kInfoBlockSize, 0),
      jobHeader_(kInfoBlockSize, 0) {
  memory_[address::kModel] = RegisterOf(model);
  StoreBe16(&memory_[address::kFirmwareCode], 0);
  memory_[address::kFirmwareVersion] = 1;
  StoreBe16(&memory_[address::kFirmwareLevel], kHostFirmwareLevel);
}

bool WriterModel::CountsDown(std::optional<int>& counter) {
  if (!counter || --*counter > 0) return false;
  counter.reset();
  return true;
}

Line WriterModel::Now() const {
  if (faults.disconnectAfter && *faults.disconnectAfter <= 0) return Line::Gone;
  return faults.stallAfter && *faults.stallAfter <= 0 ? Line::Silent : Line::Answers;
}

Line WriterModel::NextTransfer() {
  const Line line = Now();
  if (line != Line::Answers) LoseHost();
  if (line == Line::Gone) LosePower();
  if (line == Line::Answers)
    for (std::optional<int>* left : {&faults.stallAfter, &faults.disconnectAfter})
      if (*left) --**left;
  return line;
}

void WriterModel::Violate(const std::string& text) {
  if (!hostLost_) violations_.push_back(text);
}

bool WriterModel::LengthIs(std::uint8_t opcode, std::size_t length, std::size_t wanted) {
  if (length == wanted) return true;
  Violate(Printf("opcode %d with %zu bytes, must have %zu", opcode, length, wanted));
  return false;
}

void WriterModel::Write(std::uint8_t opcode, std::span<const std::uint8_t> data, Door door) {
  switch (opcode) {
    case OP_SET_MODE:
      if (!LengthIs(opcode, data.size(), 1)) return;
      if (data[0] != mode::kMemory && data[0] != mode::kIdle && data[0] != mode::kArea && data[0] != mode::kArrival)
        Violate(Printf("unknown mode %d", data[0]));
      mode_ = data[0];
      if (mode_ != mode::kArea) testSets_ = 0;  // ends a self-test
      if (mode_ == mode::kIdle && load_ == Load::None) hostLost_ = false;
      return;
    case OP_SET_ADDRESS:
      return SetAddress(data, door);
    case OP_WRITE_MEMORY:
      return WriteMemory(data);
    case OP_WRITE_AREA:
      return WriteArea(data);
    case OP_SELECT_AREA:
      if (LengthIs(opcode, data.size(), 2)) SelectArea(data[0], data[1]);
      return;
    case OP_START_TASK:
      if (LengthIs(opcode, data.size(), 1)) StartTask(data[0]);
      return;
    case OP_CONTROL:
      if (LengthIs(opcode, data.size(), 1)) Control(data[0]);
      return;
    case OP_TEST_SELECT:
      if (LengthIs(opcode, data.size(), 1)) TestSelect(data[0]);
      return;
    case OP_TEST_SET:
      if (LengthIs(opcode, data.size(), 2)) TestSet(data, door);
      return;
    default:
      Violate(Printf("opcode %d is not written", opcode));
  }
}

std::vector<std::uint8_t> WriterModel::Read(std::uint8_t opcode, std::size_t length, Door door) {
  std::vector<std::uint8_t> answer(length, 0);
  const auto give = [&answer](std::span<const std::uint8_t> bytes) {
    std::copy_n(bytes.begin(), std::min(bytes.size(), answer.size()), answer.begin());
  };
  switch (opcode) {
    case OP_IDENTITY:
      if (LengthIs(opcode, length, kIdentitySize))
        give(std::span(reinterpret_cast<const std::uint8_t*>(identity.data()), identity.size()));
      return answer;
    case OP_TEST_MEASURE:
      if (LengthIs(opcode, length, Measurement{}.size())) give(Measured());
      return answer;
    case OP_READ_MEMORY:
      return ReadMemory(length);
    case OP_READ_AREA:
      return ReadArea(length);
    case OP_TASK_STATUS:
      if (LengthIs(opcode, length, 1)) answer[0] = TaskStatus();
      if (door == Door::Vendor && length == 1) StatusDelivered(answer[0]);
      return answer;
    case OP_READ_CHIP:
      std::fill(answer.begin(), answer.end(), kErased);
      give(ChipData());
      return answer;
    default:
      Violate(Printf("opcode %d is not read", opcode));
      return answer;
  }
}

void WriterModel::SetAddress(std::span<const std::uint8_t> data, Door door) {
  if (mode_ != mode::kMemory) Violate("address set outside mode 0");
  if (!LengthIs(OP_SET_ADDRESS, data.size(), door == Door::Frames ? 2 : 4)) return;
  address_ = door == Door::Frames ? LoadBe16(data.data()) : LoadBe32(data.data());
}

void WriterModel::WriteMemory(std::span<const std::uint8_t> data) {
  if (mode_ != mode::kMemory) Violate("memory written outside mode 0");
  if (load_ != Load::Firmware) Violate("memory written without a firmware load");
  const std::size_t start = address_.value_or(0);
  if (start + data.size() > memory_.size()) {
    Violate("memory written behind its end");
    return;
  }
  std::copy(data.begin(), data.end(), memory_.begin() + static_cast<std::ptrdiff_t>(start));
  address_ = start + data.size();
  ++firmwareLoads_;
}

std::vector<std::uint8_t> WriterModel::ReadMemory(std::size_t length) {
  if (mode_ != mode::kMemory) Violate("memory read outside mode 0");
  const std::size_t start = address_.value_or(0) % memory_.size();  // without an address: on from where it is
  std::vector<std::uint8_t> answer(length, kErased);
  for (std::size_t i = 0; i < length && start + i < memory_.size(); ++i) answer[i] = memory_[start + i];
  address_ = start + length;
  if (faults.damageMemoryByte && length > 1 && *faults.damageMemoryByte < length)
    answer[*faults.damageMemoryByte] ^= 0x40;
  return answer;
}

void WriterModel::SelectArea(std::uint8_t selector, std::uint8_t action) {
  if (mode_ != mode::kArea) Violate("area selected outside mode 71");
  const bool opens = (selector == area::kOption || selector == area::kData) && action == area::kOpen;
  const bool closes = selector == area::kNone && action == area::kClose;
  if (!opens && !closes) Violate(Printf("unknown area %d, %d", selector, action));
  if (closes && selectedArea_ == 0) Violate("an area closed that isn't open");
  if (opens && selectedArea_ != 0) Violate("an area opened while another one is");
  selectedArea_ = opens ? selector : 0;
}

std::vector<std::uint8_t>* WriterModel::SelectedArea() {
  if (mode_ == mode::kArea && selectedArea_ != 0) return selectedArea_ == area::kOption ? &optionArea_ : &dataArea_;
  Violate("area access without mode 71 and an open area");
  return nullptr;
}

void WriterModel::WriteArea(std::span<const std::uint8_t> data) {
  std::vector<std::uint8_t>* target = SelectedArea();
  if (target == nullptr) return;
  if (load_ != Load::Package) {
    Violate("area written without an open package load");
    return;
  }
  target->assign(data.begin(), data.end());
  (target == &optionArea_ ? optionWritten_ : dataWritten_) = true;
}

std::vector<std::uint8_t> WriterModel::ReadArea(std::size_t length) {
  const std::vector<std::uint8_t>* source = SelectedArea();
  std::vector<std::uint8_t> answer(length, selectedArea_ == area::kOption ? 0 : kErased);
  if (source != nullptr) std::copy_n(source->begin(), std::min(length, source->size()), answer.begin());
  if (faults.damageAreaByte && load_ == Load::Package && *faults.damageAreaByte < length)
    answer[*faults.damageAreaByte] ^= 0x01;
  return answer;
}

void WriterModel::Control(std::uint8_t control) {
  if (control == control::kBeginLoad) {
    if (load_ != Load::Opened) Violate("a package load begun without its task");
    load_ = Load::Package;
  } else if (control == control::kEndLoad) {
    CloseLoad();  // without an open load it does nothing
  } else {
    Violate(Printf("unknown control byte %d", control));
  }
}

void WriterModel::CloseLoad() {
  if (load_ == Load::Package && optionWritten_) {
    optionArea_.resize(kInfoBlockSize, 0);
    std::fill_n(optionArea_.begin() + Field::ChipInfo.offset, Field::ChipInfo.width, std::uint8_t{0});
    if (SerialSeries::RoadOf(optionArea_) != SerialSeries::Road::Menu) {
      // An option area that comes alone for the same job, as a change of the protection does, is no new production.
      const bool goesOn = !dataWritten_ && ChipNameOf(optionArea_) == ChipNameOf(jobHeader_) &&
                          FieldWord(optionArea_, Field::ImageChecksum) == FieldWord(jobHeader_, Field::ImageChecksum);
      if (!goesOn) produced_ = 0;
      jobHeader_ = optionArea_;
    }
    optionArea_[Field::WriterStatus.offset] = LimitIsUsedUp() ? kLimitUsedUp : 0;
    StartSeries();
  }
  optionWritten_ = dataWritten_ = false;
  load_ = Load::None;
  selectedArea_ = 0;
}

}  // namespace pyxis::standin
