// What goes wrong with the stand-in writer on demand.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace pyxis::standin {

// Counters count down to the event; nothing is off. A transfer is one of the frame link, or one call of velmarapi.
struct Faults {
  std::optional<int> stallAfter;                // transfers until it answers no more, though it stays plugged in
  std::optional<int> disconnectAfter;           // transfers until the device is gone
  std::optional<int> dropStatusBlock;           // the nth status block from now is not delivered (frames only)
  std::optional<std::size_t> damageAreaByte;    // this byte of each area read-back comes back wrong
  std::optional<std::size_t> damageMemoryByte;  // likewise of memory, for reads of more than a byte
  std::optional<int> failTask;                  // the nth task from now ends with the verdict failure
  bool noVerdict = false;                       // tasks never settle
};

// A fault's name, and whether a number goes with it.
struct FaultName {
  const char* name;
  bool takesNumber;
  const char* what;
  void (*set)(Faults& faults, int number);
};
std::span<const FaultName> FaultNames();

// Sets a fault by its name, with its number behind a blank: "no-verdict", "fail-task 2". False for what is no fault, or
// has no number of 0 and up where one belongs.
bool SetFault(Faults& faults, std::string_view words);

}  // namespace pyxis::standin
