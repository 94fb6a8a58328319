#include "link/transport.h"

#include "link/command_frames.h"
#include "link/identification.h"
#include "link/writer_link.h"
#include "platform/machine.h"
#include "platform/vendor_api.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

std::uint32_t LengthOf(std::span<const std::uint8_t> bytes) { return static_cast<std::uint32_t>(bytes.size()); }

class FrameTransport : public Transport {
  void Write(Opcode opcode, std::span<const std::uint8_t> data) override {
    SendBlock(data.data(), LengthOf(data), opcode);
  }
  bool Read(Opcode opcode, std::span<std::uint8_t> buffer) override {
    return ReceiveBlock(buffer.data(), LengthOf(buffer), opcode) != 0;
  }
  void ReadIdentity(std::span<std::uint8_t> buffer) override { pyxis::ReadIdentity(buffer.data()); }
  bool Open() override { return OpenWriterLink() != 0; }
  void Close() override { CloseWriterLink(); }
  bool SurvivesRemoval() const override { return false; }
  bool NamesItsEvents() const override { return true; }
  const char* Name() const override { return TheAppState().writer.UseLibusb ? "usb" : "pipes"; }
  bool DrivesProgress() const override { return true; }
  bool CanAddress() const override { return TheAppState().writer.HwKnown; }
  std::size_t AddressWidth() const override { return 2; }
  bool TestValueLowByteFirst() const override { return true; }
  bool LeavesFailedLoadOpen() const override { return true; }
};

class VendorTransport : public Transport {
  void Write(Opcode opcode, std::span<const std::uint8_t> data) override {
    TheMachine().vendor->VMWrite(opcode, data.data(), LengthOf(data));
  }
  bool Read(Opcode opcode, std::span<std::uint8_t> buffer) override {
    TheMachine().vendor->VMRead(opcode, buffer.data(), LengthOf(buffer));
    return true;
  }
  void ReadIdentity(std::span<std::uint8_t> buffer) override { Read(OP_IDENTITY, buffer); }
  bool Open() override { return true; }
  void Close() override { TheMachine().vendor->VMClose(); }
  bool SurvivesRemoval() const override { return VendorWriterAnswers(); }
  bool NamesItsEvents() const override { return false; }
  const char* Name() const override { return "vendor"; }
  bool DrivesProgress() const override { return false; }
  bool CanAddress() const override { return true; }
  std::size_t AddressWidth() const override { return 4; }
  bool TestValueLowByteFirst() const override { return false; }
  bool LeavesFailedLoadOpen() const override { return false; }
};

FrameTransport frames;
VendorTransport vendor;

}  // namespace

Transport& ActiveTransport() {
  if (TheAppState().writer.UseVendorApi) return vendor;
  return frames;
}

}  // namespace pyxis
