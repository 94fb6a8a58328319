// Animated cursors: the order and the length of the steps, and the ways in which a file can be broken.
#include "view/ani_file.h"

#include "data/cases.h"
#include "platform/byte_order.h"

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

// A file of chunks: "anih frames steps flags", "rate ticks…", "seq frames…", "fram count…" a list of frames of so many
// bytes, 0 for a stranger among them, "list INFO" a list of something else, other names with one byte.
Bytes Ani(const std::string& chunks, const std::string& form = "ACON") {
  Bytes file(form.begin(), form.end());
  for (const std::string& chunk : Parts(chunks, ',')) {
    const Texts words = Parts(chunk, ' ');
    Bytes data;
    for (std::size_t i = 1; i < words.size(); ++i) {
      if (words[0] == "list") continue;
      const auto number = static_cast<std::uint32_t>(std::stoul(words[i]));
      if (words[0] == "fram")
        data = data + Chunk(number == 0 ? "JUNK" : "icon", Bytes(number, static_cast<std::uint8_t>(i)));
      if (words[0] != "fram") data = data + Le32(number);
    }
    if (words[0] == "anih" && words.size() == 4)
      data = Le32(36) + Part(data, 0, 8) + Bytes(16) + Le32(7) + Part(data, 8, 4);
    if (words[0] == "fram") data = Bytes{'f', 'r', 'a', 'm'} + data;
    if (words[0] == "list") data = Bytes{'I', 'N', 'F', 'O'} + Bytes(9, 0xFF);
    file = file + Chunk(words[0] == "fram" || words[0] == "list" ? "LIST"
                        : words[0] == "seq"                      ? "seq "
                                                                 : words[0],
                        data);
  }
  return Chunk("RIFF", file);
}

std::string StepsOf(const Bytes& file) {
  const auto cursor = ReadAni(file);
  if (!cursor) return "nothing";
  std::string text;
  for (const auto& step : cursor->steps) text += std::to_string(step.frame) + ":" + std::to_string(step.ticks) + " ";
  return text;
}

TEST(AniFile, StepsComeFromRateAndSequence) {
  ForEachCase("ani_files.tsv", "steps", [](const Case& c) { EXPECT_EQ(StepsOf(Ani(c[0])), c[1]); });
  EXPECT_EQ(StepsOf(Ani("anih 2 2 1,fram 3 1", "WAVE")), "nothing");
  const Bytes whole = Ani("anih 2 3 3,seq 0 1 0,fram 3 1");
  const auto cursor = ReadAni(whole);
  ASSERT_EQ(cursor->frames.size(), 2U);
  EXPECT_EQ(Bytes(cursor->frames[0].begin(), cursor->frames[0].end()), (Bytes{1, 1, 1}));
  EXPECT_EQ(Bytes(cursor->frames[1].begin(), cursor->frames[1].end()), (Bytes{2}));
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(ReadAni(std::span(whole).first(length))) << length;
  // Far more frames and steps than any cursor has.
  const auto many = [](int count, const char* word) {
    std::string text;
    for (int i = 0; i < count; ++i) text += word;
    return text;
  };
  EXPECT_TRUE(ReadAni(Ani("anih 256 256 1,fram" + many(256, " 1"))));
  EXPECT_FALSE(ReadAni(Ani("anih 257 257 1,fram" + many(257, " 1"))));
  EXPECT_TRUE(ReadAni(Ani("anih 1 1024 3,fram 1,seq" + many(1024, " 0"))));
  EXPECT_FALSE(ReadAni(Ani("anih 1 1025 3,fram 1,seq" + many(1025, " 0"))));
  Bytes overlong = Ani("anih 2 2 1,fram 3 1,INAM 1");
  EXPECT_TRUE(ReadAni(overlong));
  overlong[overlong.size() - 8] = 5;  // of 4 bytes
  EXPECT_FALSE(ReadAni(overlong));
  Bytes inner = Ani("anih 1 1 1,fram 3 1");
  inner[inner.size() - 6] = 3;  // of 1 byte and its padding
  EXPECT_FALSE(ReadAni(inner));
}

}  // namespace
}  // namespace pyxis::test
