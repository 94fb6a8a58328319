// A bench that converts images which the test builds byte by byte.
#pragma once

#include "catalogue/chip_catalogue.h"
#include "intake/convert.h"
#include "intake/package_files.h"
#include "platform/byte_order.h"
#include "pyxisfolder/intel_hex_writer.h"
#include "support/bench.h"

namespace pyxis::test {

class ConverterBench : public Bench {
 protected:
  ConvertRequest request;
  std::uint32_t optionValue = 0x60;
  ConversionResults results;
  Bytes option, data;

  ConverterBench() { TheAppState().writer.WriterModel = Model::Km48; }

  void PutTemplate(const std::string& name, Bytes bytes = Bytes(512, 0xAA)) {
    Write("hwversion1.0/" + name + ".txt", bytes);
  }
  // Converts what lies at `file`; the converter's code.
  int Convert(std::uint32_t chipCode, const std::string& file) {
    request.ChipCode = chipCode;
    request.OptionValue = &optionValue;
    request.Path = Path(file);
    results = ConvertFile(request);
    EXPECT_EQ(results.result, results.code == kConverted ? 0 : 1);
    option = Contents(kOptionPackageName);
    data = Contents(kDataPackageName);
    return results.code;
  }
  int ConvertHex(std::uint32_t chipCode, const Bytes& image, const std::string& file = "job.hex") {
    Write(file, pyxis::folder::ToIntelHex(image));
    return Convert(chipCode, file);
  }
  // The same with the plain template of the chip; another file than a hexadecimal one lies as it is.
  int Job(const std::string& chip, std::uint32_t chipCode, const Bytes& image, const std::string& file = "job.hex") {
    PutTemplate(chip);
    if (file.ends_with("hex") || file.ends_with("velmar")) return ConvertHex(chipCode, image, file);
    Write(file, image);
    return Convert(chipCode, file);
  }
  unsigned Word(std::size_t offset) const { return LoadBe16(&option.at(offset)); }
  // Words of the option package by their offset.
  void ExpectWords(std::initializer_list<std::pair<std::size_t, unsigned>> words) const {
    for (const auto& [offset, value] : words) EXPECT_EQ(Word(offset), value) << "at " << offset;
  }
  void ExpectBytes(std::initializer_list<std::pair<std::size_t, int>> bytes) const {
    for (const auto& [offset, value] : bytes) EXPECT_EQ(option.at(offset), value) << "at " << offset;
  }
};

// Blank 14-bit words, with single words set.
struct WordAt {
  std::size_t index;
  unsigned value;
};
inline Bytes Image14(std::size_t words, std::initializer_list<WordAt> set) {
  Bytes image(2 * words);
  for (std::size_t i = 0; i < words; ++i) StoreLe16(&image[2 * i], 0x3FFF);
  for (const WordAt& word : set) StoreLe16(&image[2 * word.index], word.value);
  return image;
}

}  // namespace pyxis::test
