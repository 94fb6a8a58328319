// The number field: what each key lets in, pastes, the menu and its greying, radix and colours.
#include "view/numeric_edit.h"

#include "support/bench.h"

namespace pyxis::test {
namespace {

using Command = CNumericEdit::Command;

// A field is written with its selection in brackets, or a bar for the caret: "0x[12]4", "1F|".
void Put(CNumericEdit& field, const std::string& shown) {
  std::string text;
  std::vector<std::size_t> marks;
  for (char c : shown) {
    if (c == '[' || c == ']' || c == '|')
      marks.push_back(text.size());
    else
      text += c;
  }
  field.SetText(text);
  field.Select(marks.front(), marks.back());
}

std::string Shown(const CNumericEdit& field) {
  std::string text = field.Text();
  if (field.Start() == field.End()) return text.insert(field.Start(), "|");
  return text.insert(field.End(), "]").insert(field.Start(), "[");
}

class NumericEdit : public Bench {
 protected:
  CNumericEdit field;
};

TEST_F(NumericEdit, Keys) {
  using Key = std::function<void(CNumericEdit&)>;
  const auto type = [](const char* text) -> Key {
    return [text](CNumericEdit& f) {
      for (const char* c = text; *c != '\0'; ++c) f.TypeCharacter(static_cast<unsigned char>(*c));
    };
  };
  const Key backspace = [](CNumericEdit& f) { f.Backspace(); };
  const Key del = [](CNumericEdit& f) { f.DeleteKey(); };
  const Key cut = [](CNumericEdit& f) { f.CutKey(); };
  // Nothing goes in front of a prefix, but a selection that reaches beyond it may be typed over. The 0 of a prefix
  // stays while its x stands; the x can go.
  // clang-format off
  for (const auto& [before, key, after] : Table<const char*, Key, const char*>{
           {"|", type("g -.\xE4"), "|"}, {"|", type("b9F"), "B9F|"}, {"|", type("0X1f"), "0x1F|"},
           {"1|", type("x"), "1|"}, {"|", type("x"), "|"}, {"00|", type("x"), "00|"}, {"0|12", type("x"), "0x|12"},
           {"|0x1", type("5"), "|0x1"}, {"0|x1", type("5"), "0|x1"}, {"[0]x1", type("5"), "[0]x1"},
           {"0x|1", type("5"), "0x5|1"}, {"[0x]1", type("a"), "A|1"}, {"0[x1]", type("x"), "0x|"},
           {"0|x1", backspace, "0|x1"}, {"[0]x1", backspace, "[0]x1"}, {"0x|1", backspace, "0|1"},
           {"[0x]1", backspace, "|1"}, {"0|1", backspace, "|1"}, {"|1", backspace, "|1"}, {"|0x1", del, "|0x1"},
           {"[0]x1", del, "[0]x1"}, {"0|x1", del, "0|1"}, {"[0x]1", del, "|1"}, {"|01", del, "|1"}, {"1|", del, "1|"},
           {"[0]x1", cut, "[0]x1"}, {"[0x]1", cut, "|1"}, {"[0]1", cut, "|1"}}) {
    // clang-format on
    Put(field, before);
    key(field);
    EXPECT_EQ(Shown(field), after) << before;
  }
  Put(field, "1|");
  field.maxLength = 2;
  type("23")(field);
  EXPECT_EQ(Shown(field), "12|");
}

TEST_F(NumericEdit, Pastes) {
  // No field comes to the last one by keys; it stays as it is.
  // clang-format off
  for (const auto& [before, pasted, after] : Table<const char*, const char*, const char*>{
           {"|", "12aB", "12aB|"}, {"|", "0X1f", "0X1f|"}, {"|", "1G", "|"}, {"|", "12\n", "|"}, {"|", "0x0x1", "|"},
           {"|", "1x", "|"}, {"|", "x1", "|"}, {"0|", "x1", "0x1|"}, {"1|", "x1", "1|"}, {"0|", "0x1", "0|"},
           {"|12", "0x5", "0x5|12"}, {"0|x1", "5", "0|x1"}, {"[0]x1", "5", "[0]x1"}, {"0x|1", "5", "0x5|1"},
           {"0x|1", "0x5", "0x|1"}, {"[0x]1", "0x5", "0x5|1"}, {"[0x1]2", "34", "34|2"}, {"0[x1]2", "x7", "0x7|2"},
           {"0[x1]2", "34", "034|2"}, {"0[x1]2", "0x7", "0[x1]2"}, {"[1]0x", "0x", "[1]0x"}}) {
    // clang-format on
    Put(field, before);
    clipboard.text = pasted;
    EXPECT_EQ(field.CommandEnabled(Command::Paste), Shown(field) != after) << before << " " << pasted;
    field.PasteKey();
    EXPECT_EQ(Shown(field), after) << before << " " << pasted;
  }
  Put(field, "1|9");
  field.maxLength = 4;
  clipboard.text = "234";  // not whole: a number cut off is another one
  field.PasteKey();
  EXPECT_EQ(Shown(field), "1|9");
  clipboard.text = "23";
  field.PasteKey();
  EXPECT_EQ(Shown(field), "123|9");
  clipboard.text.reset();
  field.PasteKey();
  EXPECT_EQ(Shown(field), "123|9");
  EXPECT_TRUE(op.told.empty());
  clipboard.opens = false;
  EXPECT_FALSE(field.CommandEnabled(Command::Paste));
  field.PasteKey();
  EXPECT_EQ(op.Heard(), Texts{"Cannot open clipboard!"});
  Put(field, "[12]");
  field.CutKey();
  EXPECT_EQ(Shown(field), "[12]");
}

TEST_F(NumericEdit, MenuGreying) {
  using enum CNumericEdit::Command;
  const auto enabled = [&] {
    std::string text;
    for (const Command command : {Undo, Cut, Copy, Paste, Delete, SelectAll, Convert})
      text += field.CommandEnabled(command) ? 'y' : '-';
    return text;
  };
  clipboard.text = "7";
  // clang-format off
  for (const auto& [before, writable, readOnly] : Table<const char*, const char*, const char*>{
           {"|", "---y---", "-------"}, {"0x|", "---y-y-", "-----y-"}, {"[0]x1", "--y--yy", "--y--yy"},
           {"0[x]1", "-yyyyyy", "--y--yy"}, {"[12]", "-yyyy-y", "--y---y"}}) {
    // clang-format on
    Put(field, before);
    for (const bool locked : {false, true}) {
      field.readOnly = locked;
      EXPECT_EQ(enabled(), locked ? readOnly : writable) << before;
    }
  }
}

TEST_F(NumericEdit, MenuActions) {
  Put(field, "|");
  for (char32_t c : {U'1', U'2'}) field.TypeCharacter(c);
  clipboard.text = "0Xab";
  field.OnCommand(Command::Undo);
  EXPECT_EQ(Shown(field), "|");  // what was typed in one go
  EXPECT_EQ(clipboard.text, "0xAB");
  field.OnCommand(Command::Undo);
  EXPECT_EQ(field.Text(), "12");
  field.OnCommand(Command::SelectAll);
  EXPECT_EQ(Shown(field), "[12]");
  clipboard.text = "0xfe";
  field.OnCommand(Command::Paste);
  EXPECT_EQ(Shown(field), "0xFE|");
  field.Select(2, 4);
  field.OnCommand(Command::Cut);
  EXPECT_EQ(Shown(field), "0x|");
  EXPECT_EQ(clipboard.text, "FE");
  field.OnCommand(Command::Undo);
  field.OnCommand(Command::Delete);
  EXPECT_EQ(Shown(field), "0x|");
  clipboard.text = "say x";  // no number: normalised all the same
  field.OnCommand(Command::Undo);
  EXPECT_EQ(clipboard.text, "SAY x");
}

TEST_F(NumericEdit, RadixAndValue) {
  // clang-format off
  for (const auto& [text, hex, value, converted] : Table<const char*, bool, std::uint32_t, const char*>{
           {"16", false, 16, "0x10"}, {"0x10", true, 16, "16"}, {"1F", true, 31, "31"}, {"0X1f", true, 31, "31"},
           {"0xFFFFFFFF", true, 0xFFFFFFFF, "4294967295"}, {"4294967295", false, 0xFFFFFFFF, "0xFFFFFFFF"},
           {"", false, 0, "0x0"}, {"0x", true, 0, "0"}, {"0x1z", true, 0, "0"},
           {"123456789ABCDEF01", true, 0, "123456789ABCDEF01"}}) {
    // clang-format on
    field.SetText(text);
    EXPECT_EQ(field.HexMode, hex) << text;
    EXPECT_EQ(field.GetValue(), value) << text;
    field.ConvertRadix();
    EXPECT_EQ(field.Text(), converted) << text;
  }
  field.SetValue(0xAB, true);
  EXPECT_EQ(field.Text(), "0xab");
  field.SetValue(0xFFFFFFFF, false);
  EXPECT_EQ(field.Text(), "4294967295");

  int changes = 0;
  field.TextChanged = [&] { ++changes; };
  Put(field, "|");
  for (char32_t c : {U'1', U'f', U'g'}) field.TypeCharacter(c);
  EXPECT_TRUE(field.HexMode);
  field.Backspace();
  EXPECT_FALSE(field.HexMode);
  EXPECT_EQ(changes, 4);  // emptied, two characters, one back
}

}  // namespace
}  // namespace pyxis::test
