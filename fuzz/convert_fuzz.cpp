// Any bytes as a program file of any IC: the first bytes choose the IC and the flags.
#include "catalogue/ics.h"
#include "intake/convert.h"
#include "intake/package_files.h"
#include "scratch.h"
#include "shell/ground/app_state.h"

namespace {

// ICs with a converter of their own that no catalogue row reaches.
constexpr std::uint32_t kOthers[] = {0x1629, 0x1633, 0x1742, 0x9840, 0x1357, 0x1390, 0x37061, 0x3702};
constexpr std::size_t kChoices = pyxis::kIcs.size() + std::size(kOthers);

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pyxis;
  if (size < 4) return 0;
  fuzz::Scratch scratch;
  const std::size_t choice = data[0] % kChoices;
  const bool listed = choice < kIcs.size();
  const char* extension = (data[1] & 0x80) != 0 ? ".bin" : ".hex";
  scratch.Put(std::string("job") + extension, data + 4, size - 4);
  scratch.Put(kSerialFileName, data, size < 256 ? size : 256);
  scratch.PutTemplates(data[3], data[2]);
  std::uint32_t optionValue = data[3];
  TheAppState().selection.SelectedChip = listed ? kIcs[choice].ChipName : "";
  ConvertFile({.ChipCode = listed ? kIcs[choice].ChipCode : kOthers[choice - kIcs.size()],
               .OptionValue = &optionValue,
               .Path = scratch.Path(std::string("job") + extension),
               .SnMode = (data[1] & 1) != 0,
               .ExhvIsp = (data[1] & 2) != 0,
               .MassProduction = (data[1] & 4) != 0,
               .ProductionLimitOn = (data[1] & 8) != 0,
               .ProductionLimitBcd = 0x1234,
               .IspProgram = (data[1] & 16) != 0});
  return 0;
}
