// The two pipes of the writer's device-interface driver. They exist on Windows only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pyxis {

class DevicePipes {
 public:
  using Handle = void*;
  virtual ~DevicePipes() = default;
  // Whether this system has such pipes at all.
  virtual bool Exist() const = 0;
  // Paths of the present interfaces of the writer's class, in enumeration order.
  virtual std::vector<std::string> InterfacePaths() = 0;
  // For reading and writing, shared, existing; null when it can't be opened, with the system's error code.
  virtual Handle Open(const std::string& path, int& error) = 0;
  virtual bool Write(Handle handle, const std::uint8_t* data, std::uint32_t count) = 0;
  virtual bool Read(Handle handle, std::uint8_t* data, std::uint32_t count) = 0;
  virtual void Close(Handle handle) = 0;
};

}  // namespace pyxis
