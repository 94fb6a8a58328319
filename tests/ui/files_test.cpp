// What the window takes from files: figures, cursors, settings.
#include "platform/files.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <charconv>

#include "catalogue/chip_catalogue.h"
#include "pyxisfolder/drawing/cursors.h"
#include "pyxisfolder/drawing/package.h"
#include "support/bench.h"
#include "ui/animated_cursor.h"
#include "ui/settings_profile.h"

namespace pyxis::test {
namespace {

class Cursors : public Bench {};

TEST_F(Cursors, GiveWayAndComeBack) {
  Write("metronom.ani", folder::MakeAni(folder::DrawMetronome()));
  Write("dinosaur.ani", folder::MakeAni(folder::DrawDinosaur()));
  WriteText("bad.ani", "RIFF");
  ui::BusyCursors cursors;
  const CursorHandle metronome = cursors.Load(Path("metronom.ani")), dinosaur = cursors.Load(Path("dinosaur.ani"));
  ASSERT_NE(metronome, 0);
  ASSERT_NE(dinosaur, metronome);
  EXPECT_EQ(cursors.Load(Path("metronom.ani")), metronome);
  for (const char* file : {"none.ani", "bad.ani"}) EXPECT_EQ(cursors.Load(Path(file)), 0);
  const CursorHandle atRest = cursors.Set(metronome);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->hotSpot(), QPoint(16, 16));
  EXPECT_EQ(QApplication::overrideCursor()->pixmap().size(), QSize(32, 32));
  {
    const ui::BusyCursors::Pause pause(cursors);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
  }
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::BitmapCursor);
  EXPECT_EQ(cursors.Set(dinosaur), metronome);
  for (const CursorHandle next : {CursorHandle{77}, CursorHandle{0}, atRest}) EXPECT_EQ(cursors.Set(next), dinosaur);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

class Settings : public Bench {};

TEST_F(Settings, OutliveTheProfile) {
  const QString file = QString::fromStdString(Path("settings.conf"));
  const std::string section = "Application state\\Dockbar\\-SCBar-0";
  {
    ui::SettingsProfile first(file);
    EXPECT_EQ(first.GetProfileInt(section, "m_lpr", 16), 16);
    first.WriteProfileInt(section, "m_lpr", 24);
    first.WriteProfileInt(section + "1", "m_lpr", 25);
    first.WriteProfileInt(section, "other", -8);
  }
  ui::SettingsProfile second(file);
  EXPECT_EQ(second.GetProfileInt(section, "m_lpr", 16), 24);
  EXPECT_EQ(second.GetProfileInt(section + "1", "m_lpr", 16), 25);
  EXPECT_EQ(second.GetProfileInt(section, "other", 16), -8);
}

TEST_F(Settings, ThatCantBeReadGiveTheDefault) {
  WriteText("bad.conf", "[a]\nb\\text=abc\nb\\empty=\nb\\large=99999999999\n\x01\xFF[[[");
  ui::SettingsProfile broken(QString::fromStdString(Path("bad.conf")));
  for (const char* name : {"text", "empty", "large", "none"})
    EXPECT_EQ(broken.GetProfileInt("a\\b", name, 16), 16) << name;
}

class Pictures : public Bench {};

TEST_F(Pictures, EveryRowAndModeHasAReadableFigureWithItsPins) {
  TheAppState().program.StartDirectory = PYXIS_BIN_DIR "/../folder";
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list)) {
      const std::string label = row.TypeLabel;
      SCOPED_TRACE(label);
      for (const auto& [exhvIsp, isp] : Table<bool, bool>{{false, false}, {true, false}, {false, true}}) {
        if ((exhvIsp || isp) && !row.HasIspProgram) continue;
        const auto file = ReadWholeFile(FigurePath(label, exhvIsp, isp));
        ASSERT_TRUE(file);
        EXPECT_FALSE(QImage::fromData(file->data(), static_cast<int>(file->size())).isNull());
      }
      const folder::Package package = folder::PackageOf(label);
      EXPECT_EQ(folder::PinsOf(package).size(), static_cast<std::size_t>(package.Pins()));
      int pins = 0;  // the label's last number
      const char *const from = label.c_str() + label.rfind('_') + 1, *const end = label.c_str() + label.size();
      if (std::from_chars(from, end, pins).ptr == end) {
        EXPECT_EQ(package.Pins(), pins);
      }
    }
}

}  // namespace
}  // namespace pyxis::test
