#include <cstring>
#include <string>

#include "intake/converters/dispatch.h"
#include "intake/converters/frame.h"

namespace pyxis {

namespace {

constexpr std::size_t kTagLength = 16;
constexpr std::uint8_t kErased = 0xFF;

std::vector<std::uint8_t> OtpHeader(const UsbHexRow& row) {
  std::vector<std::uint8_t> header(kTagLength, kErased);
  std::memcpy(header.data(), row.tag, std::strlen(row.tag));
  header.insert(header.end(), {'v', '2'});
  header.insert(header.end(), row.constants.begin(), row.constants.end());
  return header;
}

}  // namespace

ConversionResults Convert(const UsbHexRow& row, const ConvertRequest& request) {
  const std::uint32_t optionValue = *request.OptionValue;
  ConversionFrame frame(request);
  if (const auto code = frame.OpenHexJob(kReadBytes); code != kConverted) return {code};

  for (std::size_t at = 0; at < row.imageBytes; at += 2) {
    frame.CopyPair(at);
    frame.Sum(frame.image.Be16(at));
  }
  frame.Sum(static_cast<std::uint16_t>(optionValue | 1));

  std::vector<std::uint8_t> otp = OtpHeader(row);
  otp.insert(otp.end(), frame.data.begin(), frame.data.end());
  otp.push_back(static_cast<std::uint8_t>(optionValue));
  if (const auto code = frame.WriteBeside(".otp", otp); code != kConverted) return {code};

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, frame.state.ImageChecksum);
  option.Put(Field::UsedLength, static_cast<std::uint32_t>(frame.image.Length()));
  option.Put(Field::ImageLength, row.imageBytes);
  option.PutAt(Field::ConfigWord.offset, static_cast<std::uint8_t>(optionValue));
  option.Put(Field::DualStart, 0);
  return frame.Finish({}, ConversionFrame::Loaded::Image);
}

}  // namespace pyxis
