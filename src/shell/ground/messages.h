// Texts that several operations tell, as Printf takes them.
#pragma once

#include <string>

namespace pyxis {

inline constexpr char kWriteFileError[] = "%s write file error\n";
inline constexpr char kOpenFileError[] = "%s open file error\n";
inline constexpr char kOpenFailed[] = "%s open failed !\n";
inline constexpr char kNotIntelHex[] = "File %s Not Intel HEX format ???\n";
inline constexpr char kUpdateFirmwareFail[] = "Update Firmware Fail";
inline constexpr char kUsbNotConnected[] = "USB was not connected";
inline constexpr char kPowerOnTheWriter[] = "Please Power On The Writer";
inline constexpr char kOtherChip[] = "HW and SW Chip Name is discordant";
inline constexpr char kChipNameCaption[] = "Chip Name : ";

void TellText(const std::string& text);  // as it stands, in a plain box
void TellOpenFail(const std::string& path);

}  // namespace pyxis
