// The process-wide state: plain data, one instance, no lock, read and written directly by every room on the one thread.
// This header and main_controls.h are the ground that all rooms stand on; the rest of shell/ lies on top.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/operator.h"

namespace pyxis {

inline constexpr std::size_t kInfoBlockSize = 512;
inline constexpr std::size_t kIdentitySize = 26;
inline constexpr std::uint32_t kHostFirmwareLevel = 4;  // the firmware level that this program is made for
inline constexpr std::int32_t kNoSystemConfig = -1;
inline constexpr int kModelNone = 0;
inline constexpr int kModelKm48 = 1;
inline constexpr int kModelKm49 = 2;

struct AppState {
  // Link and writer.
  std::uint32_t UseVendorApi = 0;
  std::uint32_t UseLibusb = 0;
  std::uint32_t WriterConnected = 0;
  std::array<char, kIdentitySize + 1> WriterIdentityText{};  // always zero-terminated
  std::uint32_t HwKnown = 0;
  std::string HwFolder = "hwversion1.0";
  std::uint8_t ModelRegister = 0;  // 0x98 first model, 0x99 second model
  int WriterModel = kModelNone;
  std::array<std::uint8_t, kInfoBlockSize> WriterInfoBlock{};
  std::uint32_t FirmwareCode = 0;
  std::uint8_t FirmwareVersion = 0;
  std::uint32_t FirmwareLevel = 0;
  std::uint8_t FirmwareLoadFailed = 0;
  std::uint8_t TransferBusy = 0;
  int ProgressMode = 0;  // 1: each transfer drives the bar; 2 Auto, 3 Blank check, 4 Program, 5 Verify, 6 Read

  // Program and files. AppDir ends with a separator, StartDirectory doesn't.
  std::string AppDir;
  std::string StartDirectory;
  std::string SelectedChip;
  std::string LoadedFilePath;
  std::string ReadyText;  // lines end in CR LF

  // Copied from the catalogue's row whenever an IC is looked up.
  std::uint32_t AutoTicks = 1, BlankTicks = 1, ProgramTicks = 1, VerifyTicks = 1;
  std::uint32_t ReadSizeBytes = 0;
  bool ReadSwapBytes = false;
  std::array<std::uint32_t, 9> OptionMasks{};

  // Results of a conversion. They keep their values until the next one changes them.
  std::uint16_t ImageChecksum = 0;
  std::uint16_t ChecksumInput = 0;
  std::int32_t SystemConfigWord = kNoSystemConfig;
  std::uint32_t DualSkip = 0;          // words
  std::uint32_t ImageUnprotected = 0;  // 1: a 4-bit IC's image isn't protected
  std::uint32_t UsedLength = 0;
  std::uint16_t PartialChecksum = 0xFFFF;

  // The selection, and what was chosen with it.
  std::string ChipNameText;
  std::string ChecksumText;
  int SeriesIndex = 0;
  int TypeIndex = 0;
  std::uint32_t HasSmartOption = 0;
  std::uint32_t SnMode = 0;
  std::uint32_t ExhvIsp = 0;
  std::uint32_t IspProgram = 0;
  std::uint32_t MassProduction = 0;  // 0x11 after a refresh from a writer with a production limit
  std::uint32_t ProductionLimitOn = 0;
  std::int32_t ProductionLimitCount = 1;
  std::uint32_t OptionValue = 0;

  std::uint8_t SnLoaded = 0;  // the writer holds serial.txt

  CursorHandle BusyCursor = 0;
  CursorHandle PreviousCursor = 0;
};

AppState& TheAppState();
void ResetAppState();

}  // namespace pyxis
