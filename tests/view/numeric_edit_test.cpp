// The rules of the number field: what each key lets in, what may be pasted, the menu's greying, radix.
#include "view/numeric_edit.h"

#include "data/cases.h"

namespace pyxis::test {
namespace {

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

void ForEachField(const std::string& section, const std::function<void(CNumericEdit, const Case&)>& check) {
  ForEachCase("numeric_edit.tsv", section, [&](const Case& c) { check(Field(c[0]), c); });
}

TEST(NumericEdit, TypedAndPasted) {
  ForEachField("typed", [](CNumericEdit field, const Case& c) {
    if (c.cells.size() > 3) field.maxLength = static_cast<std::size_t>(c.Number(3));
    std::string result;
    for (const char typed : c[1]) result += field.Typed(static_cast<unsigned char>(typed)).value_or('.');
    EXPECT_EQ(result, c[2]);
  });
  EXPECT_FALSE(Field("|").Typed(U'\u0661'));
  ForEachField("pasted", [](CNumericEdit field, const Case& c) {
    if (c.cells.size() > 3) field.maxLength = static_cast<std::size_t>(c.Number(3));
    EXPECT_EQ(field.PastePasses(c[1]), c.Yes(2));
  });
}

TEST(NumericEdit, BackspaceDeleteAndCut) {
  ForEachField("removed", [](CNumericEdit field, const Case& c) {
    EXPECT_EQ(All(field.BackspacePasses(), field.DeletePasses(), field.CutPasses()), All(c.Yes(1), c.Yes(2), c.Yes(3)));
    field.readOnly = true;
    EXPECT_FALSE(field.BackspacePasses() || field.DeletePasses() || field.CutPasses() || field.Typed(U'1') ||
                 field.PastePasses("1"));
  });
}

TEST(NumericEdit, MenuGreying) {
  ForEachField("menu", [](CNumericEdit field, const Case& c) {
    field.canUndo = true;
    for (const std::size_t cell : {2U, 3U}) {
      std::string enabled;
      for (const auto& row : CNumericEdit::kMenu)
        enabled += field.CommandEnabled(row.command, c[1] == "none" ? std::nullopt : std::optional(c[1])) ? 'y' : '-';
      EXPECT_EQ(enabled, c[cell]);
      field.readOnly = true;
    }
  });
}

TEST(NumericEdit, RadixAndValue) {
  ForEachCase("numeric_edit.tsv", "radix", [](const Case& c) {
    const CNumericEdit field{c[0]};
    EXPECT_EQ(All(field.HexMode(), std::to_string(field.GetValue()), field.ConvertRadix()), All(c.Yes(1), c[2], c[3]));
  });
  EXPECT_EQ(CNumericEdit::Format(0xAB, true), "0xab");
  EXPECT_EQ(CNumericEdit::Format(0xFFFFFFFF, false), "4294967295");
}

}  // namespace
}  // namespace pyxis::test
