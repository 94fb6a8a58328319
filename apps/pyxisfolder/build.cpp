#include <cstdio>
#include <filesystem>
#include <set>

#include "catalogue/chip_catalogue.h"
#include "folder.h"
#include "platform/files.h"
#include "pyxisfolder/drawing/cursors.h"
#include "pyxisfolder/drawing/figure.h"
#include "shell/ground/app_state.h"

namespace pyxis::folder {

namespace {

namespace fs = std::filesystem;

bool Put(const fs::path& path, const Bytes& bytes) {
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  if (!error && WriteWholeFile(path.string(), bytes)) return true;
  std::fprintf(stderr, "can't write %s\n", path.c_str());
  return false;
}

bool PutTemplates(const fs::path& dir) {
  bool good = true;
  for (const std::string& name : TemplateNames())
    for (const char* hw : {"hwversion1.0", "hwversion1.1"})
      good = Put(dir / hw / (name + ".txt"), MakeTemplate(name)) && good;
  return good;
}

std::set<std::string> ChipNames() {
  std::set<std::string> names;
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list)) names.insert(row.ChipName);
  return names;
}

bool PutOptionLists(const fs::path& dir) {
  bool good = true;
  for (const std::string& chip : ChipNames()) {
    const Bytes list = MakeTin(chip);
    if (!list.empty()) good = Put(dir / "tin" / (chip + ".tin"), list) && good;
  }
  return good;
}

bool PutFirmware(const fs::path& dir) {
  bool good = true;
  for (const Model model : {Model::Km48, Model::Km49}) {
    const fs::path folder = dir / (model == Model::Km48 ? "firmware48" : "firmware49");
    std::set<std::string> made;
    for (int list = 0; list < kListCount; ++list)
      for (const ChipEntry& row : ChipList(list)) {
        const std::string file = row.ic->firmware.file;
        const auto firmware = FirmwareFor(row.ChipCode, model);
        if (firmware && made.insert(file).second)
          good = Put(folder / file, MakeFirmware(model, firmware->FirmwareCode)) && good;
      }
    good = Put(folder / (model == Model::Km48 ? "48test.nce" : "49test.nce"), MakeFirmware(model, 0)) && good;
  }
  return good;
}

bool PutSamples(const fs::path& dir) {
  bool good = true;
  for (const std::string& chip : ChipNames())
    for (const Sample& sample : MakeSamples(chip))
      good = Put(dir / "samples" / sample.fileName, sample.contents) && good;
  return good;
}

// A box that stays ticked after a change to another IC asks for the ISP figure of an IC that isn't offered it; so every
// IC with in-system programming has both.
bool PutFigures(const fs::path& dir) {
  bool good = true;
  std::set<std::string> made;
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list)) {
      const std::string label = row.TypeLabel;
      if (!made.insert(label).second) continue;
      good = Put(dir / "res" / (label + ".bmp"), MakeBmp(DrawSocketFigure(label))) && good;
      if (!row.HasIspProgram) continue;
      good = Put(dir / "res" / (label + "ISP.bmp"), MakeBmp(DrawIspFigure(label, Wiring::ExhvIsp))) && good;
      good = Put(dir / "res" / (label + "ISP1.bmp"), MakeBmp(DrawIspFigure(label, Wiring::Isp))) && good;
    }
  return good;
}

bool PutCursorsAndIcon(const fs::path& dir) {
  std::vector<CursorImage> sizes;
  for (const int size : {16, 32, 48, 256}) sizes.push_back({DrawProgramIcon(size)});
  const bool cursors =
      Put(dir / "metronom.ani", MakeAni(DrawMetronome())) && Put(dir / "dinosaur.ani", MakeAni(DrawDinosaur()));
  return Put(dir / "pyxisload.ico", MakeIcon(sizes)) && Put(dir / "pyxisload.png", MakePng(sizes.back().picture)) &&
         cursors;
}

}  // namespace

bool BuildProgramFolder(const std::string& dir) {
  const bool templates = PutTemplates(dir);
  const bool optionLists = PutOptionLists(dir);
  const bool firmware = PutFirmware(dir);
  const bool pictures = PutFigures(dir) && PutCursorsAndIcon(dir);
  return PutSamples(dir) && templates && optionLists && firmware && pictures;
}

bool BuildIcons(const std::string& dir) {
  bool good = true;
  for (const int size : {16, 22, 24, 32, 36, 48, 64, 72, 96, 128, 192, 256, 512}) {
    const std::string pixels = std::to_string(size);
    good = Put(fs::path(dir) / (pixels + "x" + pixels) / "apps/pyxisload.png", MakePng(DrawProgramIcon(size))) && good;
  }
  return good;
}

}  // namespace pyxis::folder
