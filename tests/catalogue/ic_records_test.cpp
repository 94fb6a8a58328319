// What the records say of protection, comparison and menus, against lists of the ICs; and an invented IC.
#include <set>

#include "catalogue/rows.h"
#include "data/cases.h"

namespace pyxis::test {
namespace {

class IcRecords : public Bench {
 protected:
  // The names of a group.
  static std::set<std::string> Names(const std::string& section, const std::string& group) {
    std::set<std::string> names;
    for (const Case& c : Cases("ic_groups.tsv", section)) {
      if (c[0] != group) continue;
      for (const std::string& name : Parts(c[1], ' ')) EXPECT_TRUE(IcOfName(name) && names.insert(name).second) << name;
    }
    return names;
  }
};

// Where the protection lies, Set Protect's test tells.
TEST_F(IcRecords, PanelsMenusAndComparisonOfEveryIc) {
  std::map<std::string, std::string> pairs;
  for (const Case& c : Cases("ic_groups.tsv", "protection"))
    for (const std::string& name : Parts(c[0], ' ')) pairs[name] = c[6];
  const auto fromFile = Names("panel", "file"), fromBlock = Names("panel", "block");
  const auto noSerial = Names("menus", "no serial numbers"), noInfo = Names("menus", "no chip info");
  const auto both = Names("menus", "both entries");
  const auto bytes = Names("comparison", "bytes"), zeroWords = Names("comparison", "zero words");
  for (const Ic* ic : AllIcs()) {
    const std::string name = ic->ChipName;
    SCOPED_TRACE(name);
    EXPECT_EQ(ic->protection.fromBlock, fromBlock.contains(name));
    EXPECT_NE(both.contains(name), noSerial.contains(name) || noInfo.contains(name));
    EXPECT_EQ(All(ic->menus.serialNumberProgram, ic->menus.readChipInfo),
              All(!noSerial.contains(name), !noInfo.contains(name)));
    std::string filter = "told nowhere";
    for (const char* one : {"(*.hex)", "(*.Velmar)", "(*.obj)", "(*.otp)", "(*.epm)"})
      if (Names("comparison", one).contains(name)) filter = one;
    EXPECT_NE(std::string(ic->comparison.filter).find(filter), std::string::npos);
    if (ic->comparison.target == CompareKind::Target::IntelHex) {
      EXPECT_EQ(ic->comparison.mode, bytes.contains(name)       ? kReadBytes
                                     : zeroWords.contains(name) ? kReadZeroWords
                                                                : kReadBlankWords);
    }
    if (ic->series == Series::None) continue;
    EXPECT_EQ(ic->protection.fromFile, fromFile.contains(name));
    const std::string panel = pairs[name];
    EXPECT_NE(panel, "");
    EXPECT_EQ(ic->protection.panel, panel == "all"   ? PanelKind::Full
                                    : panel == "one" ? PanelKind::ProtectionOnly
                                                     : PanelKind::None);
  }
  EXPECT_EQ(IcOfName("QV4104")->protection.protectedBy, ProtectedBy::ClearedBit);
  EXPECT_EQ(All(IcOfName("qv8121"), IcOfName("QV9999"), IcOfCode(0)), All(nullptr, nullptr, nullptr));
}

// A new flash IC, a copy of QV8121 with a name and a code of its own.
TEST_F(IcRecords, AnInventedIcHasItsRowAndNoTwin) {
  const auto invented = [](const char* name, std::uint32_t code, const char* label) {
    Ic ic = kQv81Ics[0];
    ic.ChipName = name;
    ic.ChipCode = code;
    ic.km48 = {label};
    ic.km49 = kNoRow;
    ic.pins = 16;
    return ic;
  };
  const auto with = [](const Ic& more) {
    std::vector<const Ic*> ics(kIcs.begin(), kIcs.end());
    ics.push_back(&more);
    return ics;
  };
  const Ic ic = invented("QV8199", 0x37FFF, "QV8199"), twinName = invented("QV8120", 0x37FFF, "QV8120");
  const Ic twinCode = invented("QV8199", 0x3706, "QV8199"), foreignLabel = invented("QV8199", 0x37FFF, "QV8121");
  EXPECT_TRUE(NamesAndCodesAreUnique(with(ic)) && IsWhole(ic));
  EXPECT_FALSE(NamesAndCodesAreUnique(with(twinName)) || NamesAndCodesAreUnique(with(twinCode)) ||
               IsWhole(foreignLabel));
  // What a slip in its record would be.
  const auto slip = [&ic](const auto& change) {
    Ic other = ic;
    change(other);
    return IsWhole(other);
  };
  EXPECT_FALSE(slip([](Ic& i) { i.FileExtension = ".velmra"; }) || slip([](Ic& i) { i.ReadSizeBytes = 0; }) ||
               slip([](Ic& i) { i.protection.bit = 5; }) || slip([](Ic& i) { i.protection.bit = 8; }) ||
               slip([](Ic& i) { i.protection.byte = 900; }) || slip([](Ic& i) { i.masks.km48[0] = 0x2000; }) ||
               slip([](Ic& i) { i.options = OptionChoice::AllBits; }) || slip([](Ic& i) { i.ticks.blank = 0; }));
  const auto rows = MakeCatalogue<CountRows(kIcs) + 1>(with(ic));
  std::size_t at = 0;
  while (rows[at].ic != &ic) ++at;
  EXPECT_EQ(All(std::string(rows[at].TypeLabel), rows[at].HasSmartOption, std::string(rows[at + 1].TypeLabel)),
            All("QV8199", true, "QV8202"));
}

}  // namespace
}  // namespace pyxis::test
