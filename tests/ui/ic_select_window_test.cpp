// IC Type Select by real clicks and keys.
#include "ui/ic_select_window.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include "catalogue/ic_select.h"
#include "support/bench.h"
#include "ui/ui_bench.h"

namespace pyxis::test {
namespace {

class IcSelectWindow : public Bench {
 protected:
  void Open(Model model) {
    window.reset();
    TheAppState().writer.WriterModel = model;
    dialog = std::make_unique<CIcSelectDlg>();
    ASSERT_TRUE(dialog->OnInitDialog());
    window = std::make_unique<ui::IcSelectWindow>(*dialog, nullptr);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    series = window->findChildren<QListWidget*>()[0];
    types = window->findChildren<QListWidget*>()[1];
  }
  static void Click(QListWidget& list, const QString& entry) {
    QListWidgetItem* item = list.findItems(entry, Qt::MatchExactly).value(0);
    ASSERT_NE(item, nullptr) << entry.toStdString();
    list.scrollToItem(item);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(item).center());
  }
  void Tick(const char* box) { QTest::keyClick(&FindControl(*window, box), Qt::Key_Space); }
  // serial, mass production, limit, its edit, EXHV ISP, ISP: enabled, and in capitals ticked.
  std::string Boxes() {
    std::string text;
    for (const char* name :
         {"Display Serial Number", "Mass Production Mode", "Production Limit :", "EXHV ISP program", "ISP program"}) {
      const auto& box = Find<QCheckBox>(*window, name);
      text += box.isChecked() ? (box.isEnabled() ? 'Y' : 'N') : (box.isEnabled() ? 'y' : '-');
    }
    return text + (FindControl(*window, "Production Limit").isEnabled() ? " edit" : "");
  }
  std::string ChipShown() const {
    Texts bold;
    for (const QLabel* label : window->findChildren<QLabel*>())
      if (label->font().bold()) bold.push_back(label->text().toStdString());
    return bold[0] + "/" + bold[1];
  }
  std::unique_ptr<CIcSelectDlg> dialog;
  std::unique_ptr<ui::IcSelectWindow> window;
  QListWidget *series = nullptr, *types = nullptr;
};

TEST_F(IcSelectWindow, ListsBoxesAndLimitReachTheDialog) {
  Open(Model::Km48);
  EXPECT_EQ(series->count(), 8);
  EXPECT_EQ(Boxes(), "--y--");
  Click(*series, "MCU: 8 Bit QV81 Series");
  EXPECT_EQ(All(types->currentItem()->text().toStdString(), ChipShown()),
            All("QV8121", "MCU: 8 Bit QV81 Series/QV8121"));
  Click(*types, "QV8111");
  EXPECT_EQ(All(ChipShown(), Boxes()), All("MCU: 8 Bit QV81 Series/QV8111", "yyyyy"));
  Tick("EXHV ISP program");
  EXPECT_EQ(Boxes(), "yyyY-");
  Tick("EXHV ISP program");
  Tick("ISP program");
  EXPECT_EQ(Boxes(), "yyy-Y");
  for (const char* box : {"Display Serial Number", "Mass Production Mode", "Production Limit :"}) Tick(box);
  EXPECT_EQ(Boxes(), "YYY-Y edit");
  auto& limit = Find<QLineEdit>(*window, "Production Limit");
  limit.selectAll();
  QTest::keyClicks(&limit, "250");
  QTest::keyClick(window.get(), Qt::Key_Return);
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_EQ(All(dialog->chipName, dialog->displaySerialValue, dialog->massProductionValue, dialog->productionLimitValue,
                dialog->exhvIspValue, dialog->ispValue, dialog->productionLimitCount),
            All("QV8111", 1, 1, 1, 0, 1, 250));
}

TEST_F(IcSelectWindow, ABadLimitKeepsItOpen) {
  Open(Model::Km48);
  Tick("Production Limit :");
  auto& limit = Find<QLineEdit>(*window, "Production Limit");
  limit.selectAll();
  QTest::keyClicks(&limit, "0");
  EXPECT_EQ(op.Heard(), Texts{"Please enter an integer between 1 and 99999999."});
  QTest::keyClick(window.get(), Qt::Key_Return);
  Click(*types, types->item(1)->text());
  QTest::mouseDClick(types->viewport(), Qt::LeftButton, {}, types->visualItemRect(types->item(1)).center());
  EXPECT_EQ(op.Heard().size(), 2U);
  EXPECT_TRUE(window->isVisible());
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_EQ(window->result(), QDialog::Rejected);
}

TEST_F(IcSelectWindow, ADoubleClickIsOk) {
  Open(Model::Km48);
  Click(*types, "QV4103");
  QTest::mouseDClick(types->viewport(), Qt::LeftButton, {}, types->visualItemRect(types->currentItem()).center());
  EXPECT_EQ(All(window->result(), dialog->chipName), All(int{QDialog::Accepted}, "QV4103"));
}

// The only row of its list: nothing else could run its type step, which offers "ISP program".
TEST_F(IcSelectWindow, TheRowThatIsAlreadyCurrentCanBeTaken) {
  for (int way = 0; way < 3; ++way) {
    Open(Model::Km49);
    for (int i = 0; i < series->count() && types->item(0)->text() != "QVL09_48"; ++i)
      Click(*series, series->item(i)->text());
    ASSERT_EQ(All(types->count(), types->item(0)->text().toStdString()), All(1, "QVL09_48"));
    EXPECT_EQ(Boxes(), "yyyy-");
    if (way == 0) Click(*types, "QVL09_48");
    if (way > 0) QTest::keyClick(types, way == 1 ? Qt::Key_Space : Qt::Key_Return);
    EXPECT_EQ(All(Boxes(), window->isVisible()), All("yyyyy", way != 2)) << way;  // Enter is OK as well
  }
}

TEST_F(IcSelectWindow, ATypedNameIsFoundInEverySeries) {
  Open(Model::Km48);
  clock.step = 0;
  struct Case {
    const char* typed;
    const char* chip;
    const char* boxes;
  };
  for (QListWidget* list : {series, types})
    for (const auto& [typed, chip, boxes] : {Case{"QV8348", "QV8348", "yyy--"},
                                             {"qv4204", "QV4204", "y-y--"},
                                             {"QVL09", "QVL09", "yyyyy"},
                                             {"QV9", "QVL09", "yyyyy"},
                                             {"QV8348X", "QV8348", "yyy--"},
                                             {"x", "QV8348", "yyy--"},
                                             {"QV8501", "QV8501", "yyy--"}}) {
      clock.tick += 2001;  // a pause begins anew
      QTest::keyClicks(list, typed);
      EXPECT_EQ(All(dialog->chipName,
                    types->currentItem()->text().left(6).toStdString().substr(0, dialog->chipName.size()), Boxes()),
                All(chip, chip, boxes))
          << typed;
      EXPECT_EQ(series->currentItem()->text().toStdString(), dialog->seriesCaption);
    }
  clock.tick += 2001;
  QTest::keyClicks(types, "QV83");
  clock.tick += 2000;
  QTest::keyClicks(types, "22");  // still the same name
  EXPECT_EQ(dialog->chipName, "QV8322");
  EXPECT_TRUE(window->isVisible());
}

}  // namespace
}  // namespace pyxis::test
