// The fixed knowledge of the ICs: thirteen lists of rows, 0 to 7 for the model KM48, 8 to 12 for the KM49. They are
// made of the records in catalogue/ics/, which catalogue/ics.h gathers.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "catalogue/ic.h"
#include "shell/ground/app_state.h"

namespace pyxis {

inline constexpr int kListCount = 13;
inline constexpr int kFirstKm49List = 8;

struct ChipEntry {
  const char* ChipName;
  const char* TypeLabel;
  const char* FileExtension;  // ".hex", ".obj", ".otp", ".epm", ".velmar" or ".hexbin"
  std::uint32_t ChipCode;
  bool HasOptionDialog;
  bool HasSmartOption;
  std::uint32_t AutoTicks, BlankTicks, ProgramTicks, VerifyTicks;  // never 0
  Masks OptionMasks;
  std::uint32_t ReadSizeBytes;
  bool ReadSwapBytes;
  bool HasIspProgram;
  const Ic* ic;  // all that is known of the IC
};

struct Firmware {
  std::string path;  // AppDir, the model's firmware folder, FirmwareFile
  std::uint32_t FirmwareCode;
};

// The rows of a list, in the order of the Type list.
std::span<const ChipEntry> ChipList(int listIndex);
const ChipEntry& Row(int seriesIndex, int typeIndex);
// The first row of an IC by its ChipName, which the KM49 labels don't give; null for a name that no IC has.
const ChipEntry* RowOfChip(std::string_view chipName);

// The record of an IC, in the catalogue or not, by the whole name; null for a name that no IC has.
const Ic* IcOfName(std::string_view chipName);
// The same, or the record of no IC: a name that no IC has, as a writer's job may bear, takes no serial number, is
// compared as a .hex file and forbids no menu entry.
const Ic& IcOrUnknown(std::string_view chipName);
// Likewise by its code.
const Ic* IcOfCode(std::uint32_t chipCode);
std::span<const Ic* const> AllIcs();

// Whether Display Serial Number and Mass Production Mode are offered when a list is chosen.
bool SeriesTakesSerialAndMass(int listIndex);

// Whether a block begins as every IC's name does.
bool StartsLikeAName(std::span<const std::uint8_t> block);

// The captions of the Series list: eight for model 1, five for model 2, none for any other.
std::span<const char* const> SeriesCaptions(Model model);
int ListIndex(Model model, int position);

// Looks a row up by TypeLabel, without regard to case, list 0 first. 1 when found: the two indexes are stored and the
// row's per-chip values are copied into AppState. 0: nothing has changed.
int FindChip(std::string_view label, int& seriesIndex, int& typeIndex);

// The image that a ChipCode runs on. Model 1 takes it from firmware48, any other from firmware49. Nothing for a code
// without a catalogue row.
std::optional<Firmware> FirmwareFor(std::uint32_t chipCode, Model model);
// Of a program folder: the folder of a model's firmware images, and in it the one for a writer without any.
constexpr const char* FirmwareFolderName(Model model) { return model == Model::Km48 ? "firmware48" : "firmware49"; }
constexpr const char* TestImageName(Model model) { return model == Model::Km48 ? "48test.nce" : "49test.nce"; }
std::string FirmwareFolder(Model model);  // AppDir and "firmware48" or "firmware49", with a separator

// Path of the package figure of a label (or chip name): normal, EXHV ISP, ISP. The file needn't exist.
std::string FigurePath(std::string_view label, bool exhvIsp, bool isp);

}  // namespace pyxis
