#include <array>
#include <cstring>
#include <string>

#include "intake/converters/families.h"
#include "intake/converters/frame.h"
#include "intake/file_readers.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

struct UsbHexRow {
  std::uint32_t ChipCode;
  const char* name;
  std::uint32_t imageBytes;
  const char* tag;                         // of the .otp copy
  std::array<std::uint8_t, 14> constants;  // of the .otp copy's header, from offset 18
};

// clang-format off
constexpr std::array<UsbHexRow, 4> kTable{{
    {0x1622, "QVL04", 32768, "qvl04xx", {0x1E, 0x11, 0x11, 0x19, 0x10, 0x12, 0x1F, 0x11, 0x1F, 0x10, 0x10, 0x10, 0x10, 0x10}},
    {0x1630, "QVL05", 16384, "qvl05xx", {0x1B, 0x11, 0x11, 0x19, 0x10, 0x10, 0x10, 0x10, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
    {0x1636, "QVL06", 24576, "qvl06xx", {0x1E, 0x11, 0x11, 0x19, 0x10, 0x11, 0x1F, 0x10, 0x1F, 0x10, 0x10, 0x10, 0x10, 0x10}},
    {0x1632, "QVL13", 16384, "qvl14xx", {0x1C, 0x12, 0x11, 0x19, 0x10, 0x10, 0x10, 0x10, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
}};
// clang-format on
static_assert(KeysAreUnique(kTable));

constexpr std::size_t kTagLength = 16;
constexpr std::uint8_t kErased = 0xFF;

std::vector<std::uint8_t> OtpHeader(const UsbHexRow& row) {
  std::vector<std::uint8_t> header(kTagLength, kErased);
  std::memcpy(header.data(), row.tag, std::strlen(row.tag));
  header.insert(header.end(), {'v', '2'});
  header.insert(header.end(), row.constants.begin(), row.constants.end());
  return header;
}

int Convert(const UsbHexRow& row, const ConvertRequest& request) {
  AppState& app = TheAppState();
  const std::uint32_t optionValue = *request.OptionValue;
  ConversionFrame frame(request, request.Path);
  if (int code = frame.OpenSerialFile(); code != 0) return code;
  if (int code = frame.OpenPackages(row.name); code != 0) return code;
  if (int code = frame.ReadHexImage(kReadBytes); code != 0) return code;

  for (std::size_t at = 0; at < row.imageBytes; at += 2) {
    frame.WriteByte(frame.image.Byte(at));
    frame.WriteByte(frame.image.Byte(at + 1));
    ConversionFrame::Sum(frame.image.Be16(at));
  }
  ConversionFrame::Sum(static_cast<std::uint16_t>(optionValue | 1));

  std::vector<std::uint8_t> otp = OtpHeader(row);
  otp.insert(otp.end(), frame.data.begin(), frame.data.end());
  otp.push_back(static_cast<std::uint8_t>(optionValue));
  const std::string otpPath = frame.stem + ".otp";
  if (!WriteWholeFile(otpPath, otp)) {
    TheMachine().op->Tell(Printf("%s write file error\n", otpPath.c_str()), kPlainCaption);
    return kImageFailed;
  }

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, app.conversion.ImageChecksum);
  option.Put(Field::UsedLength, static_cast<std::uint32_t>(frame.image.Length()));
  option.Put(Field::ImageLength, row.imageBytes);
  option.PutAt(Field::ConfigWord.offset, static_cast<std::uint8_t>(optionValue));
  option.Put(Field::DualStart, 0);
  return frame.Finish({}, frame.imagePath);
}

}  // namespace

bool ConvertUsbHex(const ConvertRequest& request, int& code) {
  const UsbHexRow* row = FindRow(kTable, request.ChipCode);
  if (row != nullptr) code = Convert(*row, request);
  return row != nullptr;
}

}  // namespace pyxis
