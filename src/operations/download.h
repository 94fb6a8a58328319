// Packages into the writer, with read-back.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "shell/ground/outcome.h"

namespace pyxis {

// A package file and a firmware transfer have at most this many bytes.
inline constexpr std::size_t kTransferBufferSize = 131072;

// A read-back buffer of `length` bytes before the read: every byte differs from what was sent, so that bytes that a
// failed transfer doesn't bring can't pass.
std::vector<std::uint8_t> DiffersFrom(std::span<const std::uint8_t> sent, std::size_t length);

// Both package files; tells the operator itself. Failed: OptionNotArrived, DataNotArrived.
Outcome DownloadPackages();
// One file into one area (area::kOption or area::kData); good when the read-back equals the file. Failed: NotReadable,
// also for a file that is too long; Different. The operator is told of a file that can't be opened, since the closing
// commands come behind that.
Outcome DownloadPackageFile(const std::string& path, std::uint8_t areaSelector);
// The beginning of a load of packages, and the end of one, also of a load of firmware.
void OpenPackageLoad();
void CloseLoad();
// The option area alone: opens the load, sends the file, closes. The outcome of DownloadPackageFile.
Outcome RewriteOptionArea(const std::string& path);

}  // namespace pyxis
