#include "view/ani_file.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/byte_order.h"
#include "pyxisfolder/drawing/cursors.h"

namespace pyxis::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes operator+(Bytes a, const Bytes& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

Bytes Le32(std::uint32_t value) {
  Bytes bytes(4);
  StoreLe32(bytes.data(), value);
  return bytes;
}

Bytes Chunk(const std::string& name, const Bytes& data) {
  return Bytes(name.begin(), name.end()) + Le32(static_cast<std::uint32_t>(data.size())) + data +
         Bytes(data.size() % 2);
}

// A 3 x 2 picture with the hot spot 2, 1. `body` is colours, pixels and mask.
Bytes Cursor(std::uint8_t bits, const Bytes& body, std::uint8_t type = 2, std::uint8_t colors = 0) {
  const Bytes bitmap = Le32(40) + Le32(3) + Le32(4) + Bytes{1, 0, bits, 0} + Le32(0) + Le32(0) + Le32(0) + Le32(0) +
                       Le32(colors) + Le32(0) + body;
  return Bytes{0, 0, type, 0, 1, 0, 3, 2, 0, 0, 2, 0, 1, 0} + Le32(static_cast<std::uint32_t>(bitmap.size())) +
         Le32(22) + bitmap;
}

// Lower line first. Upper pixels: red, see-through, green; lower: blue, white, see-through.
const Bytes kMask{0x20, 0, 0, 0, 0x40, 0, 0, 0};
const Bytes kColors{0, 0, 0,   0, 0, 0, 255, 0,   0,   255,
                    0, 0, 255, 0, 0, 0, 255, 255, 255, 0};  // black red green blue white
const std::vector<std::uint32_t> kPixels{0xFFFF0000, 0, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF, 0};

Bytes Cursor8() { return Cursor(8, kColors + Bytes{3, 4, 0, 0, 1, 0, 2, 0} + kMask, 2, 5); }

TEST(CursorPicture, ReadsEveryDepth) {
  struct Case {
    const char* what;
    Bytes file;
    std::vector<std::uint32_t> pixels;
  };
  const std::uint32_t k = 0xFF000000, w = 0xFFFFFFFF;
  for (const Case& c : {
           Case{"1 bit",
                Cursor(1, Bytes{0, 0, 0, 0, 255, 255, 255, 0, 0x40, 0, 0, 0, 0x80, 0, 0, 0} + kMask),
                {w, 0, k, k, w, 0}},
           Case{"4 bits", Cursor(4, kColors + Bytes{0x34, 0, 0, 0, 0x10, 0x20, 0, 0} + kMask, 2, 5), kPixels},
           Case{"8 bits", Cursor8(), kPixels},
           Case{"a colour that isn't there is black",
                Cursor(8, kColors + Bytes{3, 4, 0, 0, 99, 0, 2, 0} + kMask, 2, 5),
                {k, 0, kPixels[2], kPixels[3], w, 0}},
           Case{"24 bits",
                Cursor(24, Bytes{255, 0, 0, 255, 255, 255, 0, 0, 0, 0, 0, 0, 0, 0, 255, 0, 0, 0, 0, 255, 0, 0, 0, 0} +
                               kMask),
                kPixels},
           Case{"inverting pixels are black",
                Cursor(24, Bytes{255, 0, 0, 255, 255, 255, 9, 9, 9, 0, 0, 0, 0, 0, 255, 0, 0, 0, 0, 255, 0, 0, 0, 0} +
                               kMask),
                {kPixels[0], 0, kPixels[2], kPixels[3], w, k}},
           Case{"32 bits with alpha, the mask not looked at",
                Cursor(32,
                       Le32(0xFF0000FF) + Le32(0x80FFFFFF) + Le32(0) + Le32(0xFFFF0000) + Le32(0) + Le32(0xFF00FF00)),
                {kPixels[0], 0, kPixels[2], kPixels[3], 0x80FFFFFF, 0}},
           Case{"32 bits without alpha",
                Cursor(32, Le32(0xFF) + Le32(0xFFFFFF) + Le32(0) + Le32(0xFF0000) + Le32(0) + Le32(0xFF00) + kMask),
                kPixels},
       }) {
    SCOPED_TRACE(c.what);
    const auto picture = ReadCursorPicture(c.file);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 3);
    EXPECT_EQ(picture->height, 2);
    EXPECT_EQ(picture->hotX, 2);
    EXPECT_EQ(picture->hotY, 1);
    EXPECT_EQ(picture->argb, c.pixels);
  }
  Bytes icon = Cursor8();
  icon[2] = 1;
  EXPECT_EQ(ReadCursorPicture(icon)->hotX, 1);  // the middle
  Bytes outside = Cursor8();
  outside[10] = 200;
  EXPECT_EQ(ReadCursorPicture(outside)->hotX, 2);
}

