// The makers of a program folder: templates, option lists, firmware images, sample program files. All of it is
// deterministic. The pictures, which need Qt, are made by drawing/.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "shell/ground/app_state.h"

namespace pyxis::folder {

using Bytes = std::vector<std::uint8_t>;

// All files but the pictures below `dir`, which is made if need be. False, with a line on standard error, when a file
// can't be written.
bool BuildProgramFolder(const std::string& dir);

// The template of an IC by the template's name; empty for a name that no IC has.
Bytes MakeTemplate(const std::string& name);
std::set<std::string> TemplateNames();

// The option list of an IC with Smart Option by its name; empty for any other.
Bytes MakeTin(const std::string& chipName);

// A firmware image of model 1 or 2. The test images have the code 0 as well.
Bytes MakeFirmware(Model model, std::uint32_t firmwareCode);

struct Sample {
  std::string fileName;
  Bytes contents;
};
// Program files that pass the checks of a catalogue IC; the first is the usual one.
std::vector<Sample> MakeSamples(const std::string& chipName);

// A run of bytes that looks like code and is the same every time for the same seed.
class Filler {
 public:
  explicit Filler(const std::string& seed);
  std::uint32_t Next();

 private:
  std::uint32_t state_;
};

}  // namespace pyxis::folder
