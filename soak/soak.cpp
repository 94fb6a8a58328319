// A line's day, a million times: series of serial numbers on both roads and jobs with a production limit, with failed
// tasks, damaged read-backs, cables pulled at random transfers, reloads, Set Protect and operators who cancel. After
// each chip what it carries, what the windows show and what the limit says are compared with the soak's own count.
//
// Left out: a cable that is pulled while a firmware image is sent; a writer that stalls but keeps its power; Auto of
// the main window beside a serial window, which the buttons forbid but after a cancelled Device and an arrival.
#include <chrono>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

#include "soak/line.h"
#include "soak/recorded_line.h"

namespace {

using namespace pyxis;

constexpr int kRunsOfADay = 60, kRecordedSeriesOfADay = 5;

struct Arguments {
  std::uint64_t chips = 100000, seed = 0;
};

bool Parse(int argc, char** argv, Arguments& arguments) {
  std::random_device device;
  arguments.seed = device();
  bool chips = false;
  for (int i = 1; i < argc; ++i) {
    char* end = nullptr;
    const bool seed = std::strcmp(argv[i], "--seed") == 0;
    if ((seed && ++i == argc) || (!seed && chips)) return false;
    (seed ? arguments.seed : arguments.chips) = std::strtoull(argv[i], &end, 10);
    if (end == argv[i] || *end != '\0') return false;
    chips = chips || !seed;
  }
  return true;
}

void PrintTotals(const soak::Totals& totals, double seconds) {
  std::printf("%" PRIu64 " chips, %" PRIu64 " good; %" PRIu64 " runs, %" PRIu64 " loads", totals.chips, totals.good,
              totals.runs, totals.loads);
  const char* before = "; ";
  for (const auto& [kind, count] : totals.failures) {
    std::printf("%s%s %" PRIu64, before, kind.c_str(), count);
    before = ", ";
  }
  std::printf("; %.1f s\n", seconds);
}

}  // namespace

int main(int argc, char** argv) {
  Arguments arguments;
  if (!Parse(argc, argv, arguments)) {
    std::fprintf(stderr, "usage: soak [CHIPS] [--seed N]\n");
    return 2;
  }
  std::printf("seed %" PRIu64 "\n", arguments.seed);
  std::fflush(stdout);
  const auto start = std::chrono::steady_clock::now();
  soak::Totals totals;
  soak::Chance days(arguments.seed);
  try {
    while (totals.chips < arguments.chips) {
      const auto transport = days.OneIn(2) ? test::Transport::Usb : test::Transport::Vendor;
      soak::RecordedLine recorded(transport, days.Next(), totals);
      for (int series = 0; series < kRecordedSeriesOfADay; ++series) recorded.Run();
      soak::Line line(transport, days.Next(), totals);
      try {
        for (int run = 0; run < kRunsOfADay && totals.chips < arguments.chips; ++run) line.Run();
      } catch (const soak::Difference& difference) {
        throw soak::Difference(difference.what() + ("\n" + line.Story()));
      }
    }
  } catch (const soak::Difference& difference) {
    std::printf("seed %" PRIu64 ", run %" PRIu64 ", chip %" PRIu64 ": %s\n", arguments.seed, totals.runs, totals.chips,
                difference.what());
    return 1;
  }
  PrintTotals(totals, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  return 0;
}
