// What the records say of protection, comparison and menus, against lists of the ICs; and an invented IC.
#include <set>
#include <sstream>

#include "catalogue/rows.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

std::set<std::string> Names(const std::string& text) {
  std::istringstream in(text);
  std::set<std::string> names;
  for (std::string name; in >> name;) EXPECT_TRUE(names.insert(name).second) << name;
  return names;
}

class IcRecords : public Bench {};

TEST_F(IcRecords, ProtectionOfEverySelectableIc) {
  struct Group {
    const char* chips;
    std::size_t byte;
    int bit;
    bool setProtects, inConfigWord;
    PanelKind panel;
  };
  // clang-format off
  const Group groups[] = {
      {"QVL13 QV4105 QVL07", 36, 0, false, false, PanelKind::ProtectionOnly},
      {"QV4106 QV4103", 37, 0, false, false, PanelKind::ProtectionOnly},
      {"QVL04 QVL05 QVL06", 36, 0, false, false, PanelKind::Full},
      {"QV4101 QV4107 QV4201 QV4203 QV4204 QV4205 QV4206 QV4207", 43, 0, true, false, PanelKind::ProtectionOnly},
      {"QV8101 QV8102 QV8103 QV8104 QV8105 QV8106 QV8108 QV8111 QV8113 QV8115 QV8117 QV8119 QV8120 QV8121 QV8122",
       36, 7, true, true, PanelKind::None},
      {"QV8202 QV8301 QV8302 QV8303 QV8304 QV8305 QV8306 QV8307 QV8309 QV8310 QV8311 QV8312 QV8315 QV8316 QV8317 "
       "QV8318 QV8319 QV8321 QV8322 QVL09 QVL10 QVL11 QVL12", 36, 5, false, true, PanelKind::None},
  };
  // clang-format on
  const Group others{"", 36, 5, true, true, PanelKind::None};
  const std::set<std::string> fromFile = Names("QV4101 QV4107 QV4201 QV4203 QV4204 QV4205 QV4206 QV4207");
  const std::set<std::string> fromBlock = Names(
      "QVL13 QV4105 QVL07 QV4106 QV4103 QV4206 QV4207 QV4205 QV4107 QV4102 QV4204 QV4201 QV4203 QV4301 QV4104 QVL04 "
      "QVL05 QVL06");
  for (const Ic* ic : AllIcs()) {
    SCOPED_TRACE(ic->ChipName);
    const Protection& p = ic->protection;
    EXPECT_EQ(p.fromBlock, fromBlock.contains(ic->ChipName));
    if (ic->series == Series::None) continue;
    const Group* wanted = &others;
    for (const Group& group : groups)
      if (Names(group.chips).contains(ic->ChipName)) wanted = &group;
    EXPECT_EQ(All(p.byte, p.bit, p.protectedBy == ProtectedBy::SetBit, p.inConfigWord, p.panel),
              All(wanted->byte, wanted->bit, wanted->setProtects, wanted->inConfigWord, wanted->panel));
    EXPECT_EQ(p.fromFile, fromFile.contains(ic->ChipName));
  }
  EXPECT_EQ(IcOfName("QV4104")->protection.protectedBy, ProtectedBy::ClearedBit);
}

