#include <cstdio>
#include <set>

#include "catalogue/chip_catalogue.h"
#include "folder.h"
#include "platform/files.h"
#include "platform/program_folder.h"
#include "put_file.h"
#include "shell/ground/app_state.h"

namespace pyxis::folder {

namespace {

namespace fs = std::filesystem;

bool PutTemplates(const fs::path& dir) {
  bool good = true;
  for (const std::string& name : TemplateNames())
    for (const char* hw : {kHwFolder10, kHwFolder11})
      good = PutFile(dir / hw / (name + ".txt"), MakeTemplate(name)) && good;
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
    if (!list.empty()) good = PutFile(dir / "tin" / (chip + ".tin"), list) && good;
  }
  return good;
}

bool PutFirmware(const fs::path& dir) {
  bool good = true;
  for (const Model model : {Model::Km48, Model::Km49}) {
    const fs::path folder = dir / FirmwareFolderName(model);
    std::set<std::string> made;
    for (int list = 0; list < kListCount; ++list)
      for (const ChipEntry& row : ChipList(list)) {
        const std::string file = row.ic->firmware.file;
        const auto firmware = FirmwareFor(row.ChipCode, model);
        if (firmware && made.insert(file).second)
          good = PutFile(folder / file, MakeFirmware(model, firmware->FirmwareCode)) && good;
      }
    good = PutFile(folder / TestImageName(model), MakeFirmware(model, 0)) && good;
  }
  return good;
}

bool PutSamples(const fs::path& dir) {
  bool good = true;
  for (const std::string& chip : ChipNames())
    for (const Sample& sample : MakeSamples(chip))
      good = PutFile(dir / "samples" / sample.fileName, sample.contents) && good;
  return good;
}

}  // namespace

bool PutFile(const fs::path& path, const Bytes& bytes) {
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  if (!error && WriteWholeFile(path.string(), bytes)) return true;
  std::fprintf(stderr, "can't write %s\n", path.c_str());
  return false;
}

bool BuildProgramFolder(const std::string& dir) {
  const bool templates = PutTemplates(dir);
  const bool optionLists = PutOptionLists(dir);
  const bool firmware = PutFirmware(dir);
  return PutSamples(dir) && templates && optionLists && firmware;
}

}  // namespace pyxis::folder
