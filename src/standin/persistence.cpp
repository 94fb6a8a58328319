// The stand-in writer's memory as a file, so that a job outlives a restart.
#include <algorithm>
#include <cstring>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "platform/byte_order.h"
#include "platform/files.h"
#include "standin/writer_model.h"

namespace pyxis::standin {

namespace {

// The files of version 1 end before the job header and the serial to come; their series starts anew.
constexpr char kMagic[8] = {'P', 'Y', 'X', 'S', 'T', 'A', 'N', '2'};
constexpr char kFirstVersion = '1';
constexpr std::size_t kLargestArea = 131072;

void PutLe32(std::vector<std::uint8_t>& out, std::uint32_t value) {
  out.resize(out.size() + 4);
  StoreLe32(out.data() + out.size() - 4, value);
}

void PutBlock(std::vector<std::uint8_t>& out, const std::vector<std::uint8_t>& block) {
  PutLe32(out, static_cast<std::uint32_t>(block.size()));
  out.insert(out.end(), block.begin(), block.end());
}

// Takes a counted block off `in`; nothing when it is cut short or too long.
std::optional<std::vector<std::uint8_t>> TakeBlock(std::span<const std::uint8_t>& in) {
  if (in.size() < 4) return std::nullopt;
  const std::uint32_t length = LoadLe32(in.data());
  in = in.subspan(4);
  if (length > kLargestArea || length > in.size()) return std::nullopt;
  std::vector<std::uint8_t> block(in.begin(), in.begin() + length);
  in = in.subspan(length);
  return block;
}

}  // namespace

bool WriterModel::Save(const std::string& path) const {
  std::vector<std::uint8_t> out(std::begin(kMagic), std::end(kMagic));
  PutLe32(out, produced_);
  PutBlock(out, memory_);
  PutBlock(out, optionArea_);
  PutBlock(out, dataArea_);
  PutBlock(out, jobHeader_);
  PutBlock(out, series_);
  out.insert(out.end(), nextSerial_.begin(), nextSerial_.end());
  return WriteWholeFile(path, out);
}

bool WriterModel::Restore(const std::string& path) {
  const auto bytes = ReadWholeFile(path);
  if (!bytes || bytes->size() < sizeof kMagic + 4 || std::memcmp(bytes->data(), kMagic, sizeof kMagic - 1) != 0)
    return false;
  const auto version = static_cast<char>((*bytes)[sizeof kMagic - 1]);
  if (version != kMagic[sizeof kMagic - 1] && version != kFirstVersion) return false;
  std::span<const std::uint8_t> in = std::span(*bytes).subspan(sizeof kMagic);
  const std::uint32_t produced = LoadLe32(in.data());
  in = in.subspan(4);
  auto memory = TakeBlock(in);
  auto option = memory ? TakeBlock(in) : std::nullopt;
  auto data = option ? TakeBlock(in) : std::nullopt;
  if (!data || memory->size() != memory_.size() || option->size() != kInfoBlockSize) return false;
  std::vector<std::uint8_t> header = *option;
  std::vector<std::uint8_t> series;
  Serial next = SerialSeries(*option).First();
  if (version != kFirstVersion) {
    auto headerBlock = TakeBlock(in);
    auto seriesBlock = headerBlock ? TakeBlock(in) : std::nullopt;
    if (!seriesBlock || headerBlock->size() != kInfoBlockSize || in.size() != next.size()) return false;
    header = std::move(*headerBlock);
    series = std::move(*seriesBlock);
    std::copy(in.begin(), in.end(), next.begin());
  }
  memory_ = std::move(*memory);
  optionArea_ = std::move(*option);
  dataArea_ = std::move(*data);
  produced_ = produced;
  jobHeader_ = std::move(header);
  series_ = std::move(series);
  nextSerial_ = next;
  return true;
}

}  // namespace pyxis::standin
