// What the frame layer costs on top of a bare loop that moves the same bytes over the same bus.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>

#include "intake/package_files.h"
#include "link/command_frames.h"
#include "link/writer_commands.h"
#include "link/writer_link.h"
#include "operations/firmware.h"
#include "platform/diagnostics.h"
#include "platform/machine.h"
#include "standin/in_process.h"

namespace pyxis {
namespace {

struct Setup {
  Setup() {
    static std::FILE* const nowhere = std::fopen("/dev/null", "w");
    TheMachine().trace = nowhere;
    TheMachine().usb = &usb;
    OpenWriterLink();
    StartTask(task::kOpenFirmwareLoad);
  }
  standin::WriterModel writer;
  standin::StandinUsbHost usb{writer};
};

const std::vector<std::uint8_t> kImage(kFirmwareImageSize, 0x5A);

void BM_SendBlock(benchmark::State& state) {
  Setup setup;
  for (auto _ : state) {
    SetWriterMode(mode::kMemory);
    SetAddressZero();
    SendBlock(kImage.data(), static_cast<std::uint32_t>(kImage.size()), OP_WRITE_MEMORY);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kImage.size()));
}
BENCHMARK(BM_SendBlock);

// The same transfers, called straight on the link.
void BM_BareLoop(benchmark::State& state) {
  Setup setup;
  StatusBlock status;
  for (auto _ : state) {
    SetWriterMode(mode::kMemory);
    SetAddressZero();
    const CommandBlock block = MakeCommandBlock(static_cast<std::uint32_t>(kImage.size()), OP_WRITE_MEMORY);
    LinkWrite(block.data(), block.size());
    for (std::size_t at = 0; at < kImage.size(); at += kChunkSize)
      LinkWrite(kImage.data() + at, static_cast<std::uint32_t>(std::min<std::size_t>(kChunkSize, kImage.size() - at)));
    LinkRead(status.data(), status.size());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kImage.size()));
}
BENCHMARK(BM_BareLoop);

}  // namespace
}  // namespace pyxis

BENCHMARK_MAIN();
