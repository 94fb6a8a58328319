// The line below the buttons: what the last task's verdict was, once its message box is closed, and how the chips since
// the last load have fared. The main window and the serial window show it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace pyxis {

struct VerdictLine {
  std::string words;  // of the last verdict; empty while a task runs, and when there was none
  bool good = false;
  std::uint32_t ok = 0, ng = 0;
  std::optional<std::uint32_t> left;  // of a production limit, as far as the host knows

  bool operator==(const VerdictLine&) const = default;
  std::string Counts() const;  // in words; empty when nothing has been counted
};

// Cleared by another job: IC selection, Load File, a writer that holds another one.
void ClearVerdict();
// A load begins a production limit anew; the writer may also say that it is used up.
void SetChipsLeft(std::uint32_t count);

// A task starts: the former verdict is no longer one of the chip in the socket.
void BeginVerdict();
// A task has ended. A bad verdict sounds. `takesOne`: a good one takes a chip off the production limit.
void ShowVerdict(const std::string& words, bool good, bool takesOne);

}  // namespace pyxis
