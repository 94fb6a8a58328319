// What the windows show and do, told by scripts: tests/data/windows.tsv.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStyleOptionComboBox>
#include <QTest>

#include "catalogue/ic_select.h"
#include "data/cases.h"
#include "platform/text.h"
#include "platform/update_agent.h"
#include "pyxisfolder/folder.h"
#include "ui/ic_select_window.h"
#include "ui/readable_style.h"
#include "ui/ui_bench.h"
#include "view/show_file.h"

namespace pyxis::test {
namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

std::string Joined(const Texts& texts) {
  std::string all;
  for (const std::string& text : texts) all += (&text == &texts[0] ? "" : "|") + text;
  return all;
}

class WindowScript : public UiBench, public UpdateAgent, public ::testing::WithParamInterface<std::string> {
 protected:
  using Lines = std::span<const Case>;
  static std::size_t Depth(const Case& line) { return line[0].find_first_not_of(' '); }

  // Runs lines on a window; a line's block are the deeper ones behind it.
  void Run(Lines lines, QWidget& here) {
    for (std::size_t i = 0; i < lines.size();) {
      SCOPED_TRACE(lines[i].where);
      std::size_t end = i + 1;
      while (end < lines.size() && Depth(lines[end]) > Depth(lines[i])) ++end;
      Do(lines[i], lines.subspan(i + 1, end - i - 1), here);
      i = end;
    }
  }

