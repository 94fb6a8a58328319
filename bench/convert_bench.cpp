// One conversion in the process, its file writes included, on the largest program file of each kind.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>

#include "intake/convert.h"
#include "platform/files.h"
#include "pyxisfolder/folder.h"
#include "shell/ground/app_state.h"

namespace pyxis {
namespace {

void BM_Convert(benchmark::State& state, const char* chip, std::uint32_t code) {
  char name[] = "/tmp/pyxis-bench-XXXXXX";
  const std::string dir = std::string(mkdtemp(name)) + "/";
  TheAppState().program.AppDir = dir;
  TheAppState().selection.SelectedChip = chip;
  std::filesystem::create_directories(dir + "hwversion1.0");
  WriteWholeFile(dir + "hwversion1.0/" + chip + ".txt", folder::MakeTemplate(chip));
  const folder::Sample sample = folder::MakeSamples(chip).front();
  WriteWholeFile(dir + sample.fileName, sample.contents);
  std::uint32_t optionValue = 0x60;
  const ConvertRequest request{.ChipCode = code, .OptionValue = &optionValue, .Path = dir + sample.fileName};
  for (auto _ : state)
    if (!ConvertFile(request).Good()) state.SkipWithError("failed");
  std::filesystem::remove_all(dir);
}
BENCHMARK_CAPTURE(BM_Convert, QV8303, "QV8303", 0x2708)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Convert, QVL04, "QVL04", 0x1622)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Convert, QV8101, "QV8101", 0x3714)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Convert, QV4207, "QV4207", 0x13931)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace pyxis

BENCHMARK_MAIN();
