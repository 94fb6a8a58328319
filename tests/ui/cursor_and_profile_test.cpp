#include <QApplication>
#include <QFile>
#include <QPixmap>

#include "pyxisfolder/drawing/cursors.h"
#include "support/bench.h"
#include "ui/animated_cursor.h"
#include "ui/settings_profile.h"

namespace pyxis::test {
namespace {

class Cursors : public Bench {
 protected:
  Cursors() {
    Write("metronom.ani", folder::MakeAni(folder::DrawMetronome()));
    Write("dinosaur.ani", folder::MakeAni(folder::DrawDinosaur()));
  }
};

TEST_F(Cursors, GiveWayAndComeBack) {
  ui::BusyCursors cursors;
  const CursorHandle metronome = cursors.Load(Path("metronom.ani")), dinosaur = cursors.Load(Path("dinosaur.ani"));
  ASSERT_NE(metronome, 0);
  ASSERT_NE(dinosaur, metronome);
  EXPECT_EQ(cursors.Load(Path("metronom.ani")), metronome);
  const CursorHandle atRest = cursors.Set(metronome);
  EXPECT_NE(atRest, 0);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->hotSpot(), QPoint(16, 16));
  EXPECT_EQ(QApplication::overrideCursor()->pixmap().size(), QSize(32, 32));
  {
    const ui::BusyCursors::Pause pause(cursors);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
  }
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::BitmapCursor);
  EXPECT_EQ(cursors.Set(dinosaur), metronome);
  EXPECT_EQ(cursors.Set(77), dinosaur);
  EXPECT_EQ(cursors.Set(0), dinosaur);
  EXPECT_EQ(cursors.Set(atRest), dinosaur);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Cursors, AreNoneWithoutAGoodFile) {
  ui::BusyCursors cursors;
  Write("bad.ani", Bytes{'R', 'I', 'F', 'F'});
  EXPECT_EQ(cursors.Load(Path("none.ani")), 0);
  EXPECT_EQ(cursors.Load(Path("bad.ani")), 0);
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
  const std::string text = "[a]\nb\\text=abc\nb\\empty=\nb\\large=99999999999\n\x01\xFF[[[";
  Write("bad.conf", Bytes(text.begin(), text.end()));
  ui::SettingsProfile broken(QString::fromStdString(Path("bad.conf")));
  for (const char* name : {"text", "empty", "large", "none"})
    EXPECT_EQ(broken.GetProfileInt("a\\b", name, 16), 16) << name;
  ui::SettingsProfile unwritable(QStringLiteral("/proc/none/x.conf"));
  unwritable.WriteProfileInt("a", "b", 1);
  EXPECT_EQ(unwritable.GetProfileInt("a", "c", 16), 16);
}

}  // namespace
}  // namespace pyxis::test
