#include "catalogue/ic_select.h"

#include "catalogue/chip_catalogue.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class IcSelect : public Bench {
 protected:
  IcSelect() { TheAppState().writer.WriterModel = Model::Km48; }
  // A dialog that has just opened, with a click on the IC.
  CIcSelectDlg Clicked(const std::string& label) {
    CIcSelectDlg dialog;
    EXPECT_TRUE(dialog.OnInitDialog());
    Click(dialog, label);
    return dialog;
  }
  void Click(CIcSelectDlg& dialog, const std::string& label) {
    int series = 0, type = 0;
    ASSERT_EQ(FindChip(label, series, type), 1) << label;
    const int position = TheAppState().writer.WriterModel == Model::Km49 ? series - kFirstKm49List : series;
    if (position != dialog.seriesPosition) dialog.OnSeriesChange(position);
    dialog.OnTypeChange(type);
    EXPECT_EQ(All(dialog.seriesIndex, dialog.chipName), All(series, Row(series, type).ChipName));
  }
  static std::string Enabled(const CIcSelectDlg& d) {
    std::string text;
    for (const auto* box : {&d.displaySerial, &d.massProduction, &d.productionLimit, &d.exhvIsp, &d.isp})
      text += box->enabled ? 'y' : '-';
    return text;
  }
};

TEST_F(IcSelect, WhatTheBoxesOffer) {
  // serial, mass production, limit, EXHV ISP, ISP
  // clang-format off
  for (const auto& [offered, chips] : Table<const char*, std::vector<const char*>>{
           {"--y--", {"QV4101", "QV4103", "QV4107", "QV4206", "QV4203", "QV4205", "QV4207"}},
           {"y-y--", {"QV4201", "QV4204"}}, {"-yyyy", {"QV8101", "QV8102"}}, {"---y-", {"QVL07"}},
           {"yyyyy", {"QV8103", "QV8104", "QV8105", "QV8106", "QV8108", "QV8111", "QV8113", "QV8115", "QV8117",
                      "QV8119", "QV8120", "QVL09"}},
           {"yyyy-", {"QV8121", "QV8122", "QV8202", "QV8303", "QV8304", "QV8306", "QV8312", "QV8317", "QV8322",
                      "QVL10", "QVL11"}},
           {"yyy--", {"QV8323", "QV8301", "QV8315", "QV8501", "QVL01", "QVL03", "QVL04", "QVL06"}}})
    // clang-format on
    for (const char* chip : chips) EXPECT_EQ(Enabled(Clicked(chip)), offered) << chip;
}

TEST_F(IcSelect, BoxesThatAStepDoesNotNameStay) {
  CIcSelectDlg dialog = Clicked("QVL07");
  Click(dialog, "QVL12");
  EXPECT_EQ(Enabled(dialog), "---yy");
  Click(dialog, "QVL13");
  EXPECT_EQ(Enabled(dialog), "-----");
  Click(dialog, "QVL09");
  EXPECT_EQ(Enabled(dialog), "yyyyy");

  dialog = Clicked("QV4204");
  dialog.OnDisplaySerial(true);
  Click(dialog, "QV4203");
  EXPECT_FALSE(dialog.displaySerial.enabled);
  EXPECT_EQ(dialog.displaySerialValue, 1);  // disabled, but its check goes on counting
  dialog.OnSeriesChange(0);
  EXPECT_EQ(dialog.displaySerialValue, 0);
}

TEST_F(IcSelect, TheTwoIspModesExcludeEachOther) {
  CIcSelectDlg dialog = Clicked("QVL09");
  dialog.OnExhvIsp(true);
  EXPECT_FALSE(dialog.isp.enabled);
  Click(dialog, "QVL13");
  EXPECT_EQ(dialog.exhvIspValue, 0);
  Click(dialog, "QVL10");
  dialog.OnExhvIsp(true);
  dialog.OnExhvIsp(false);
  EXPECT_FALSE(dialog.isp.enabled);  // not offered for this IC

  dialog = Clicked("QVL09");
  dialog.OnIsp(true);
  EXPECT_FALSE(dialog.exhvIsp.enabled);
  Click(dialog, "QVL12");
  EXPECT_TRUE(dialog.exhvIsp.enabled);
  dialog.OnExhvIsp(true);
  EXPECT_EQ(dialog.ispValue + dialog.exhvIspValue, 2);
}

TEST_F(IcSelect, TheLimitIsChecked) {
  CIcSelectDlg dialog = Clicked("QV8348");
  EXPECT_FALSE(dialog.limitEditEnabled);
  dialog.OnProductionLimit(true);
  EXPECT_TRUE(dialog.limitEditEnabled);
  // 0: refused
  // clang-format off
  for (const auto& [text, count] : Table<const char*, std::int32_t>{
           {"1", 1}, {"99999999", 99999999}, {"100000000", 0}, {"0", 0}, {"-5", 0}, {"", 0}, {"12x", 0},
           {"99999999999999", 0}}) {
    // clang-format on
    EXPECT_EQ(dialog.OnLimitText(text), count != 0) << text;
    EXPECT_EQ(dialog.OnOk(), count != 0);
    EXPECT_EQ(op.Heard().size(), count != 0 ? 0U : 2U);
    if (count != 0) {
      EXPECT_EQ(dialog.productionLimitCount, count);
    }
  }
}

TEST_F(IcSelect, NeedsAKnownWriter) {
  TheAppState().writer.WriterModel = Model::None;
  CIcSelectDlg dialog;
  EXPECT_FALSE(dialog.OnInitDialog());
  EXPECT_EQ(op.Boxes(), (std::vector<Told>{{"Please Power On The Writer", "Message", MessageIcon::Stop}}));
  TheAppState().writer.WriterModel = Model::Km49;
  CIcSelectDlg km49;
  ASSERT_TRUE(km49.OnInitDialog());
  km49.OnSeriesChange(4);
  EXPECT_EQ(All(km49.seriesIndex, km49.typeList), All(12, Texts{"QVL09_48"}));
}

}  // namespace
}  // namespace pyxis::test
