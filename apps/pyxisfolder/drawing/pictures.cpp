#include "pyxisfolder/drawing/pictures.h"

#include <QGuiApplication>
#include <memory>
#include <set>

#include "catalogue/chip_catalogue.h"
#include "pyxisfolder/drawing/picture_files.h"
#include "pyxisfolder/put_file.h"
#include "shell/ground/busy_cursor.h"

namespace pyxis::folder {

namespace {

namespace fs = std::filesystem;

bool Put(const fs::path& path, const QByteArray& bytes) { return PutFile(path, Bytes(bytes.begin(), bytes.end())); }

// A box that stays ticked after a change to another IC asks for the ISP figure of an IC that isn't offered it; so every
// IC with in-system programming has both.
bool PutFigures(const fs::path& dir) {
  bool good = true;
  std::set<std::string> made;
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list)) {
      const std::string label = row.TypeLabel;
      if (!made.insert(label).second) continue;
      good = Put(dir / (label + ".bmp"), MakeBmp(DrawSocketFigure(label))) && good;
      if (!row.HasIspProgram) continue;
      good = Put(dir / (label + "ISP.bmp"), MakeBmp(DrawIspFigure(label, Wiring::ExhvIsp))) && good;
      good = Put(dir / (label + "ISP1.bmp"), MakeBmp(DrawIspFigure(label, Wiring::Isp))) && good;
    }
  return good;
}

bool PutCursorsAndIcon(const fs::path& dir) {
  std::vector<QImage> icons;
  for (const int size : {16, 32, 48, 256}) icons.push_back(DrawProgramIcon(size));
  const bool cursors =
      Put(dir / kTaskCursor, MakeAni(DrawMetronome())) && Put(dir / kLoadCursor, MakeAni(DrawDinosaur()));
  return Put(dir / "pyxisload.ico", MakeIcon(icons)) && Put(dir / "pyxisload.png", Saved(icons.back(), "PNG")) &&
         cursors;
}

}  // namespace

bool DrawPictures(const std::string& dir) {
  // Letters need Qt's fonts, and those an application.
  char name[] = "pyxisfolder", option[] = "-platform", platform[] = "offscreen";
  char* arguments[] = {name, option, platform, nullptr};
  int count = 3;
  const auto application = qApp == nullptr ? std::make_unique<QGuiApplication>(count, arguments) : nullptr;
  const bool figures = PutFigures(fs::path(dir) / "res");
  return PutCursorsAndIcon(dir) && figures;
}

bool DrawIcons(const std::string& dir) {
  bool good = true;
  for (const int size : {16, 22, 24, 32, 36, 48, 64, 72, 96, 128, 192, 256, 512}) {
    const std::string pixels = std::to_string(size);
    const fs::path folder = fs::path(dir) / (pixels + "x" + pixels) / "apps";
    good = Put(folder / "pyxisload.png", Saved(DrawProgramIcon(size), "PNG")) && good;
  }
  return good;
}

}  // namespace pyxis::folder
