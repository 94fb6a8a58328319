#include "view/ani_file.h"

#include <algorithm>
#include <cstring>

#include "platform/byte_order.h"

namespace pyxis {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t kName = 4, kChunkHeader = 8;  // a name, and with it the length of the data
constexpr std::size_t kAniHeader = 36;
constexpr std::size_t kFrameCount = 4, kStepCount = 8, kRate = 28, kFlags = 32;
constexpr std::uint32_t kFramesAreIcons = 1;
constexpr std::uint32_t kLongestStep = 3600;
// Far more than any cursor has; a hostile file can't make us draw more.
constexpr std::size_t kMostFrames = 256, kMostSteps = 1024;

bool IsCalled(Bytes at, const char* name) { return at.size() >= kName && std::memcmp(at.data(), name, kName) == 0; }

Bytes From(Bytes bytes, std::size_t at) { return bytes.subspan(std::min(at, bytes.size())); }

// Calls `use` with each chunk, which begins with its name, and with its data until it returns false. False as well when
// a chunk doesn't fit.
template <typename Use>
bool ForEachChunk(Bytes rest, Use use) {
  while (rest.size() >= kChunkHeader) {
    const std::size_t length = LoadLe32(&rest[kName]);
    if (length > rest.size() - kChunkHeader) return false;
    if (!use(rest, rest.subspan(kChunkHeader, length))) return false;
    rest = From(rest, kChunkHeader + length + length % 2);
  }
  return true;
}

struct Parts {
  Bytes header, rates, sequence;
  std::vector<Bytes> frames;
};

bool TakeFrames(Bytes list, std::vector<Bytes>& frames) {
  return ForEachChunk(list, [&](Bytes name, Bytes data) {
    if (IsCalled(name, "icon")) frames.push_back(data);
    return true;
  });
}

bool TakeChunk(Bytes name, Bytes data, Parts& parts) {
  if (IsCalled(name, "anih")) parts.header = data;
  if (IsCalled(name, "rate")) parts.rates = data;
  if (IsCalled(name, "seq ")) parts.sequence = data;
  if (IsCalled(name, "LIST") && IsCalled(data, "fram")) return TakeFrames(data.subspan(kName), parts.frames);
  return true;
}

// The steps by the header and the two optional chunks; none when they contradict each other.
std::vector<AnimatedCursor::Step> StepsOf(const Parts& parts) {
  const bool ordered = !parts.sequence.empty();
  const std::size_t count = ordered ? LoadLe32(&parts.header[kStepCount]) : parts.frames.size();
  if (count > kMostSteps || (ordered && parts.sequence.size() < 4 * count) ||
      (!parts.rates.empty() && parts.rates.size() < 4 * count))
    return {};
  std::vector<AnimatedCursor::Step> steps;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t frame = ordered ? LoadLe32(&parts.sequence[4 * i]) : i;
    if (frame >= parts.frames.size()) return {};
    const std::uint32_t ticks = LoadLe32(parts.rates.empty() ? &parts.header[kRate] : &parts.rates[4 * i]);
    steps.push_back({frame, std::clamp(ticks, 1U, kLongestStep)});
  }
  return steps;
}

}  // namespace

std::optional<AnimatedCursor> ReadAni(Bytes file) {
  const Bytes form = From(file, kChunkHeader);
  if (!IsCalled(file, "RIFF") || !IsCalled(form, "ACON")) return std::nullopt;
  // Some writers count the RIFF header in; the chunks' own lengths are what counts.
  const std::size_t length = std::min<std::size_t>(LoadLe32(&file[kName]), form.size());
  Parts parts;
  const bool whole = ForEachChunk(From(form.first(length), kName),
                                  [&](Bytes name, Bytes data) { return TakeChunk(name, data, parts); });
  if (!whole || parts.header.size() < kAniHeader || (LoadLe32(&parts.header[kFlags]) & kFramesAreIcons) == 0 ||
      parts.frames.size() != LoadLe32(&parts.header[kFrameCount]) || parts.frames.size() > kMostFrames)
    return std::nullopt;
  AnimatedCursor cursor{{}, StepsOf(parts)};
  if (cursor.steps.empty()) return std::nullopt;
  cursor.frames = std::move(parts.frames);
  return cursor;
}

}  // namespace pyxis