  void Do(const Case& line, Lines block, QWidget& here) {
    const std::string verb = line[0].substr(Depth(line)), wanted = Joined({line.cells.begin() + 1, line.cells.end()});
    const QString what = Q(line[1]), more = Q(line[2]);
    const auto control = [&]() -> QWidget& { return FindControl(here, what); };
    const std::map<std::string, std::function<void()>> verbs{
        {"in", [&] { AtNext(what, block); }},
        {"box", [&] { onBox = [this, block](QMessageBox& box) { Run(block, box); }; }},
        {"meanwhile", [&] { hooked.hook = [this, block, &here] { Run(block, here); }; }},
        {"beside", [&] { Run(block, Beside(what)); }},
        {"behind", [&] { Run(block, *here.parentWidget()); }},
        {"ic select", [&] { OpenIcSelect(line[1] == "KM49" ? Model::Km49 : Model::Km48, block); }},
        {"job", [&] { HoldJob(line[1], line[2] == "burnt"); }},
        {"folder", [&] { PutFolderFor(line[1]); }},
        {"program folder", [&] { PutProgramFolder(); }},
        {"tin", [&] { WriteText("tin/" + line[1] + ".tin", line[2]); }},
        {"tin of the program folder", [&] { Write("tin/" + line[1] + ".tin", folder::MakeTin(line[1])); }},
        {"empty file", [&] { Write(line[1], {}); }},
        {"open", [&] { Open(); }},
        {"dark", [&] { QApplication::setPalette(QPalette(QColor(60, 60, 60), QColor(45, 45, 48))); }},
        {"show bytes", [&] { Write("bytes", Bytes(static_cast<std::size_t>(line.Number(1)))), Show("bytes"); }},
        {"show file", [&] { Show(line[1]); }},
        {"menu", [&] { EXPECT_TRUE(Choose(what)); }},
        {"grey", [&] { EXPECT_FALSE(Choose(what)); }},
        {"hover", [&] { Hover(what); }},
        {"press", [&] { Press(here, what); }},
        {"click", [&] { Find<QAbstractButton>(here, what).click(); }},
        {"focus", [&] { control().setFocus(); }},
        {"key", [&] { Key(more.isEmpty() ? here : FindControl(here, more), what); }},
        {"type", [&] { Type(control(), more); }},
        {"type name", [&] { Pause(line.Number(3)), QTest::keyClicks(&control(), more); }},
        {"pick", [&] { Pick(Find<QListWidget>(here, what), more, false); }},
        {"double click", [&] { Pick(Find<QListWidget>(here, what), more, true); }},
        {"file", [&] { ChooseFile(*here.findChild<QLineEdit*>("fileNameEdit"), Path(line[1])); }},
        {"name", [&] { here.findChild<QLineEdit*>("fileNameEdit")->setText(more); }},
        {"folder shown",
         [&] {
           EXPECT_EQ(dynamic_cast<QFileDialog&>(here).directory().canonicalPath().toStdString(),
                     std::filesystem::canonical(Path(line[1])).string());
         }},
        {"close", [&] { here.close(), QCoreApplication::processEvents(); }},
        {"answer", [&] { answers.push_back(line[1] == "Yes" ? QMessageBox::Yes : QMessageBox::No); }},
        {"by the scripted operator", [&] { TheMachine().op = &op; }},
        {"pull and put back", [&] { PullAndPutBack(here); }},
        {"raise", [&] { Raise(line[1] == "arrival"); }},
        {"no right", [&] { usb.missingRight = line[1]; }},
        {"queue", [&] { events.Raise(Kind(line[1])); }},
        {"post click", [&] { PostClick(control()); }},
        {"post key", [&] { PostKey(control(), line[2][0], more); }},
        {"chip",
         [&] {
           writer.chip = {line[1] == "worn" ? standin::ChipState::Worn : standin::ChipState::Blank, {}};
         }},
        {"option value", [&] { EXPECT_EQ(TheAppState().selection.OptionValue, line.Number(1)); }},
        {"system config", [&] { Config() = static_cast<std::int32_t>(line.Number(1)); }},
        {"update client", [&] { TheMachine().update = this; }},
        {"look at", [&] { LookAt(here, line[1]); }},
        {"is", [&] { ExpectFacts(line[1] == "this" ? here : control(), line[2]); }},
        {"see", [&] { EXPECT_EQ(TextOf(control()), line[2]); }},
        {"tip", [&] { EXPECT_EQ(control().toolTip().toStdString(), line[2]); }},
        {"ink", [&] { EXPECT_EQ(InkInFrontOf(control()), line[2]); }},
        {"ground", [&] { EXPECT_EQ(GroundOf(control()).name().toStdString(), line[2]); }},
        {"place", [&] { EXPECT_EQ(PlaceOf(control()), line[2]); }},
        {"picture", [&] { WritePicture(line[1], QColor(more)); }},
        {"framed", [&] { ExpectFramed(control(), QColor(more)); }},
        {"told", [&] { EXPECT_EQ(Joined(std::exchange(seen, {})), wanted); }},
        {"heard", [&] { EXPECT_EQ(std::ssize(op.Heard()), line.Number(1)); }},
        {"title", [&] { EXPECT_EQ(here.windowTitle().toStdString(), wanted); }},
        {"text of labels", [&] { EXPECT_EQ(Joined(LabelsOf(here, false)), wanted); }},
        {"lists", [&] { EXPECT_EQ(Joined(ListsOf(here)), wanted); }},
        {"connected", [&] { EXPECT_EQ(TheAppState().writer.WriterConnected, line.Yes(1)); }},
        {"verdict in a new colour", [&] { ExpectNewVerdict(FindControl(here, "Last verdict")); }},
        {"burnt", [&] { EXPECT_EQ(Burnt(0x3FB) * 256 + Burnt(0x3FA), line.Number(1)); }},
        {"files", [&] { QTRY_COMPARE(FilesOf(dynamic_cast<QFileDialog&>(here)), Q(wanted)); }},
        {"boxes", [&] { EXPECT_EQ(BoxesOf(here), wanted); }},
        {"chosen", [&] { ExpectChosen(here, line); }},
        {"taken", [&] { EXPECT_EQ(Taken(), wanted); }},
        {"result", [&] { ExpectResult(dynamic_cast<QDialog&>(here), line[1] == "OK"); }},
    };
    ASSERT_TRUE(verbs.contains(verb)) << verb;
    verbs.at(verb)();
  }

