// The process-wide state: plain data, one instance, no lock, read and written directly by every room on the one thread.
// The ground that all rooms stand on is this folder; the rest of shell/ lies on top.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/operator.h"
#include "platform/program_folder.h"

namespace pyxis {

inline constexpr std::size_t kInfoBlockSize = 512;
inline constexpr std::size_t kIdentitySize = 26;
inline constexpr std::uint32_t kHostFirmwareLevel = 4;  // the firmware level that this program is made for
inline constexpr std::int32_t kNoSystemConfig = -1;

// The writer's model: none known, the first, the second.
enum class Model { None = 0, Km48 = 1, Km49 = 2 };
inline constexpr std::uint8_t kRegisterKm48 = 0x98;
inline constexpr std::uint8_t kRegisterKm49 = 0x99;
// The model's byte as the register and WriterModelByte have it; the second model's for an unknown one.
constexpr std::uint8_t RegisterOf(Model model) { return model == Model::Km48 ? kRegisterKm48 : kRegisterKm49; }
constexpr Model ModelOf(std::uint8_t modelRegister) {
  return modelRegister == kRegisterKm48 ? Model::Km48 : modelRegister == kRegisterKm49 ? Model::Km49 : Model::None;
}
inline constexpr char kNameKm48[] = "KM48", kNameKm49[] = "KM49";
constexpr const char* NameOf(Model model) {
  return model == Model::Km48 ? kNameKm48 : model == Model::Km49 ? kNameKm49 : "unknown";
}

// What the progress bar follows. Only Transfers changes what the link does: each transfer then drives the bar.
enum class Progress { None = 0, Transfers = 1, Auto = 2, BlankCheck = 3, Program = 4, Verify = 5, Read = 6 };

// WithLimit comes from a writer that holds a job with a production limit: it counts as set for the buttons, but not as
// On for the labels and the menu; its value is the one in ProductionFlags.
enum class MassMode : std::uint8_t { Off = 0, On = 1, WithLimit = 0x11 };

// The link and what the writer has said of itself.
struct WriterState {
  bool UseVendorApi = false;
  bool UseLibusb = false;
  bool WriterConnected = false;
  std::array<char, kIdentitySize + 1> WriterIdentityText{};  // always zero-terminated
  bool HwKnown = false;
  std::string HwFolder = kHwFolder10;
  std::uint8_t ModelRegister = 0;  // 0x98 first model, 0x99 second model
  Model WriterModel = Model::None;
  std::array<std::uint8_t, kInfoBlockSize> WriterInfoBlock{};
  std::uint32_t FirmwareCode = 0;
  std::uint8_t FirmwareVersion = 0;
  std::uint32_t FirmwareLevel = 0;
  bool FirmwareLoadFailed = false;
  bool TransferBusy = false;
  Progress ProgressMode = Progress::None;
  bool SnLoaded = false;  // the writer holds serial.txt
};

// AppDir ends with a separator, StartDirectory doesn't.
struct ProgramState {
  std::string AppDir;
  std::string StartDirectory;
  std::string ReadyText;  // lines end in CR LF
};

// Fields of a configuration word that Smart Option sets, one a row, and the end mark.
inline constexpr std::size_t kOptionSlots = 9;

// The IC, what was chosen with it, and what its catalogue row says.
struct Selection {
  std::string SelectedChip;
  std::string ChipNameText;
  int SeriesIndex = 0;
  int TypeIndex = 0;
  bool HasSmartOption = false;
  bool SnMode = false;
  bool ExhvIsp = false;
  bool IspProgram = false;
  MassMode MassProduction = MassMode::Off;
  bool ProductionLimitOn = false;
  std::int32_t ProductionLimitCount = 1;
  std::uint32_t OptionValue = 0;

  // Copied from the catalogue's row whenever an IC is looked up.
  std::uint32_t AutoTicks = 1, BlankTicks = 1, ProgramTicks = 1, VerifyTicks = 1;
  std::uint32_t ReadSizeBytes = 0;
  bool ReadSwapBytes = false;
  std::array<std::uint32_t, kOptionSlots> OptionMasks{};

  bool operator==(const Selection&) const = default;
};

// Results of a conversion. They keep their values until the next one changes them.
struct ConversionState {
  std::uint16_t ImageChecksum = 0;
  std::uint16_t ChecksumInput = 0;
  std::int32_t SystemConfigWord = kNoSystemConfig;
  std::uint32_t DualSkip = 0;     // words
  bool ImageUnprotected = false;  // of a 4-bit IC
  std::uint32_t UsedLength = 0;
  std::uint16_t PartialChecksum = 0xFFFF;
  std::string LoadedFilePath;
  std::string ChecksumText;
  std::optional<std::uint16_t> JobChecksum;  // of the job that is shown; nothing while none is known
};

struct Cursors {
  CursorHandle BusyCursor = 0;
  CursorHandle PreviousCursor = 0;
};

struct AppState {
  WriterState writer;
  ProgramState program;
  Selection selection;
  ConversionState conversion;
  Cursors cursors;
};

AppState& TheAppState();
void ResetAppState();

}  // namespace pyxis
