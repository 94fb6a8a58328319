// What the writer says of itself: identity, hardware revision, firmware.
#pragma once

#include <array>

#include "shell/ground/app_state.h"

namespace pyxis {

// Opens the writer as at program start: velmarapi first, then the frame link. Sets UseVendorApi and WriterConnected.
void OpenTransport();
// The frame link alone. Sets WriterConnected.
void OpenFrameTransport();
// velmarapi alone: whether it can open the writer, and the same with the link state set and its time-out.
bool VendorWriterAnswers();
bool OpenVendorTransport();
// The same at an arrival: anew, and UseVendorApi goes back where it can't.
void ReopenVendorTransport();
// Closes the active transport, as at program end.
void CloseTransport();

// The identity over the active transport, zero-terminated; empty when there is no answer.
void ReadIdentityText(std::array<char, kIdentitySize + 1>& text);
// The same into WriterIdentityText, then IdentifyWriter.
void ReadWriterIdentity();
// Sets HwFolder and HwKnown from WriterIdentityText.
void IdentifyWriter();
// Fills FirmwareCode, FirmwareVersion, FirmwareLevel; leaves the writer in mode 7.
void ReadFirmwareBytes();

}  // namespace pyxis