TEST(CursorPicture, RefusesWhatItCantRead) {
  struct Case {
    const char* what;
    std::size_t at;
    Bytes bytes;
  };
  for (const Case& c :
       {Case{"another type", 2, {3}}, Case{"no picture", 4, {0}}, Case{"size", 14, Le32(0x7FFFFFFF)},
        Case{"offset", 18, Le32(0xFFFFFFF0)}, Case{"PNG", 22, {0x89, 'P', 'N', 'G'}}, Case{"old header", 22, Le32(12)},
        Case{"no width", 26, Le32(0)}, Case{"wide", 26, Le32(257)}, Case{"negative width", 26, Le32(0xFFFFFFFD)},
        Case{"no height", 30, Le32(1)}, Case{"tall", 30, Le32(514)}, Case{"top down", 30, Le32(0xFFFFFFFC)},
        Case{"2 bits", 36, {2}}, Case{"16 bits", 36, {16}}, Case{"compressed", 38, Le32(1)},
        Case{"colours", 54, Le32(257)}, Case{"all colours", 54, Le32(0xFFFFFFFF)}}) {
    Bytes file = Cursor8();
    std::copy(c.bytes.begin(), c.bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(c.at));
    EXPECT_FALSE(ReadCursorPicture(file)) << c.what;
  }
  const Bytes whole = Cursor8();
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(ReadCursorPicture(std::span(whole).first(length))) << length;
}

Bytes Header(std::uint32_t frames, std::uint32_t steps, std::uint32_t flags) {
  return Chunk("anih", Le32(36) + Le32(frames) + Le32(steps) + Bytes(16) + Le32(7) + Le32(flags));
}
Bytes Frames(const std::vector<Bytes>& frames) {
  Bytes list{'f', 'r', 'a', 'm'};
  for (const Bytes& frame : frames) list = list + Chunk("icon", frame);
  return Chunk("LIST", list);
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
  const Bytes two = Frames({Cursor8(), Cursor8()});
  const Bytes rates = Chunk("rate", Le32(1) + Le32(0) + Le32(99999));
  const Bytes order = Chunk("seq ", Le32(0) + Le32(1) + Le32(0));
  struct Case {
    const char* what;
    Bytes file;
    const char* steps;
  };
  for (const Case& c : {
           Case{"neither", Ani(Header(2, 2, 1) + two), "0:7 1:7 "},
           Case{"rates", Ani(Header(2, 2, 1) + rates + two), "0:1 1:1 "},
           Case{"both, and an odd stranger", Ani(Chunk("INAM", {1}) + Header(2, 3, 3) + rates + order + two),
                "0:1 1:1 0:3600 "},
           Case{"sequence behind the frames", Ani(Header(2, 3, 3) + two + order), "0:7 1:7 0:7 "},
           Case{"sequence too short", Ani(Header(2, 4, 3) + order + two), "nothing"},
           Case{"rates too short", Ani(Header(2, 2, 1) + Chunk("rate", Le32(1)) + two), "nothing"},
           Case{"sequence names a frame that isn't there", Ani(Header(1, 3, 3) + order + Frames({Cursor8()})),
                "nothing"},
           Case{"a sequence of no steps", Ani(Header(2, 0, 3) + order + two), "nothing"},
           Case{"a frame is missing", Ani(Header(3, 3, 1) + two), "nothing"},
           Case{"no frames", Ani(Header(0, 0, 1) + Frames({})), "nothing"},
           Case{"bare bitmaps", Ani(Header(2, 2, 0) + two), "nothing"},
           Case{"no header", Ani(two), "nothing"},
           Case{"short header", Ani(Chunk("anih", Bytes(35, 1)) + two), "nothing"},
           Case{"a bad frame", Ani(Header(2, 2, 1) + Frames({Cursor8(), {1, 2, 3}})), "nothing"},
           Case{"steps without end", Ani(Header(2, 0xFFFFFFFF, 3) + order + two), "nothing"},
           Case{"another form", Chunk("RIFF", Bytes{'W', 'A', 'V', 'E'} + Header(2, 2, 1) + two), "nothing"},
       })
    EXPECT_EQ(StepsOf(c.file), c.steps) << c.what;
  const Bytes whole = Ani(Header(2, 3, 3) + order + two);
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(ReadAni(std::span(whole).first(length))) << length;
}

TEST(AniFile, TheProgramFoldersCursorsMove) {
  for (const folder::Animation& drawn : {folder::DrawMetronome(), folder::DrawDinosaur()}) {
    const auto cursor = ReadAni(folder::MakeAni(drawn));
    ASSERT_TRUE(cursor);
    ASSERT_EQ(cursor->frames.size(), drawn.frames.size());
    for (std::size_t i = 0; i < drawn.frames.size(); ++i) {
      const folder::Canvas& picture = drawn.frames[i].picture;
      const CursorPicture& frame = cursor->frames[i];
      ASSERT_EQ(frame.argb.size(), 32U * 32U);
      for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x) {
          const folder::Color c = picture.At(x, y);
          EXPECT_EQ(frame.argb[static_cast<std::size_t>(y * 32 + x)],
                    (std::uint32_t{c.a} << 24) | (std::uint32_t{c.r} << 16) | (std::uint32_t{c.g} << 8) | c.b);
        }
      EXPECT_NE(frame.argb, cursor->frames[(i + 1) % drawn.frames.size()].argb);
    }
  }
}

}  // namespace
}  // namespace pyxis::test
