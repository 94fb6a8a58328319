#include "scratch.h"

#include <unistd.h>

#include <filesystem>
#include <span>

#include "intake/package_files.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "pyxisfolder/folder.h"
#include "shell/ground/app_state.h"

namespace pyxis::fuzz {

namespace {

std::string MakeFolder() {
  const std::filesystem::path base = std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp";
  const std::filesystem::path folder = base / ("pyxis-fuzz-" + std::to_string(getpid()));
  std::filesystem::create_directories(folder / "hwversion1.0");
  // One file under every template's name.
  for (const std::string& name : folder::TemplateNames())
    std::filesystem::create_symlink("template", folder / "hwversion1.0" / (name + ".txt"));
  return folder.string() + "/";
}

}  // namespace

Scratch::Scratch() {
  static const std::string folder = MakeFolder();
  static std::FILE* const nowhere = std::fopen("/dev/null", "w");
  TheMachine().diagnostics = nowhere;
  TheAppState().program.AppDir = folder;
}

std::string Scratch::Path(const std::string& name) const { return TheAppState().program.AppDir + name; }

void Scratch::Put(const std::string& name, const std::uint8_t* data, std::size_t size) const {
  WriteWholeFile(Path(name), std::span(data, size));
}

void Scratch::PutTemplates(std::uint8_t byte, std::size_t size) const {
  WriteWholeFile(Path("hwversion1.0/template"), folder::Bytes(size, byte));
}

}  // namespace pyxis::fuzz
