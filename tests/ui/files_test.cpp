// What the window takes from files: figures, cursors, settings.
#include "platform/files.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <charconv>

#include "catalogue/chip_catalogue.h"
#include "platform/byte_order.h"
#include "pyxisfolder/drawing/package.h"
#include "pyxisfolder/drawing/picture_files.h"
#include "support/bench.h"
#include "ui/animated_cursor.h"
#include "ui/cursor_picture.h"
#include "ui/settings_profile.h"

namespace pyxis::test {
namespace {

Bytes ToBytes(const QByteArray& bytes) { return {bytes.begin(), bytes.end()}; }

Bytes With(Bytes file, std::size_t at, const Bytes& bytes) {
  std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(at));
  return file;
}

// A cursor of 3 x 2 pixels with the hot spot 2, 1; 8 bits a pixel, lower line first, then the mask. One pixel inverts.
Bytes Cursor() {
  Bytes header(40), colors(8);
  header = With(With(With(With(header, 0, {40}), 4, {3}), 8, {4}), 12, {1, 0, 8});
  header[32] = 2;  // colours
  colors[6] = 0xFF;
  const Bytes bitmap = header + colors + Bytes{1, 1, 1, 0, 1, 0, 1, 0} + Bytes{0x20, 0, 0, 0, 0x40, 0, 0, 0};
  return Bytes{0, 0, 2, 0,  1, 0, 3, 2, 0, 0, 2, 0, 1, 0, static_cast<std::uint8_t>(bitmap.size()),
               0, 0, 0, 22, 0, 0, 0} +
         bitmap;
}

TEST(CursorPicture, HasPixelsAndHotSpotOrIsNone) {
  const auto picture = ui::ReadCursorPicture(Cursor());
  ASSERT_TRUE(picture);
  std::vector<QRgb> pixels;
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 3; ++x) pixels.push_back(picture->image.pixel(x, y));
  EXPECT_EQ(pixels, (std::vector<QRgb>{0xFFFF0000, 0, 0xFFFF0000, 0xFFFF0000, 0xFFFF0000, 0}));
  for (const auto& [at, byte, hotSpot] : Table<std::size_t, std::uint8_t, QPoint>{
           {9, 0, {2, 1}}, {10, 0, {0, 1}}, {10, 200, {2, 1}}, {12, 2, {2, 1}}, {2, 1, {1, 1}}})  // the last: an icon
    EXPECT_EQ(ui::ReadCursorPicture(With(Cursor(), at, {byte}))->hotSpot, hotSpot) << at;
  for (const auto& [what, at, byte] : Table<const char*, std::size_t, std::uint8_t>{
           {"another type", 2, 3}, {"no picture", 4, 0}, {"offset", 21, 0x7F}, {"3 bits", 36, 3}})
    EXPECT_FALSE(ui::ReadCursorPicture(With(Cursor(), at, {byte}))) << what;
  for (const std::size_t length : {0U, 6U, 21U, 61U, 71U})
    EXPECT_FALSE(ui::ReadCursorPicture(Part(Cursor(), 0, length))) << length;
  EXPECT_FALSE(
      ui::ReadCursorPicture(With(With(With(Cursor(), 26, {1, 1}), 14, {0, 8}), 6, {0}) + Bytes(2000)));  // 257 wide
}

class Files : public Bench {};

TEST_F(Files, CursorsGiveWayAndComeBack) {
  const Bytes whole = ToBytes(folder::MakeAni(folder::DrawMetronome()));
  Write("metronom.ani", whole);
  Write("dinosaur.ani", ToBytes(folder::MakeAni(folder::DrawDinosaur())));
  const char name[] = "icon";
  const auto lastFrame = std::find_end(whole.begin(), whole.end(), name, name + 4) - whole.begin();
  Write("bad.ani", With(whole, static_cast<std::size_t>(lastFrame) + 10, {9}));
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

TEST_F(Files, SettingsOutliveTheProfileOrGiveTheDefault) {
  const QString file = QString::fromStdString(Path("settings.conf"));
  const std::string section = "Application state\\Dockbar\\-SCBar-0";
  const Table<std::string, std::string, int> values{
      {section, "m_lpr", 24}, {section + "1", "m_lpr", 25}, {section, "other", -8}};
  {
    ui::SettingsProfile first(file);
    EXPECT_EQ(first.GetProfileInt(section, "m_lpr", 16), 16);
    for (const auto& [where, name, value] : values) first.WriteProfileInt(where, name, value);
  }
  ui::SettingsProfile second(file);
  for (const auto& [where, name, value] : values) EXPECT_EQ(second.GetProfileInt(where, name, 16), value);
  WriteText("bad.conf", "[a]\nb\\text=abc\nb\\empty=\nb\\large=99999999999\n\x01\xFF[[[");
  ui::SettingsProfile broken(QString::fromStdString(Path("bad.conf")));
  for (const char* name : {"text", "empty", "large", "none"})
    EXPECT_EQ(broken.GetProfileInt("a\\b", name, 16), 16) << name;
}

TEST_F(Files, EveryRowAndModeHasAReadableFigureWithItsPins) {
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
