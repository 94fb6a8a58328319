#include "intake/converters/dispatch.h"
#include "intake/converters/frame.h"

namespace pyxis {

namespace {

constexpr unsigned kUnprotectedBit = 1;  // of the configuration: 0 means protected
constexpr unsigned kClearedOut = 2;      // always 0 in the package
constexpr unsigned kSummedSet = 3;       // always 1 in the checksum

// The operator's choice Protect clears the bit.
unsigned WithProtection(unsigned config, const ConvertRequest& request) {
  return *request.OptionValue != 0 ? config : config & ~kUnprotectedBit;
}

std::uint16_t CopyBytes(const Otp4Row& row, ConversionFrame& frame) {
  const Image& image = frame.image;
  const std::uint8_t stored = image.Byte(row.configOffset);
  frame.WriteByte(stored);
  const std::size_t last = image.Length() > kOtp4Header ? image.Length() - 1 : kOtp4Header;
  for (std::size_t at = kOtp4Header; at < last; ++at) {
    frame.WriteByte(image.Byte(at));
    frame.Sum(image.Byte(at));
  }
  frame.Sum(image.Byte(last) | kSummedSet);
  return static_cast<std::uint16_t>((WithProtection(stored, frame.request) & ~kClearedOut) << 8);
}

std::uint16_t CopyWords(const Otp4Row& row, ConversionFrame& frame) {
  const Image& image = frame.image;
  const std::uint16_t stored = image.Le16(row.configOffset);
  frame.WriteBe16(stored);
  for (std::size_t i = 0; i < row.words; ++i) {
    const std::uint16_t word = image.Le16(kOtp4Header + 2 * i);
    frame.WriteBe16(word);
    frame.Sum(word);
  }
  const unsigned config = WithProtection(stored, frame.request);
  frame.Sum(static_cast<std::uint16_t>(config | kSummedSet));
  return static_cast<std::uint16_t>(config & ~kClearedOut);
}

}  // namespace

ConversionResults Convert(const Otp4Row& row, const ConvertRequest& request) {
  ConversionFrame frame(request);
  if (const auto code = frame.OpenProgramFile(); code != kConverted) return {code};
  if (const auto code = frame.OpenPackages(); code != kConverted) return {code};
  const std::uint16_t config = row.unit == Otp4Unit::Byte ? CopyBytes(row, frame) : CopyWords(row, frame);
  frame.option.Put(Field::ImageChecksum, frame.state.ImageChecksum);
  frame.option.Put(Field::ConfigWord, config);
  return frame.Finish({.serial = false}, ConversionFrame::Loaded::ProgramFile);
}

}  // namespace pyxis
