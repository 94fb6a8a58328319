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

// A new flash IC, a copy of QV8121 with a name and a code of its own, or with a slip in its record.
constexpr Ic Invented(const auto& change) {
  Ic ic = kQv81Ics[0];
  ic.ChipName = "QV8199";
  ic.ChipCode = 0x37FFF;
  ic.km48 = {"QV8199"};
  ic.km49 = kNoRow;
  ic.pins = 16;
  change(ic);
  return ic;
}
constexpr Ic kInvented = Invented([](Ic&) {});
constexpr Ic kTwinName = Invented([](Ic& i) { i.ChipName = "QV8120"; });
constexpr Ic kTwinCode = Invented([](Ic& i) { i.ChipCode = 0x3706; });
constexpr auto With(const Ic& more) {
  std::array<const Ic*, kIcs.size() + 1> ics{};
  for (std::size_t i = 0; i < kIcs.size(); ++i) ics[i] = kIcs[i];
  ics.back() = &more;
  return ics;
}
static_assert(NamesAndCodesAreUnique(With(kInvented)) && IsWhole(kInvented));
static_assert(!NamesAndCodesAreUnique(With(kTwinName)) && !NamesAndCodesAreUnique(With(kTwinCode)));
constexpr bool Slips(const auto&... change) { return (!IsWhole(Invented(change)) && ...); }
static_assert(Slips([](Ic& i) { i.km48 = {"QV8121"}; }, [](Ic& i) { i.km48 = {"QV8199_x"}; },
                    [](Ic& i) { i.pins = kInLabel; }, [](Ic& i) { i.km49 = {"QV8199_8"}; },
                    [](Ic& i) { i.FileExtension = ".velmra"; }, [](Ic& i) { i.ReadSizeBytes = 0; },
                    [](Ic& i) { i.protection.bit = 5; }, [](Ic& i) { i.protection.bit = 8; },
                    [](Ic& i) { i.protection.byte = 900; }, [](Ic& i) { i.masks.km48[0] = 0x2000; },
                    [](Ic& i) { i.options = OptionChoice::AllBits; }, [](Ic& i) { i.options = OptionChoice::None; },
                    [](Ic& i) { i.ticks.blank = 0; }));

// Behind the last one of its list.
TEST_F(IcRecords, AnInventedIcHasItsRow) {
  constexpr auto kRows = MakeCatalogue<CountRows(kIcs) + 1>(With(kInvented));
  std::size_t at = 0;
  while (kRows[at].ic != &kInvented) ++at;
  EXPECT_EQ(All(std::string(kRows[at].TypeLabel), kRows[at].HasSmartOption, std::string(kRows[at + 1].TypeLabel)),
            All("QV8199", true, "QV8202"));
}

}  // namespace
}  // namespace pyxis::test
