// What the writer says of itself: identity, hardware revision, firmware.
#pragma once

namespace pyxis {

// Opens the writer as at program start: velmarapi first, then the frame link. Sets UseVendorApi and WriterConnected.
void OpenTransport();
// Closes the active transport, as at program end.
void CloseTransport();

// The identity over the active transport into WriterIdentityText, then IdentifyWriter.
void ReadWriterIdentity();
// Sets HwFolder and HwKnown from WriterIdentityText.
void IdentifyWriter();
// Fills FirmwareCode, FirmwareVersion, FirmwareLevel; leaves the writer in mode 7.
void ReadFirmwareBytes();

}  // namespace pyxis
