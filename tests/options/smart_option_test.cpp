#include "options/smart_option.h"

#include <bit>

#include "catalogue/chip_catalogue.h"
#include "options/tin_file.h"
#include "pyxisfolder/folder.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class SmartOption : public Bench {
 protected:
  SmartOption() { AllocateSmartOptionBuffer(); }

  int Read(const std::string& text) {
    WriteText("a.tin", text);
    return ReadTinFile(Path("a.tin"));
  }
  static Texts Labels() {
    Texts labels;
    for (const SmartOptionRow& row : CurrentRows()) labels.emplace_back(LabelOf(row));
    return labels;
  }
  static std::vector<Texts> Alternatives() {
    std::vector<Texts> all;
    for (const SmartOptionRow& row : CurrentRows()) all.push_back(AlternativesOf(row));
    return all;
  }
  static std::vector<int> Addresses() {
    std::vector<int> all;
    for (const SmartOptionRow& row : CurrentRows()) all.push_back(row.SwitchAddress);
    return all;
  }
};

TEST_F(SmartOption, WhatIsACaption) {
  const std::string longLine(300, 'a');
  // clang-format off
  for (const auto& [name, text, labels] : Table<const char*, std::string, Texts>{
           {"one row is bare", "[MENU]\nWatchdog\n", {"Watchdog"}},
           {"more are numbered", "[MENU]\r\nA1\r\nB2\r\n", {"01. A1", "02. B2"}},
           {"comments and short lines", "[MENU]\n;no\n*no\nA\n\r\nAB\nCD", {"AB"}},
           {"the end of the file counts for nothing", "[MENU]\nABC", {"ABC"}},
           {"a header ends it", "[MENU]\nABC\n[x] y\nDEF\n", {"ABC"}},
           {"an open bracket doesn't", "[MENU]\n[ABC\nDEF\n", {"01. [ABC", "02. DEF"}},
           {"a point ends it", "[MENU]\nABC\n.end\nDEF\n", {"ABC"}},
           {"a point alone too", "[MENU]\nABC\n.\nDEF\n", {"ABC"}},
           {"a header anywhere in its line", "; x [MENU] y\nABC\n[MENU]\nDEF\n", {"ABC"}},
           {"behind another section", "[ITEM]\nx\x01y\n[MENU]\nABC\n", {"ABC"}},
           {"a long line is cut and keeps its row", "[MENU]\n" + longLine + "\nDEF\n",
            {"01. " + std::string(60, 'a'), "02. DEF"}},
           {"64 bytes fit", "[MENU]\n" + std::string(64, 'b') + "\n", {std::string(64, 'b')}},
           {"a zero byte ends its line", std::string("[MENU]\nAB\0CD\n\0EF\nGHI\n", 22), {"01. AB", "02. GHI"}},
           {"no line at all", "[MENU]\n", {}}}) {
    // clang-format on
    SCOPED_TRACE(name);
    EXPECT_EQ(Read(text), static_cast<int>(labels.size()));
    EXPECT_EQ(Labels(), labels);
  }
}

