// The two forms of every command: frames over the frame link, and the calls of velmarapi, which does its own framing.
// Which one is active, UseVendorApi tells; it is asked here alone. What a form does otherwise than the other is a
// question of this class.
#pragma once

#include <cstdint>
#include <span>

#include "link/opcodes.h"

namespace pyxis {

class Transport {
 public:
  virtual ~Transport() = default;

  // A command with data. What has become of it shows in what is read back.
  virtual void Write(Opcode opcode, std::span<const std::uint8_t> data) = 0;
  // A command from the writer. True on success; velmarapi's results aren't to be relied on: always true.
  virtual bool Read(Opcode opcode, std::span<std::uint8_t> buffer) = 0;
  virtual void ReadIdentity(std::span<std::uint8_t> buffer) = 0;
  // Behind an arrival. Whether the writer is there; velmarapi has found it already.
  virtual bool Open() = 0;
  virtual void Close() = 0;
  // Whether the writer goes on answering behind the removal of a device: it was another one's.
  virtual bool SurvivesRemoval() const = 0;
  // Whether events name the writer's interface; else each may be the writer's.
  virtual bool NamesItsEvents() const = 0;
  virtual const char* Name() const = 0;  // "vendor", "usb" or "pipes"

  // Frames drive the progress bar by themselves while ProgressMode is Transfers, and so mind ProgressMode and
  // TransferBusy; with velmarapi the operations set fixed positions.
  virtual bool DrivesProgress() const = 0;
  // Frames address the memory only of a writer whose identity is known.
  virtual bool CanAddress() const = 0;
  virtual std::size_t AddressWidth() const = 0;  // bytes, high byte first, zeros in front
  virtual bool TestValueLowByteFirst() const = 0;
  // After a firmware load that failed its read-back the closing commands are the caller's.
  virtual bool LeavesFailedLoadOpen() const = 0;
};

Transport& ActiveTransport();

}  // namespace pyxis
