// The steps that all converters share: names, serial file, template, the two package files, the temporary image, the
// common fields, the time stamp. A step returns 0, or the code that the converter has to return; the operator has then
// been told.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "intake/convert.h"
#include "intake/converters/image.h"
#include "intake/converters/option_package.h"
#include "platform/files.h"

namespace pyxis {

// Codes that converters return.
enum ConverterCode : int {
  kConverted = 0,
  kSourceFailed = 1,   // serial file, template or binary program file; serial range
  kOptionFailed = 2,   // option package, and a wrong ID
  kDataFailed = 3,
  kReaderFailed = 4,
  kImageFailed = 5,
};
inline constexpr int kWrongId = kOptionFailed;

// Which flags of the request a converter looks at: B adds EXHV ISP to A, C adds ISP to B.
enum class ArgumentClass { A, B, C };

class ConversionFrame {
 public:
  ConversionFrame(const ConvertRequest& request, std::string path);

  // Binary program files, which are their own image.
  int OpenProgramFile();
  // Serial numbers and Mass Production Mode exclude each other: clears the converter's copy of the latter.
  int OpenSerialFile();
  // The template, then the two package files, which are emptied.
  int OpenPackages(const std::string& templateName);
  // Reads the Intel HEX file into the temporary image beside it, and takes that image.
  int ReadHexImage(int mode);
  // Wraps an EEPROM file into <stem>_new.bin, and takes that image.
  int ReadEepromImage();

  int TellIdError(int code = kWrongId) const;
  int TellOpenError(int code, const std::string& path) const;

  // Feeds a word to the image checksum.
  static void Sum(std::uint16_t word);
  void WriteByte(std::uint8_t byte) { data.push_back(byte); }
  void WriteBe16(std::uint16_t word);  // high byte first

  // The common end: the fields that all families share, the serial bytes, the time, both files.
  struct Tail {
    std::uint16_t headerChecksum = 0xFFFF;
    bool serial = true;                                     // the family knows serial numbers
    std::function<int(ConversionFrame&)> moveSerial = {};  // before the serial bytes are copied; 0 or a code
    std::size_t zeroFillTo = 0;                             // length of the package, filled with zeros from the time on
  };
  int Finish(const Tail& tail, const std::string& loadedPath);

  const ConvertRequest& request;
  std::string path;       // a copy; some families make it lower-case
  std::string stem;       // all that stands before the last "."
  std::string imagePath;  // of the temporary image
  Image image;
  std::vector<std::uint8_t> templateBytes;
  std::vector<std::uint8_t> serial;  // contents of serial.txt, when serial numbers are on
  OptionPackage option;
  std::vector<std::uint8_t> data;  // DataPackage

 private:
  void TakeImage(std::vector<std::uint8_t> bytes);
  int WritePackages();

  bool massProduction_;
  ReplacedFile optionFile_, dataFile_;
};

// EXHV ISP, then ISP, as the classes B and C write it into IspFlags.
std::uint8_t IspFlagsOf(const ConvertRequest& request, ArgumentClass argumentClass, std::uint8_t exhvValue = 1);

}  // namespace pyxis
