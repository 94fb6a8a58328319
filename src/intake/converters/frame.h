// The steps that all converters share: names, serial file, template, the two package files, the temporary image, the
// common fields, the time stamp. A step returns kConverted, or the code that the converter has to return; the operator
// has then been told.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "intake/convert.h"
#include "intake/converters/argument_class.h"
#include "intake/converters/image.h"
#include "intake/converters/option_package.h"
#include "intake/file_readers.h"
#include "platform/files.h"
#include "shell/ground/app_state.h"

namespace pyxis {

// Of a 14-bit configuration word: what is summed, and what goes out.
inline constexpr std::uint16_t kSummedConfigBits = 0x1FFF;
inline constexpr std::uint16_t kConfigOutBits = 0x3FE0;

// How the names of a conversion are made from the path of the program file.
enum class Names { AsChosen, LowerCase };

class ConversionFrame {
 public:
  explicit ConversionFrame(const ConvertRequest& request, Names names = Names::AsChosen);

  // Binary program files, which are their own image.
  ConverterCode OpenProgramFile();
  // Serial numbers and Mass Production Mode exclude each other: clears the converter's copy of the latter.
  ConverterCode OpenSerialFile();
  // The template, then the two package files, which are emptied.
  ConverterCode OpenPackages();
  // Reads the Intel HEX file into the temporary image beside it, and takes that image.
  ConverterCode ReadHexImage(ReadMode mode, std::uint32_t forcedLength = 0);
  // Wraps an EEPROM file into <stem>_new.bin, and takes that image.
  ConverterCode ReadEepromImage(std::string_view name);
  // Serial file, packages and temporary image, one after the other.
  ConverterCode OpenHexJob(ReadMode mode);

  ConverterCode TellIdError(ConverterCode code = kWrongId) const;
  ConverterCode TellOpenError(ConverterCode code, const std::string& failedPath) const;

  // Feeds a word to the image checksum.
  void Sum(std::uint16_t word) {
    state.ChecksumInput = word;
    UpdateChecksum();
  }
  // Keeps PartialChecksum when word `number`, counted from 1, has just been summed.
  void KeepPartialChecksum(std::uint32_t number);
  void MaskChecksum();  // to 14 bits
  void WriteByte(std::uint8_t byte) { data.push_back(byte); }
  void WriteBe16(std::uint16_t word);  // high byte first
  void CopyPair(std::size_t offset) {  // in file order
    WriteByte(image.Byte(offset));
    WriteByte(image.Byte(offset + 1));
  }

  // The common end: the fields that all families share, the serial bytes, the time, both files.
  struct Tail {
    std::uint16_t headerChecksum = 0xFFFF;
    bool serial = true;                                              // the family knows serial numbers
    std::function<ConverterCode(ConversionFrame&)> moveSerial = {};  // before the serial bytes are copied
    std::size_t zeroFillTo = 0;  // length of the package, filled with zeros from the time on
  };
  enum class Loaded { ProgramFile, Image, DataPackage };  // what LoadedFilePath becomes
  ConversionResults Finish(const Tail& tail, Loaded loaded);

  const ConvertRequest& request;
  ConversionState& state;    // the process-wide results
  std::string path;          // of the program file, as names and messages give it; request.Path opens it
  std::string templateName;  // the IC's
  Image image;
  std::vector<std::uint8_t> templateBytes;
  std::vector<std::uint8_t> serial;  // contents of serial.txt, when serial numbers are on
  bool serialMoved = false;          // they have changed, and go back to the file once both packages stand
  OptionPackage option;
  std::vector<std::uint8_t> data;  // DataPackage

  // Writes a file beside the program file, under a name made from it.
  ConverterCode WriteBeside(const std::string& ending, std::span<const std::uint8_t> bytes) const;

  ConverterCode TellWriteError(ConverterCode code, const std::string& failedPath) const;

 private:
  // A file beside the program file: its path as LoadedFilePath and messages give it, and where it lies.
  struct Beside {
    std::string path, place;
  };
  Beside FileBeside(const std::string& ending) const;
  ConverterCode TakeImage();
  ConverterCode WritePackages();
  bool WriteSerialRange() const;

  bool massProduction_;
  Beside image_;
  ReplacedFile optionFile_, dataFile_;
};

// EXHV ISP, then ISP, as the classes B and C write it into IspFlags.
std::uint8_t IspFlagsOf(const ConvertRequest& request, ArgumentClass argumentClass,
                        std::uint8_t exhvValue = kExhvIspBit);

}  // namespace pyxis
