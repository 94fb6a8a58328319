// From a program file to the two package files: the dispatch over the converter families.
#pragma once

#include <cstdint>
#include <string>

namespace pyxis {

struct ConvertRequest {
  std::uint32_t ChipCode = 0;
  std::uint32_t* OptionValue = nullptr;  // protection choices; never null in a call
  std::string Path;
  bool SnMode = false;
  bool ExhvIsp = false;
  bool MassProduction = false;
  bool ProductionLimitOn = false;
  std::uint32_t ProductionLimitBcd = 0;
  bool IspProgram = false;
};

// 0 when the converter returned 0, else 1; the converter has told the operator why. Sets the results of a conversion in
// AppState, and writes WriterModelByte into the option package whatever happened.
int ConvertFile(const ConvertRequest& request);

// The code that the last converter returned (0 to 5); -1 when the ChipCode has none.
int LastConverterCode();

// The count in packed decimal: at most 8 digits from the left (1234 becomes 0x1234).
std::uint32_t PackedDecimal(std::int32_t count);

}  // namespace pyxis