TEST_F(IcRecords, MenusAndFiltersOfEveryIc) {
  const auto noSerial = Names(
      "QV4105 QV4106 QV4103 QV4206 QV4204 QV4203 QV4201 QV8369 QV4207 QV4205 QV4301 QV4101 QV8121 QV8122 QV8120 QV8119 "
      "QV8103 QV8104 QV8123 QV8105 QV8115 QV8117 QV8111 QV8113 QV8401 QV8106 QV8101 QV8102 QV8108 QV8116 QV8118 QV8112 "
      "QV8114 QV8107 QV8109");
  const auto noInfo =
      Names("QV4105 QV4106 QV4103 QV4206 QV4204 QV4203 QV4201 QV4207 QV4205 QV4107 QV4302 QV4101 QV4104");
  const std::pair<const char*, std::set<std::string>> filters[] = {
      {"(*.Velmar)",
       Names("QV8103 QV8104 QV8105 QV8111 QV8113 QV8115 QV8117 QV8119 QV8120 QV8121 QV8122 QV8123 QV8401")},
      {"(*.obj)", Names("QVL01 QVL02 QVL03")},
      {"(*.otp)", Names("QV4103 QV4105 QV4106")},
      {"(*.epm)", Names("QV4101 QV4107 QV4201 QV4203 QV4204 QV4205 QV4206 QV4207")}};
  std::size_t found = 0;
  for (const Ic* ic : AllIcs()) {
    const std::string name = ic->ChipName;
    found += noSerial.contains(name) + noInfo.contains(name);
    EXPECT_EQ(All(ic->menus.serialNumberProgram, ic->menus.readChipInfo),
              All(!noSerial.contains(name), !noInfo.contains(name)))
        << name;
    std::string filter = "(*.hex)";
    for (const auto& [other, chips] : filters)
      if (chips.contains(name)) filter = other;
    EXPECT_NE(std::string(ic->comparison.filter).find(filter), std::string::npos) << name;
    const auto fill = Names("QVL04 QVL05 QVL06 QVL13").contains(name) ? HexFill::Bytes
                      : name == "QV8201"                              ? HexFill::ZeroWords
                                                                      : HexFill::BlankWords;
    if (ic->comparison.target == CompareKind::Target::IntelHex) {
      EXPECT_EQ(ic->comparison.fill, fill) << name;
    }
  }
  EXPECT_EQ(found, noSerial.size() + noInfo.size());
  EXPECT_EQ(All(IcOfName("qv8121"), IcOfName("QV8130"), IcOfCode(0)), All(nullptr, nullptr, nullptr));
}

// A new flash IC, a copy of QV8121 with a name and a code of its own.
constexpr Ic Invented(const char* name, std::uint32_t code, const char* label) {
  Ic ic = kQv81Ics[0];
  ic.ChipName = name;
  ic.ChipCode = code;
  ic.km48 = {label};
  return ic;
}

constexpr Ic kInvented = Invented("QV8130", 0x37062, "QV8130");
constexpr Ic kTwinName = Invented("QV8120", 0x37062, "QV8120");
constexpr Ic kTwinCode = Invented("QV8130", 0x3706, "QV8130");
constexpr Ic kForeignLabel = Invented("QV8130", 0x37062, "QV8121");

constexpr auto With(const Ic& more) {
  std::array<const Ic*, kIcs.size() + 1> ics{};
  for (std::size_t i = 0; i < kIcs.size(); ++i) ics[i] = kIcs[i];
  ics[kIcs.size()] = &more;
  return ics;
}
constexpr auto kWithInvented = With(kInvented);

static_assert(NamesAndCodesAreUnique(kWithInvented));
static_assert(!NamesAndCodesAreUnique(With(kTwinName)));
static_assert(!NamesAndCodesAreUnique(With(kTwinCode)));
static_assert(!IsWhole(kForeignLabel));

TEST_F(IcRecords, AnInventedIcHasItsRow) {
  constexpr std::size_t kCount = CountRows(kIcs) + 1;  // its label of the KM49 is the copied one, and not counted here
  Ic ic = kInvented;
  ic.km49 = kNoRow;
  std::vector<const Ic*> ics(kIcs.begin(), kIcs.end());
  ics.push_back(&ic);
  const auto rows = MakeCatalogue<kCount>(ics);
  const std::size_t behindQv81 =
      CountRows(kIcs, kSeriesLists[0]) + CountRows(kIcs, kSeriesLists[1]) + CountRows(kIcs, kSeriesLists[2]);
  EXPECT_EQ(All(std::string(rows[behindQv81].TypeLabel), rows[behindQv81].ic, rows[behindQv81].HasSmartOption),
            All("QV8130", &ic, true));
  EXPECT_STREQ(rows[behindQv81 + 1].TypeLabel, "QV8202");
}

}  // namespace
}  // namespace pyxis::test
