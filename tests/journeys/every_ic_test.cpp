// Every row of the catalogue, those of the KM48 over USB and those of the KM49 over velmarapi: from its sample program
// file to a burnt chip. For each IC the file that was loaded compares equal, and a changed byte that counts is found.
#include <set>

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "operations/compare_file.h"
#include "operations/tasks.h"
#include "platform/text.h"
#include "pyxisfolder/intel_hex_writer.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

// A list of the catalogue.
class EveryIc : public StandinBench, public ::testing::WithParamInterface<int> {
 protected:
  EveryIc()
      : StandinBench(GetParam() < kFirstKm49List ? Transport::Usb : Transport::Vendor,
                     GetParam() < kFirstKm49List ? Model::Km48 : Model::Km49) {
    op.downloadInfo = [this](CDownloadInfoDlg& dialog) {
      EXPECT_EQ(dialog.lines[0], "Chip Name : " + TheAppState().selection.SelectedChip);
      dialog.OnCompareFile();
      result = dialog.lines[2];
      return DialogEnd::Cancel;
    };
  }

  std::string Compare(const std::string& file) {
    op.files = {Path(file)};
    TheAppState().writer.WriterInfoBlock.fill(0);  // the command reads it anew
    OnDownloadInfo();
    EXPECT_TRUE(op.told.empty());
    return result;
  }

  // Compares a copy of the sample in which the byte that lands at `at` of the compared image is another one.
  std::string CompareChanged(const std::string& sample, std::size_t at) {
    const std::string extension = sample.substr(sample.rfind('.'));
    const std::string stem = sample.substr(0, sample.rfind('.'));
    const bool text = extension == ".hex" || extension == ".velmar";
    Bytes bytes =
        Contents(text ? std::filesystem::exists(Path(stem + ".bin")) ? stem + ".bin" : ToLower(stem) + ".bin" : sample);
    std::size_t offset = extension == ".obj" ? 32 + at : at;
    if (extension == ".otp") {
      const CompareKind& cut = IcOfName(TheAppState().selection.SelectedChip)->comparison;
      offset = at < cut.configBytes ? cut.configAt + at : cut.header + at - cut.configBytes;
    }
    bytes.at(offset) ^= 0x10;
    // A .velmar file isn't read again: what is compared is the image that Load File left.
    const bool readsLeftImage = op.filters.back().starts_with("Kestrel Velmar");
    if (readsLeftImage) Write("samples/changed.bin", bytes);
    Write("samples/changed" + extension, text ? pyxis::folder::ToIntelHex(bytes) : bytes);
    return Compare("samples/changed" + extension);
  }

  std::string result;
};

TEST_P(EveryIc, IsComparedAndBurntByteForByte) {
  std::set<std::string> compared;
  for (const ChipEntry& row : ChipList(GetParam())) {
    SCOPED_TRACE(row.TypeLabel);
    writer.chip = standin::Chip{};
    LoadSample(row.TypeLabel);
    if (HasFatalFailure()) return;
    EXPECT_EQ(TheAppState().writer.FirmwareCode,
              FirmwareFor(row.ChipCode, TheAppState().writer.WriterModel)->FirmwareCode);
    if (compared.insert(row.ChipName).second) {
      const std::string sample = "samples/" + std::string(row.ChipName) +
                                 (std::string(row.FileExtension) == ".hexbin" ? ".hex" : row.FileExtension);
      EXPECT_EQ(Compare(sample), "Compare Result : OK");
      const auto& block = TheAppState().writer.WriterInfoBlock;
      const std::size_t counted =
          std::size_t{FieldWord(block, Field::ImageLength)} * ((block[Field::LengthUnit.offset] & 15) == 1 ? 2 : 1);
      ASSERT_GT(counted, 0U);
      for (const std::size_t at : {std::size_t{0}, counted - 1})
        EXPECT_EQ(CompareChanged(sample, at), "Compare Result : Fail");
    }
    OnAuto();
    EXPECT_EQ(op.Heard(), Texts{"Auto OK"});
    EXPECT_EQ(All(writer.chip.burnt, ChipNameOf(writer.OptionArea())), All(Contents(kDataPackageName), row.ChipName));
  }
}

INSTANTIATE_TEST_SUITE_P(AllLists, EveryIc, ::testing::Range(0, kListCount));

}  // namespace
}  // namespace pyxis::test
