// The pipes of the device-interface driver, on Windows.
#pragma once

#include "platform/device_pipes.h"

namespace pyxis {

class WindowsPipes : public DevicePipes {
 public:
  bool Exist() const override { return true; }
  std::vector<std::string> InterfacePaths() override;
  Handle Open(const std::string& path, int& error) override;
  bool Write(Handle handle, const std::uint8_t* data, std::uint32_t count) override;
  bool Read(Handle handle, std::uint8_t* data, std::uint32_t count) override;
  void Close(Handle handle) override;
};

}  // namespace pyxis
