#include "system/windows/windows_pipes.h"

// windows.h comes first: setupapi.h needs its types.
#include <setupapi.h>
#include <windows.h>

namespace pyxis {

namespace {

// {6580898B-0493-40B6-87AA-D307188D4E24}
constexpr GUID kWriterClass = {0x6580898B, 0x0493, 0x40B6, {0x87, 0xAA, 0xD3, 0x07, 0x18, 0x8D, 0x4E, 0x24}};

// The path of one interface; asked for twice, first for its size.
std::string PathOf(HDEVINFO set, SP_DEVICE_INTERFACE_DATA& device) {
  DWORD size = 0;
  SetupDiGetDeviceInterfaceDetailA(set, &device, nullptr, 0, &size, nullptr);
  if (size < sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_A)) return {};
  std::vector<std::uint8_t> buffer(size);
  auto* detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_A*>(buffer.data());
  detail->cbSize = sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_A);
  if (!SetupDiGetDeviceInterfaceDetailA(set, &device, detail, size, nullptr, nullptr)) return {};
  return detail->DevicePath;
}

}  // namespace

std::vector<std::string> WindowsPipes::InterfacePaths() {
  std::vector<std::string> paths;
  const HDEVINFO set = SetupDiGetClassDevsA(&kWriterClass, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
  if (set == INVALID_HANDLE_VALUE) return paths;
  SP_DEVICE_INTERFACE_DATA device{};
  device.cbSize = sizeof device;
  for (DWORD i = 0; SetupDiEnumDeviceInterfaces(set, nullptr, &kWriterClass, i, &device); ++i)
    paths.push_back(PathOf(set, device));
  SetupDiDestroyDeviceInfoList(set);
  return paths;
}

DevicePipes::Handle WindowsPipes::Open(const std::string& path, int& error) {
  const HANDLE handle = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
  error = static_cast<int>(GetLastError());
  return handle == INVALID_HANDLE_VALUE ? nullptr : handle;
}

bool WindowsPipes::Write(Handle handle, const std::uint8_t* data, std::uint32_t count) {
  DWORD written = 0;
  return WriteFile(handle, data, count, &written, nullptr) != 0;
}

bool WindowsPipes::Read(Handle handle, std::uint8_t* data, std::uint32_t count) {
  DWORD read = 0;
  return ReadFile(handle, data, count, &read, nullptr) != 0;
}

void WindowsPipes::Close(Handle handle) { CloseHandle(handle); }

}  // namespace pyxis
