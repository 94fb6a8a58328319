// Animated cursors: the order and the length of the steps, and the ways in which a file can be broken.
#include "view/ani_file.h"

#include "platform/byte_order.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

Bytes Le32(std::uint32_t value) {
  Bytes bytes(4);
  StoreLe32(bytes.data(), value);
  return bytes;
}

Bytes Chunk(const std::string& name, const Bytes& data) {
  return Bytes(name.begin(), name.end()) + Le32(static_cast<std::uint32_t>(data.size())) + data +
         Bytes(data.size() % 2);
}

Bytes Header(std::uint32_t frames, std::uint32_t steps, std::uint32_t flags) {
  return Chunk("anih", Le32(36) + Le32(frames) + Le32(steps) + Bytes(16) + Le32(7) + Le32(flags));
}
Bytes Ani(const Bytes& chunks) { return Chunk("RIFF", Bytes{'A', 'C', 'O', 'N'} + chunks); }

std::string StepsOf(const Bytes& file) {
  const auto cursor = ReadAni(file);
  if (!cursor) return "nothing";
  std::string text;
  for (const auto& step : cursor->steps) text += std::to_string(step.frame) + ":" + std::to_string(step.ticks) + " ";
  return text;
}

TEST(AniFile, StepsComeFromRateAndSequence) {
  const Bytes icon = Chunk("icon", {1, 2, 3}), fram{'f', 'r', 'a', 'm'}, one = Chunk("LIST", fram + icon);
  const Bytes two = Chunk("LIST", fram + icon + Chunk("icon", {4}));
  const Bytes rates = Chunk("rate", Le32(1) + Le32(0) + Le32(99999)), rate = Chunk("rate", Le32(1));
  const Bytes order = Chunk("seq ", Le32(0) + Le32(1) + Le32(0));
  // clang-format off
  for (const auto& [what, file, steps] : Table<const char*, Bytes, const char*>{
           {"neither", Ani(Header(2, 2, 1) + two), "0:7 1:7 "},
           {"both, and a stranger", Ani(Chunk("INAM", {1}) + Header(2, 3, 3) + rates + order + two), "0:1 1:1 0:3600 "},
           {"sequence behind the frames", Ani(Header(2, 3, 3) + two + order), "0:7 1:7 0:7 "},
           {"sequence too short", Ani(Header(2, 4, 3) + order + two), "nothing"},
           {"rates too short", Ani(Header(2, 2, 1) + rate + two), "nothing"},
           {"a frame that isn't there", Ani(Header(1, 3, 3) + order + one), "nothing"},
           {"no steps", Ani(Header(2, 0, 3) + order + two), "nothing"},
           {"a frame is missing", Ani(Header(3, 3, 1) + two), "nothing"},
           {"no frames", Ani(Header(0, 0, 1) + Chunk("LIST", fram)), "nothing"},
           {"bare bitmaps", Ani(Header(2, 2, 0) + two), "nothing"},
           {"no header", Ani(two), "nothing"},
           {"short header", Ani(Chunk("anih", Bytes(35, 1)) + two), "nothing"},
           {"steps without end", Ani(Header(2, 0xFFFFFFFF, 3) + order + two), "nothing"},
           {"another form", Chunk("RIFF", Bytes{'W', 'A', 'V', 'E'} + Header(2, 2, 1) + two), "nothing"}})
    // clang-format on
    EXPECT_EQ(StepsOf(file), steps) << what;
  const Bytes whole = Ani(Header(2, 3, 3) + order + two);
  const auto cursor = ReadAni(whole);
  ASSERT_EQ(cursor->frames.size(), 2U);
  EXPECT_EQ(Bytes(cursor->frames[0].begin(), cursor->frames[0].end()), (Bytes{1, 2, 3}));
  EXPECT_EQ(Bytes(cursor->frames[1].begin(), cursor->frames[1].end()), (Bytes{4}));
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(ReadAni(std::span(whole).first(length))) << length;
}

}  // namespace
}  // namespace pyxis::test