  void AtNext(const QString& title, Lines block) {
    script.push_back([=, this](QWidget& dialog) {
      EXPECT_EQ(dialog.windowTitle().toStdString(), title.toStdString());
      Run(block, dialog);
    });
  }
  static QWidget& Beside(const QString& title) {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->windowTitle() == title && widget->isVisible() && !widget->isModal()) return *widget;
    throw std::runtime_error("no window beside");
  }
  void OpenIcSelect(Model model, Lines block) {
    TheAppState().writer.WriterModel = model;
    CIcSelectDlg dialog;
    ASSERT_TRUE(dialog.OnInitDialog());
    ui::IcSelectWindow shown(dialog, nullptr);
    shown.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown));
    icSelect = &dialog;
    Run(block, shown);
  }
  void PutProgramFolder() {
    folder::BuildProgramFolder(Path("."));
    std::filesystem::create_directory_symlink(PYXIS_BIN_DIR "/../folder/res", Path("res"));
  }
  void Show(const std::string& file) {
    ShowFile(Path(file));
    QCoreApplication::processEvents();
  }
  void Hover(const QString& caption) {
    for (QAction* action : window->findChildren<QAction*>())
      if (action->text() == caption) action->showStatusText(window.get());
    QCoreApplication::processEvents();
  }
  static void Key(QWidget& target, const QString& name) {
    const QKeyCombination key = QKeySequence(name)[0];
    QTest::keyClick(&target, key.key(), key.keyboardModifiers());
    QCoreApplication::processEvents();
  }
  static void Type(QWidget& field, const QString& text) {
    QCoreApplication::processEvents();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, text);
  }
  void Pause(long milliseconds) {
    hooked.step = 0;
    hooked.tick += static_cast<std::uint32_t>(milliseconds);
  }
  static void Pick(QListWidget& list, const QString& entry, bool twice) {
    QListWidgetItem* item = list.findItems(entry, Qt::MatchExactly).value(0);
    ASSERT_NE(item, nullptr);
    list.scrollToItem(item);
    const QPoint at = list.visualItemRect(item).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
    if (twice) QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
  }
  static void ChooseFile(QLineEdit& edit, const std::string& path) {
    edit.setText(Q(path));
    QTest::keyClick(&edit, Qt::Key_Return);
  }
  // On offer, without the folders.
  static QString FilesOf(const QFileDialog& dialog) {
    const auto* list = dialog.findChild<QListView*>("listView");
    QStringList files;
    for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row) {
      const QString name = list->model()->index(row, 0, list->rootIndex()).data().toString();
      if (QFileInfo(dialog.directory(), name).isFile()) files.append(name);
    }
    return files.join(QLatin1Char('|'));
  }
  static DeviceEvent::Kind Kind(const std::string& name) {
    return name == "arrival" ? DeviceEvent::Kind::Arrival : DeviceEvent::Kind::Removal;
  }
  static std::int32_t& Config() { return TheAppState().conversion.SystemConfigWord; }

  static void ExpectFacts(const QWidget& control, const std::string& words) {
    const std::map<std::string, bool> facts{{"enabled", control.isEnabled()},
                                            {"shown", control.isVisible()},
                                            {"focused", control.window()->focusWidget() == &control},
                                            {"checked", control.property("checked").toBool()}};
    for (const std::string& fact : Parts(words, ' '))
      EXPECT_EQ(facts.at(fact.substr(fact[0] == '!')), fact[0] != '!') << fact;
  }
  std::string TextOf(const QWidget& control) const {
    const std::string text = control.property("text").toString().toStdString();
    return text.starts_with(folder.string()) ? text.substr(folder.string().size() + 1) : text;
  }
  static Texts LabelsOf(const QWidget& here, bool bold) {
    Texts lines;
    for (const QLabel* label : here.findChildren<QLabel*>())
      if (label->window() == &here && (!bold || label->font().bold())) lines.push_back(label->text().toStdString());
    return lines;
  }
  static Texts ListsOf(const QWidget& here) {
    Texts shown;
    for (const QComboBox* list : here.findChildren<QComboBox*>()) {
      shown.push_back(list->currentText().toStdString());
      QStyleOptionComboBox option;
      option.initFrom(list);
      const int width =
          list->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, list).width();
      for (int row = 0; row < list->count(); ++row)
        EXPECT_LE(list->fontMetrics().horizontalAdvance(list->itemText(row)), width - 2);
      const auto ink = [list](auto group) { return list->palette().color(group, QPalette::ButtonText); };
      EXPECT_EQ(ink(QPalette::Disabled), ink(QPalette::Active));  // there to be read
    }
    return shown;
  }
  // Of the caption in front of a list: what differs most from the ground.
  static std::string InkInFrontOf(const QWidget& list) {
    QWidget& around = *list.parentWidget();
    const QImage caption = around.grab(QRect(0, list.y(), list.x() - 1, list.height())).toImage();
    QColor ink = around.palette().color(QPalette::Window), ground = ink;
    for (int i = 0; i < caption.width() * caption.height(); ++i) {
      const QColor pixel = caption.pixelColor(i % caption.width(), i / caption.width());
      if (ui::ContrastOf(pixel, ground) > ui::ContrastOf(ink, ground)) ink = pixel;
    }
    return ink.name().toStdString();
  }
  // As the window shows it.
  static QColor GroundOf(const QWidget& control) {
    QWidget& all = *control.window();
    return all.grab(QRect(control.mapTo(&all, QPoint()), control.size())).toImage().pixelColor(0, 0);
  }
  // Its distances from the left, top, right and bottom of what it lies in.
  static std::string PlaceOf(const QWidget& control) {
    const QRect at = control.geometry(), all = control.parentWidget()->rect();
    return Printf("%d %d %d %d", at.left(), at.top(), all.right() - at.right(), all.bottom() - at.bottom());
  }
  void WritePicture(const std::string& file, const QColor& colour) {
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(colour);
    Write(file, {});
    EXPECT_TRUE(picture.save(Q(Path(file))));
  }
  // Stretched to fill a frame in the figures' proportions.
  static void ExpectFramed(QWidget& control, const QColor& colour) {
    const QImage shown = control.grab().toImage();
    const QSize figure(460, 300);
    EXPECT_NEAR(shown.height(), figure.height() * shown.width() / figure.width(), 1);
    for (const int i : {0, 1}) {
      const QColor wanted = i == 0 ? control.palette().color(QPalette::Mid) : colour;
      EXPECT_EQ(shown.pixel(i, i), wanted.rgb());
      EXPECT_EQ(shown.pixel(shown.width() - 1 - i, shown.height() - 1 - i), wanted.rgb());
    }
  }
  // Readable, and large.
  void ExpectNewVerdict(const QWidget& words) {
    const QColor ground = GroundOf(words);
    EXPECT_FALSE(grounds.contains(ground));
    grounds.append(ground);
    EXPECT_GE(ui::ContrastOf(ground, words.palette().color(QPalette::WindowText)), 4.5);
    EXPECT_GT(words.fontMetrics().height(), 3 * window->fontMetrics().height() / 2);
  }
  // At word 0x3FA, where the most significant byte went in last.
  int Burnt(std::size_t word) const { return writer.chip.burnt.at(2 * word + 1); }
  // Serial, mass production, limit, EXHV ISP, ISP: enabled, and in capitals ticked.
  static std::string BoxesOf(QWidget& here) {
    std::string text;
    for (const char* name :
         {"Display Serial Number", "Mass Production Mode", "Production Limit :", "EXHV ISP program", "ISP program"}) {
      const auto& box = Find<QAbstractButton>(here, name);
      text += box.isChecked() ? (box.isEnabled() ? 'Y' : 'N') : (box.isEnabled() ? 'y' : '-');
    }
    return text + (FindControl(here, "Production Limit").isEnabled() ? " edit" : "");
  }
  void ExpectChosen(QWidget& here, const Case& line) {
    EXPECT_EQ(LabelsOf(here, true), (Texts{line[1], line[2]}));
    EXPECT_EQ(All(Find<QListWidget>(here, "Series").currentItem()->text().toStdString(), icSelect->chipName),
              All(line[1], line[2]));
    EXPECT_TRUE(Find<QListWidget>(here, "Type").currentItem()->text().startsWith(Q(line[2])));
  }
  // Serial, mass production, limit and its number, EXHV ISP, ISP.
  std::string Taken() const {
    const CIcSelectDlg& d = *icSelect;
    return Printf("%d %d %d %d %d %d", d.displaySerialValue, d.massProductionValue, d.productionLimitValue,
                  d.productionLimitCount, d.exhvIspValue, d.ispValue);
  }
  static void ExpectResult(const QDialog& dialog, bool ok) {
    EXPECT_EQ(All(dialog.result(), dialog.isVisible()), All(int{ok ? QDialog::Accepted : QDialog::Rejected}, false));
  }

  ~WindowScript() override { QApplication::setPalette(light); }
  std::int32_t CallUpdateAgent(const char*) override {
    EXPECT_FALSE(window->isEnabled());
    return 0;
  }

  const CIcSelectDlg* icSelect = nullptr;
  QList<QColor> grounds;
  const QPalette light = QApplication::palette();
};

TEST_P(WindowScript, Runs) {
  const std::vector<Case> lines = Cases("windows.tsv", GetParam());
  // Until the window is open, nothing is done in one.
  QWidget none;
  std::size_t first = 0;
  while (first < lines.size() && lines[first][0] != "open") ++first;
  Run(Lines(lines).first(std::min(first + 1, lines.size())), none);
  if (first < lines.size()) Run(Lines(lines).subspan(first + 1), *window);
}
// Those that end with a look at every window, at every scale.
INSTANTIATE_TEST_SUITE_P(EveryWindow, WindowScript, ::testing::Values("every dialog of a job", "a job with options"));
INSTANTIATE_TEST_SUITE_P(All, WindowScript,
                         ::testing::ValuesIn(SectionsBut("windows.tsv",
                                                         {"every dialog of a job", "a job with options"})));

}  // namespace
}  // namespace pyxis::test
