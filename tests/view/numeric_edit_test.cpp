// The rules of the number field: what each key lets in, what may be pasted, the menu's greying, radix.
#include "view/numeric_edit.h"

#include <gtest/gtest.h>

#include "support/bench.h"

namespace pyxis::test {
namespace {

using Command = CNumericEdit::Command;

// A field is written with its selection in brackets, or a bar for the caret: "0x[12]4", "1F|".
CNumericEdit Field(const std::string& shown) {
  CNumericEdit field;
  std::vector<std::size_t> marks;
  for (char c : shown) {
    if (c == '[' || c == ']' || c == '|')
      marks.push_back(field.text.size());
    else
      field.text += c;
  }
  field.start = marks.front();
  field.end = marks.back();
  return field;
}

TEST(NumericEdit, TypedCharacters) {
  // Each character with what goes in for it; a dot when it is dropped. Nothing goes in front of a prefix, but a
  // selection that reaches beyond it may be typed over.
  // clang-format off
  for (const auto& [shown, typed, passed] : Table<const char*, const char32_t*, const char*>{
           {"|", U"09afAF", "09AFAF"}, {"|", U"/:@GgxX`-. \u00E4\u0661", "............."}, {"0|", U"xXa", "xxA"}, {"0|12", U"x", "x"},
           {"1|", U"xX", ".."}, {"00|", U"x", "."}, {"0x1|", U"x5", ".5"}, {"|0x1", U"5x", ".."}, {"0|x1", U"5x", ".."},
           {"[0]x1", U"5", "."}, {"0x|1", U"5", "5"}, {"[0x]1", U"ax", "A."}, {"0[x1]", U"x5", "x5"}, {"0[x]1", U"x", "x"},
           {"|0X1", U"5", "."}, {"0|1", U"5", "5"}}) {
    // clang-format on
    std::string result;
    for (const char32_t* c = typed; *c != 0; ++c) result += Field(shown).Typed(*c).value_or('.');
    EXPECT_EQ(result, passed) << shown;
  }
  for (const auto& [shown, length, passes] : Table<const char*, std::size_t, bool>{
           {"12|", 2, false}, {"12|", 3, true}, {"[1]2", 2, true}, {"[1]2", 1, false}}) {
    CNumericEdit field = Field(shown);
    field.maxLength = length;
    EXPECT_EQ(field.Typed(U'3').has_value(), passes) << shown << length;
  }
}

TEST(NumericEdit, BackspaceDeleteAndCut) {
  // The 0 of a prefix stays while its x stands; the x can go.
  // clang-format off
  for (const auto& [shown, backspace, del, cut] : Table<const char*, bool, bool, bool>{
           {"|0x1", true, false, true}, {"0|x1", false, true, true}, {"0x|1", true, true, true},
           {"[0]x1", false, false, false}, {"[0x]1", true, true, true}, {"0[x]1", true, true, true},
           {"[0]X", false, false, false}, {"0[x1]", true, true, true},
           {"|01", true, true, true}, {"0|1", true, true, true}, {"[0]1", true, true, true}, {"[0]", true, true, true}}) {
    // clang-format on
    CNumericEdit field = Field(shown);
    EXPECT_EQ(All(field.BackspacePasses(), field.DeletePasses(), field.CutPasses()), All(backspace, del, cut)) << shown;
    field.readOnly = true;
    EXPECT_FALSE(field.BackspacePasses() || field.DeletePasses() || field.CutPasses() || field.Typed(U'1') ||
                 field.PastePasses("1"));
  }
}

TEST(NumericEdit, Pastes) {
  // clang-format off
  for (const auto& [shown, pasted, passes] : Table<const char*, const char*, bool>{
           {"|", "12aB", true}, {"|", "0X1f", true}, {"|", "0x", true}, {"|", "1G", false}, {"|", "12\n", false},
           {"|", "0x0x1", false}, {"|", "1x", false}, {"|", "x1", false}, {"|", "", true},
           {"0|", "x1", true}, {"0|", "X1", true}, {"0|5", "x1", true}, {"0|", "xx", false}, {"1|", "x1", false}, {"0|", "0x1", false}, {"1|", "0x1", false},
           {"|12", "0x5", true}, {"|12", "x5", false},
           {"0|x1", "5", false}, {"[0]x1", "5", false}, {"|0x1", "5", false}, {"0x|1", "5", true}, {"0x|1", "0x5", false},
           {"[0x]1", "0x5", true}, {"[0x1]2", "34", true}, {"0[x1]2", "x7", true}, {"0[x1]2", "34", true}, {"0[x]1", "x", true},
           {"0[x1]2", "0x7", false}, {"[0x]1", "5", true},
           {"[0]0x", "1", false}}) {  // no field comes to the last one by keys; it stays as it is
    // clang-format on
    EXPECT_EQ(Field(shown).PastePasses(pasted), passes) << shown << " " << pasted;
  }
  for (const auto& [shown, pasted, passes] : Table<const char*, const char*, bool>{
           {"1|9", "23", true}, {"1|9", "234", false}, {"[19]", "2345", true}, {"[19]", "23456", false}}) {
    CNumericEdit field = Field(shown);
    field.maxLength = 4;  // not whole: a number cut off is another one
    EXPECT_EQ(field.PastePasses(pasted), passes) << shown << " " << pasted;
  }
}

TEST(NumericEdit, MenuGreying) {
  using enum CNumericEdit::Command;
  const auto enabled = [](const CNumericEdit& field, const std::optional<std::string>& clipboard) {
    std::string text;
    for (const auto& row : CNumericEdit::kMenu) text += field.CommandEnabled(row.command, clipboard) ? 'y' : '-';
    return text;
  };
  // clang-format off
  for (const auto& [shown, writable, readOnly] : Table<const char*, const char*, const char*>{
           {"|", "y--y---", "-------"}, {"0x|", "y--y-y-", "-----y-"}, {"[0]x1", "y-y--yy", "--y--yy"},
           {"0[x]1", "yyyyyyy", "--y--yy"}, {"[12]", "yyyyy-y", "--y---y"}, {"01|", "y--y-yy", "-----yy"},
           {"1|", "y--y-yy", "-----yy"}}) {
    // clang-format on
    CNumericEdit field = Field(shown);
    field.canUndo = true;
    EXPECT_EQ(enabled(field, "7"), writable) << shown;
    field.readOnly = true;
    EXPECT_EQ(enabled(field, "7"), readOnly) << shown;
  }
  EXPECT_EQ(enabled(Field("0[x]1"), std::nullopt), "-yy-yyy");
  EXPECT_EQ(enabled(Field("0[x]1"), "g"), "-yy-yyy");
}

TEST(NumericEdit, RadixAndValue) {
  // clang-format off
  for (const auto& [text, hex, value, converted] : Table<const char*, bool, std::uint32_t, const char*>{
           {"16", false, 16, "0x10"}, {"0x10", true, 16, "16"}, {"1F", true, 31, "31"}, {"0X1f", true, 31, "31"},
           {"f", true, 15, "15"}, {"010", false, 10, "0xA"}, {"171", false, 171, "0xAB"},
           {"0xFFFFFFFF", true, 0xFFFFFFFF, "4294967295"}, {"4294967295", false, 0xFFFFFFFF, "0xFFFFFFFF"},
           {"", false, 0, "0x0"}, {"0x", true, 0, "0"}, {"0x1z", true, 0, "0"}, {"4294967296", false, 0, "4294967296"},
           {"123456789ABCDEF01", true, 0, "123456789ABCDEF01"}}) {
    // clang-format on
    const CNumericEdit field{text};
    EXPECT_EQ(All(field.HexMode(), field.GetValue(), field.ConvertRadix()), All(hex, value, std::string(converted)))
        << text;
  }
  EXPECT_EQ(CNumericEdit::Format(0xAB, true), "0xab");
  EXPECT_EQ(CNumericEdit::Format(0xFFFFFFFF, false), "4294967295");
}

}  // namespace
}  // namespace pyxis::test
