#include "intake/package_files.h"

#include "platform/byte_order.h"
#include "platform/files.h"
#include "shell/ground/app_state.h"

namespace pyxis {

std::string OptionPackagePath() { return TheAppState().program.AppDir + kOptionPackageName; }
std::string DataPackagePath() { return TheAppState().program.AppDir + kDataPackageName; }
std::string SerialFilePath() { return TheAppState().program.AppDir + kSerialFileName; }

std::string TemplatePath(const std::string& name) {
  return TheAppState().program.AppDir + TheAppState().writer.HwFolder + kPathSeparator + name + ".txt";
}

std::uint8_t FieldByte(std::span<const std::uint8_t> package, FieldPlace field) { return package[field.offset]; }

std::uint16_t FieldWord(std::span<const std::uint8_t> package, FieldPlace field) {
  return LoadBe16(package.data() + field.offset);
}

std::uint16_t DownloadTimePart(std::span<const std::uint8_t> package, TimePart part) {
  return LoadLe16(&package[Field::DownloadTime.offset + 2 * static_cast<std::size_t>(part)]);
}

std::uint8_t SerialRoadOf(std::span<const std::uint8_t> package) {
  return FieldByte(package, Field::SerialHead) & kSerialRoadBits;
}

std::string ChipNameOf(std::span<const std::uint8_t> package) {
  std::string name;
  for (std::uint8_t byte : package.subspan(Field::ChipNameField.offset, Field::ChipNameField.width)) {
    if (byte == 0) break;
    name.push_back(static_cast<char>(byte));
  }
  return name;
}

}  // namespace pyxis
