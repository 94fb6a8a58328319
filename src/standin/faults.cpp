#include "standin/faults.h"

#include <charconv>

namespace pyxis::standin {

namespace {

// clang-format off
constexpr FaultName kFaults[] = {
    {"stall", false, "answer no more, but stay plugged in",
     [](Faults& faults, int) { faults.stallAfter = 0; }},
    {"stall-after", true, "the same after N transfers",
     [](Faults& faults, int number) { faults.stallAfter = number; }},
    {"disconnect-after", true, "end, as if the cable were pulled, after N transfers",
     [](Faults& faults, int number) { faults.disconnectAfter = number; }},
    {"drop-status", true, "lose the Nth status block (USB redirection only)",
     [](Faults& faults, int number) { faults.dropStatusBlock = number; }},
    {"damage-byte", true, "damage byte N of each package read-back",
     [](Faults& faults, int number) { faults.damageAreaByte = static_cast<std::size_t>(number); }},
    {"damage-memory", true, "damage byte N of each firmware read-back",
     [](Faults& faults, int number) { faults.damageMemoryByte = static_cast<std::size_t>(number); }},
    {"fail-task", true, "let the Nth task fail",
     [](Faults& faults, int number) { faults.failTask = number; }},
    {"no-verdict", false, "never give a verdict",
     [](Faults& faults, int) { faults.noVerdict = true; }},
    {"no-fault", false, "be sound again",
     [](Faults& faults, int) { faults = Faults{}; }},
};
// clang-format on

}  // namespace

std::span<const FaultName> FaultNames() { return kFaults; }

bool SetFault(Faults& faults, std::string_view words) {
  const std::size_t blank = words.find(' ');
  for (const FaultName& fault : kFaults) {
    if (words.substr(0, blank) != fault.name || fault.takesNumber != (blank != std::string_view::npos)) continue;
    int number = 0;
    if (fault.takesNumber) {
      const char* const end = words.data() + words.size();
      const auto [last, error] = std::from_chars(words.data() + blank + 1, end, number);
      if (error != std::errc() || last != end || number < 0) return false;
    }
    fault.set(faults, number);
    return true;
  }
  return false;
}

}  // namespace pyxis::standin
