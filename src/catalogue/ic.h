// An IC: one record holds all that differs by IC outside the converters. The records stand in catalogue/ics/, a file a
// group of a series. No field has a default: the compiler refuses a record that leaves one out.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "intake/read_mode.h"
#include "shell/ground/app_state.h"

namespace pyxis {

// The groups of IC selection. None: not in the catalogue, so that the IC can't be selected.
enum class Series { None, Qv41, Qv42, Qv81, Qv82, Qv83, Qv85, UsbLow, UsbFull };

// The text of a row of the Type list: the IC's name alone, or the name, "_" and the pin counts of the packages that
// share a figure. The rows of a list stand in the order of the records; one that stands elsewhere names the row in
// front of it.
struct Label {
  const char* text = "";
  const char* behind = "";
  constexpr Label() = default;
  constexpr Label(const char* label) : text(label) {}
  constexpr bool IsThere() const { return *text != '\0'; }
  constexpr bool StandsElsewhere() const { return *behind != '\0'; }
};
constexpr Label Behind(const char* label, const char* text) {
  Label row(text);
  row.behind = label;
  return row;
}
using Labels = std::array<Label, 4>;
inline constexpr Labels kNoRow{};

// What a click on the IC does to a check box of IC selection.
enum class BoxRule { Leave, Enable, Disable };
struct SelectionBoxes {
  BoxRule displaySerial, massProduction, productionLimit;
};

// The ways of in-system programming that IC selection offers.
enum class Isp { None, Exhv, ExhvAndIsp };

// What the firmware runs on.
struct FirmwareImage {
  const char* file;    // null: the IC isn't in the catalogue
  std::uint32_t code;  // ICs of one code share an image; 0: the common one
};

// Status polls that move the bar by one, during Auto, Blank check, Program, Verify.
struct Ticks {
  std::uint32_t autoRun, blank, program, verify;
};

// Bit fields of the configuration word, one a Smart Option row; 0 ends them.
using Masks = std::array<std::uint32_t, kOptionSlots>;

// A value that the KM49 rows of an IC may have otherwise than its KM48 row.
template <typename T>
struct PerModel {
  T km48, km49;
  constexpr PerModel(const T& both) : km48(both), km49(both) {}
  constexpr PerModel(const T& first, const T& second) : km48(first), km49(second) {}
};

// What the operator chooses besides the program file: nothing, the words of Smart Option, or protection (and on one
// kind mode and clock) in Option Select 1, which an OK takes into OptionValue in different ways.
enum class OptionChoice { None, Smart, UnprotectAlone, UnprotectBit, AllBits };

// Which pairs of boxes the fuse panel shows.
enum class PanelKind { None, ProtectionOnly, Full };

enum class ProtectedBy { SetBit, ClearedBit };

// Where the job keeps the protection: a bit of the information block.
struct Protection {
  PanelKind panel;
  std::size_t byte;  // in the block
  int bit;           // of that byte; on a full panel the two bits above it are mode and clock
  ProtectedBy protectedBy;
  bool inConfigWord;  // the byte is the high byte of SystemConfigWord too
  bool fromFile;      // the panel shows what Load File found in the program file
  bool fromBlock;     // the panel shows what the writer holds when the selection is restored from it
  bool operator==(const Protection&) const = default;
};

// Where a serial number may lie.
enum class SnUnit { Bytes, Words };
inline constexpr std::uint32_t kAnyAddress = 0xFFFFFFFF;
struct SerialPlace {
  std::uint32_t endLimit;      // the highest value of start address plus length; 0: the IC takes no serial number
  SnUnit endMarkCounts;        // what the end mark of serial.txt counts
  std::uint32_t fixedAddress;  // the one place of four bytes, or kAnyAddress
};

// The file that Compare File lays beside the writer's data area, made from a program file.
struct CompareKind {
  enum class Target { IntelHex, Cut, LeftByLoadFile };
  const char* filter;  // of the file dialog
  Target target;
  ReadMode mode;  // IntelHex
  // Cut: the configuration unit comes first, then the image behind the header. 0 image bytes: up to the file's end.
  std::size_t header, configAt, configBytes, imageBytes;
};

// Entries of the menu Operation that the IC allows.
struct MenuEntries {
  bool serialNumberProgram;
  bool readChipInfo;
};

inline constexpr int kInLabel = 0;

struct Ic {
  const char* ChipName;
  std::uint32_t ChipCode;  // kNoCode: the name occurs in a writer's job, but there is no converter
  const char* templateName;

  // IC selection.
  Series series;
  Labels km48, km49;  // the rows in the lists of the two models
  int pins;           // of the package that the figure shows, or kInLabel: the KM49 labels tell them
  SelectionBoxes boxes;
  Isp isp;

  // The program file and the writer.
  const char* FileExtension;
  FirmwareImage firmware;
  Ticks ticks;
  PerModel<std::uint32_t> ReadSizeBytes;
  bool ReadSwapBytes;
  CompareKind comparison;

  // What can be set.
  OptionChoice options;
  PerModel<Masks> masks;
  Protection protection;
  SerialPlace serial;
  MenuEntries menus;
};
inline constexpr std::uint32_t kNoCode = 0;

// An IC that isn't in the catalogue, so that it can't be selected: what the rest of the program knows of it.
struct UnlistedIc {
  const char* ChipName;
  std::uint32_t ChipCode;
  const char* templateName;
  CompareKind comparison;
  Protection protection;
  SerialPlace serial;
  MenuEntries menus;
};

}  // namespace pyxis
