// Option Select 1 on the command line: by words, or all three pairs by the bits of a value. Protection is never chosen
// by silence, so the commands that load a program file ask for exactly what the dialog asks for their IC.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace CLI {
class App;
}  // namespace CLI

namespace pyxis {
struct ChipEntry;
}  // namespace pyxis

namespace pyxis::job {

struct Job;

struct OptionWords {
  bool protect = false, unprotect = false, fast = false, dual = false, clock32k = false, noClock32k = false;
  std::optional<std::uint32_t> value;
};

// Whether any is given, the value included.
bool AnyWord(const OptionWords& given);
void AddOptionWords(CLI::App& command, OptionWords& given);
// What is missing or too much for this IC, as a line for standard error; nothing when the words fit.
std::optional<std::string> WrongOptions(const ChipEntry& row, const OptionWords& given);
// The dialog is answered by the words from here on; they outlive the job's commands.
void AnswerOptionsBy(Job& job, const OptionWords& given);

}  // namespace pyxis::job
