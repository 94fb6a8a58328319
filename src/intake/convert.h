// From a program file to the two package files: the dispatch over the converter families.
#pragma once

#include <cstdint>
#include <string>

#include "intake/file_readers.h"

namespace pyxis {

struct ConvertRequest {
  std::uint32_t ChipCode = 0;
  std::string SelectedChip;              // tells ICs apart that share a routine
  std::uint32_t* OptionValue = nullptr;  // protection choices; never null in a call
  std::string Path;
  bool SnMode = false;
  bool ExhvIsp = false;
  bool MassProduction = false;
  bool ProductionLimitOn = false;
  std::uint32_t ProductionLimitBcd = 0;
  bool IspProgram = false;
  Report Tell = [](const std::string&) {};
};

// Codes that converters return.
enum ConverterCode : int {
  kNoConverter = -1,  // the ChipCode has none
  kConverted = 0,
  kSourceFailed = 1,  // serial file, template or binary program file; serial range
  kOptionFailed = 2,  // option package, and a wrong ID
  kDataFailed = 3,
  kReaderFailed = 4,
  kImageFailed = 5,
};
inline constexpr ConverterCode kWrongId = kOptionFailed;

// What became of one conversion.
struct ConversionResults {
  ConverterCode code = kNoConverter;  // the converter's own
  int result = 1;                     // of the dispatch: 0 when both package files stand
  std::string LoadedFilePath = {};    // which file the run worked from; empty when it failed
  std::string shownFile = {};         // the same file under its own name, where that differs in case

  bool Good() const { return result == 0; }
};

// Converts; on a failure it has told why. Leaves the values of a conversion in AppState, LoadedFilePath
// only after a good one, and writes WriterModelByte into the option package whatever happened.
ConversionResults ConvertFile(const ConvertRequest& request);

// The count in packed decimal: at most 8 digits from the left (1234 becomes 0x1234).
std::uint32_t PackedDecimal(std::int32_t count);

}  // namespace pyxis
