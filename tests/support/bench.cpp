#include "support/bench.h"

#include <stdlib.h>

#include <fstream>

#include "platform/files.h"
#include "shell/process_state.h"

namespace pyxis::test {

Bench::Bench() {
  ResetProcessState();
  std::string name = (std::filesystem::temp_directory_path() / "pyxis-XXXXXX").string();
  folder = mkdtemp(name.data());
  TheAppState().program.AppDir = folder.string() + kPathSeparator;
  TheAppState().program.StartDirectory = folder.string();
  Machine& machine = TheMachine();
  machine.op = &op;
  machine.clock = &clock;
  machine.profile = &profile;
  machine.language = &language;
}

Bench::~Bench() {
  ResetProcessState();
  std::filesystem::remove_all(folder);
}

void Bench::Write(const std::string& name, std::span<const std::uint8_t> bytes) const {
  std::filesystem::create_directories((folder / name).parent_path());
  std::ofstream(folder / name, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

Bytes Bench::Contents(const std::string& name) const {
  if (std::filesystem::is_directory(folder / name)) return {};
  return ReadWholeFile(Path(name)).value_or(Bytes());
}

}  // namespace pyxis::test