TEST_F(SmartOption, MoreThanEightRowsAreCut) {
  std::string menu = "[MENU]\n", items = "[ITEM]\n", switches = "[DIPSWITCH]\n";
  for (int i = 0; i < 12; ++i) {
    menu += "row\n";
    items += "a\x01z\n";
    switches += "10 " + std::string(100, ' ') + " 1\n";
  }
  EXPECT_EQ(Read(menu + items + "[FIRST]\n123456789ABC\n" + switches), 8);
  EXPECT_EQ(Labels().back(), "08. row");
  EXPECT_EQ((*TheSmartOptionBuffer())[8].Label[0], '\0');
  EXPECT_EQ(OptionChoices(), (std::array<std::int32_t, 9>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(SmartOption, Alternatives) {
  EXPECT_EQ(Read("[ITEM]\none\n.x\1y\n;no\n\1a\1\1b\1\n[MENU]\nAAA\nBBB\nCCC\nDDD\n"), 4);
  EXPECT_EQ(Alternatives(), (std::vector<Texts>{{"one"}, {".x", "y"}, {"a", "b"}, {}}));
  EXPECT_EQ(All(CurrentRows()[1].ItemsLength, CurrentRows()[1].ItemCount, CurrentRows()[3].ItemCount), All(5U, 2U, 0U));
}

TEST_F(SmartOption, TheTableOutlivesAReading) {
  ASSERT_EQ(Read("[MENU]\nAAA\nBBB\nCCC\n[ITEM]\na\x01z\nb\x01z\nc\x01z\n[DIPSWITCH]\n1 2\n1\n1\n"), 3);
  // Rows without a line of their own keep the alternatives, but not the address.
  ASSERT_EQ(Read("[MENU]\nDDD\nEEE\n[ITEM]\nd\x01y\x01z\n"), 2);
  EXPECT_EQ(Alternatives(), (std::vector<Texts>{{"d", "y", "z"}, {"b", "z"}}));
  EXPECT_EQ(CurrentRows()[0].ItemCount, 3U);
  EXPECT_EQ(Addresses(), (std::vector<int>{-1, -1}));
  // Without [MENU] all stays; a file that can't be read leaves no rows; a folder can't.
  EXPECT_EQ(Read("[ITEM]\nx\x01y\n"), 0);
  EXPECT_EQ(Labels(), (Texts{"01. DDD", "02. EEE"}));
  EXPECT_EQ(Alternatives()[0], (Texts{"d", "y", "z"}));
  EXPECT_EQ(ReadTinFile(folder.string()), 0);
  EXPECT_TRUE(Labels().empty());
}

TEST_F(SmartOption, Defaults) {
  const std::string menu = "[MENU]\nAAA\nBBB\nCCC\nDDD\n[FIRST]\n";
  // clang-format off
  for (const auto& [line, choices] : Table<const char*, std::array<std::int32_t, 9>>{
           {"23\n", {7, 2, 3, 7, 7, 7, 7, 7, 7}}, {"azAZ9\n", {7, 10, 35, 10, 35, 7, 7, 7, 7}},
           {"0-1\r\n2\n", {7, 7, 7, 1, 7, 7, 7, 7, 7}}, {"\n5\n", {7, 7, 7, 7, 7, 7, 7, 7, 7}},
           {";1*2", {7, 7, 1, 7, 2, 7, 7, 7, 7}}, {"", {7, 7, 7, 7, 7, 7, 7, 7, 7}}}) {
    // clang-format on
    SCOPED_TRACE(line);
    OptionChoices().fill(7);
    EXPECT_EQ(Read(menu + line), 4);
    EXPECT_EQ(OptionChoices(), choices);
  }
}

TEST_F(SmartOption, Switches) {
  std::string many = "10";
  for (int i = 1; i <= 40; ++i) many += " " + std::to_string(i);
  ASSERT_EQ(Read("[MENU]\na1\na2\na3\na4\na5\na6\na7\na8\n[DIPSWITCH]\nsw 9\n  3fC 0x1a  FF \n" + many +
                 "\n   \n.5\nFFFFFFFF 123456789\n;no\nzz\n[x]\n77\n"),
            8);
  EXPECT_EQ(Addresses(), (std::vector<int>{-1, 0x3FC, 0x10, -1, 0, 0x7FFFFFFF, 0, -1}));
}

TEST_F(SmartOption, HugeFilesAndAMissingTableGiveNoRows) {
  EXPECT_EQ(Read("[MENU]\nAAA\n" + std::string(1 << 20, 'x')), 0);
  EXPECT_TRUE(Labels().empty());
  FreeSmartOptionBuffer();
  OptionChoices()[1] = 5;
  EXPECT_EQ(Read("[MENU]\nAAA\nBBB\n[FIRST]\n1\n"), 0);
  EXPECT_EQ(OptionChoices()[1], 5);
  EXPECT_TRUE(CurrentRows().empty());
}

// Independent of the program's way: each bit of a field on its own.
std::int32_t InvertedField(std::uint32_t word, std::uint32_t mask) {
  std::int32_t value = 0;
  for (int bit = 31; bit >= 0; --bit)
    if ((mask >> bit & 1) != 0) value = value * 2 + ((word >> bit & 1) != 0 ? 0 : 1);
  return value;
}

TEST_F(SmartOption, UnpackingForEveryRowOfTheCatalogue) {
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& chip : ChipList(list)) {
      SCOPED_TRACE(chip.TypeLabel);
      int series = 0, type = 0;
      ASSERT_EQ(FindChip(chip.TypeLabel, series, type), 1);
      for (const std::int32_t word : {0xFFFF, 0, 0x5555, 0xAAAA, 0x2C80, 0x9240}) {
        OptionChoices().fill(-9);
        EXPECT_EQ(UnpackSystemConfig(word), 1);
        for (std::size_t i = 0; i < 9; ++i)
          EXPECT_EQ(OptionChoices()[i], InvertedField(static_cast<std::uint32_t>(word), chip.OptionMasks[i]));
      }
    }
  TheAppState().selection.OptionMasks = {0xC00, 0, 0x80000000};
  UnpackSystemConfig(0x03FF);
  EXPECT_EQ(OptionChoices(), (std::array<std::int32_t, 9>{3, 0, 0x4000}));  // at most 17 bits of shift
  OptionChoices().fill(4);
  EXPECT_EQ(UnpackSystemConfig(-1), 0);
  EXPECT_EQ(OptionChoices()[8], 4);
}

// The file of each IC has a row for each option, with the alternatives that its words select.
TEST_F(SmartOption, TheProgramFoldersFilesFitTheMasks) {
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& chip : ChipList(list)) {
      if (!chip.HasSmartOption) continue;
      SCOPED_TRACE(chip.TypeLabel);
      const auto bytes = pyxis::folder::MakeTin(chip.ChipName);
      Read({bytes.begin(), bytes.end()});
      for (std::size_t i = 0; i < 9 && chip.OptionMasks[i] != 0; ++i) {
        ASSERT_LT(i, CurrentRows().size());
        EXPECT_GE(AlternativesOf(CurrentRows()[i]).size(), 1U << std::popcount(chip.OptionMasks[i]));
      }
    }
}

// What Set Protect does to the word shows in words.
TEST_F(SmartOption, ProtectionReadsRight) {
  // clang-format off
  for (const auto& [chip, isProtected, isNot] : Table<const char*, std::int32_t, std::int32_t>{
           {"QV8348", 0x3FFF, 0x1FFF}, {"QV8309", 0x1FFF, 0x3FFF}, {"QV8103", 0xFFFF, 0x7FFF},
           {"QVL11", 0x1FFF, 0x3FFF}}) {
    // clang-format on
    SCOPED_TRACE(chip);
    const auto bytes = pyxis::folder::MakeTin(chip);
    int series = 0, type = 0;
    ASSERT_TRUE(FindChip(chip, series, type));
    ASSERT_GT(Read({bytes.begin(), bytes.end()}), 0);
    const auto shown = [&](std::int32_t word) {
      UnpackSystemConfig(word);
      return Alternatives()[0][static_cast<std::size_t>(OptionChoices()[0])];
    };
    EXPECT_EQ(shown(isProtected), "Protected");
    EXPECT_EQ(shown(isNot), "Not protected");
  }
}

}  // namespace
}  // namespace pyxis::test
