// Animated cursors: one that is read pixel for pixel, and the ways in which a file can be broken.
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

// A 3 x 2 picture with the hot spot 2, 1 and five colours, lower line first.
Bytes Cursor() {
  const Bytes colors = Le32(0) + Le32(0xFF0000) + Le32(0xFF00) + Le32(0xFF) + Le32(0xFFFFFF);
  const Bytes pixels{3, 4, 0, 0, 1, 0, 2, 0}, mask{0x20, 0, 0, 0, 0x40, 0, 0, 0};
  const Bytes bitmap =
      Le32(40) + Le32(3) + Le32(4) + Bytes{1, 0, 8, 0} + Bytes(16) + Le32(5) + Le32(0) + colors + pixels + mask;
  return Bytes{0, 0, 2, 0, 1, 0, 3, 2, 0, 0, 2, 0, 1, 0} + Le32(static_cast<std::uint32_t>(bitmap.size())) + Le32(22) +
         bitmap;
}

Bytes With(Bytes file, std::size_t at, const Bytes& bytes) {
  std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(at));
  return file;
}

TEST(CursorPicture, ReadsPixelsAndHotSpot) {
  const auto picture = ReadCursorPicture(Cursor());
  ASSERT_TRUE(picture);
  EXPECT_EQ((std::vector{picture->width, picture->height, picture->hotX, picture->hotY}), (std::vector{3, 2, 2, 1}));
  EXPECT_EQ(picture->argb, (std::vector<std::uint32_t>{0xFFFF0000, 0, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF, 0}));
  EXPECT_EQ(ReadCursorPicture(With(Cursor(), 86, {99}))->argb[0], 0xFF000000U);  // a colour that isn't there
  EXPECT_EQ(ReadCursorPicture(With(Cursor(), 10, {200}))->hotX, 2);              // outside
}

TEST(CursorPicture, RefusesWhatItCantRead) {
  // clang-format off
  for (const auto& [what, at, bytes] : Table<const char*, std::size_t, Bytes>{
           {"another type", 2, {3}}, {"no picture", 4, {0}}, {"size", 14, Le32(0x7FFFFFFF)},
           {"offset", 18, Le32(0xFFFFFFF0)}, {"PNG", 22, {0x89, 'P', 'N', 'G'}}, {"old header", 22, Le32(12)},
           {"no width", 26, Le32(0)}, {"wide", 26, Le32(257)}, {"negative width", 26, Le32(0xFFFFFFFD)},
           {"no height", 30, Le32(1)}, {"tall", 30, Le32(514)}, {"top down", 30, Le32(0xFFFFFFFC)},
           {"2 bits", 36, {2}}, {"16 bits", 36, {16}}, {"compressed", 38, Le32(1)}, {"colours", 54, Le32(257)},
           {"all colours", 54, Le32(0xFFFFFFFF)}})
    // clang-format on
    EXPECT_FALSE(ReadCursorPicture(With(Cursor(), at, bytes))) << what;
  const Bytes whole = Cursor();
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(ReadCursorPicture(std::span(whole).first(length))) << length;
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
  const Bytes icon = Chunk("icon", Cursor()), fram{'f', 'r', 'a', 'm'}, one = Chunk("LIST", fram + icon);
  const Bytes two = Chunk("LIST", fram + icon + icon), bad = Chunk("LIST", fram + icon + Chunk("icon", {1, 2, 3}));
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
           {"a bad frame", Ani(Header(2, 2, 1) + bad), "nothing"},
           {"steps without end", Ani(Header(2, 0xFFFFFFFF, 3) + order + two), "nothing"},
           {"another form", Chunk("RIFF", Bytes{'W', 'A', 'V', 'E'} + Header(2, 2, 1) + two), "nothing"}})
    // clang-format on
    EXPECT_EQ(StepsOf(file), steps) << what;
  const Bytes whole = Ani(Header(2, 3, 3) + order + two);
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(ReadAni(std::span(whole).first(length))) << length;
}

}  // namespace
}  // namespace pyxis::test
