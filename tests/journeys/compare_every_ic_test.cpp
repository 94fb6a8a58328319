// Every IC of the catalogue: the file that was loaded compares equal, and every changed byte that counts is found.
#include <set>

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "operations/compare_file.h"
#include "platform/text.h"
#include "pyxisfolder/intel_hex_writer.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

struct Place {
  Transport transport;
  int model;
};

class CompareEveryIc : public StandinBench, public ::testing::WithParamInterface<Place> {
 protected:
  CompareEveryIc() : StandinBench(GetParam().transport, GetParam().model) {
    op.downloadInfo = [this](CDownloadInfoDlg& dialog) {
      EXPECT_EQ(dialog.lines[0], "Chip Name : " + TheAppState().SelectedChip);
      dialog.OnCompareFile();
      result = dialog.lines[2];
      return DialogEnd::Cancel;
    };
  }

  std::string Compare(const std::string& file) {
    op.files = {Path(file)};
    op.told.clear();
    TheAppState().WriterInfoBlock.fill(0);  // the command reads it anew
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
      const bool wide = TheAppState().SelectedChip != "QV4105";
      const std::size_t config = wide ? 2 : 1;
      offset = at < config ? (wide ? 16414 : 8223) + at : 32 + at - config;
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

TEST_P(CompareEveryIc, FindsEveryDifferenceThatCounts) {
  std::set<std::string> done;
  const bool first = GetParam().model == kModelKm48;
  for (int list = first ? 0 : kFirstKm49List; list < (first ? kFirstKm49List : kListCount); ++list)
    for (const ChipEntry& row : ChipList(list)) {
      if (!done.insert(row.ChipName).second) continue;
      SCOPED_TRACE(row.ChipName);
      LoadSample(row.TypeLabel);
      if (HasFatalFailure()) return;
      const std::string sample = "samples/" + std::string(row.ChipName) +
                                 (std::string(row.FileExtension) == ".hexbin" ? ".hex" : row.FileExtension);
      EXPECT_EQ(Compare(sample), "Compare Result : OK");
      const auto& block = TheAppState().WriterInfoBlock;
      const std::size_t counted =
          std::size_t{FieldWord(block, Field::ImageLength)} * ((block[Field::LengthUnit.offset] & 15) == 1 ? 2 : 1);
      ASSERT_GT(counted, 0U);
      EXPECT_EQ(CompareChanged(sample, 0), "Compare Result : Fail");
      EXPECT_EQ(CompareChanged(sample, counted - 1), "Compare Result : Fail");
    }
  EXPECT_EQ(done.size(), first ? 107U : done.size());
}

INSTANTIATE_TEST_SUITE_P(BothTransports, CompareEveryIc,
                         ::testing::Values(Place{Transport::Usb, kModelKm48}, Place{Transport::Vendor, kModelKm48},
                                           Place{Transport::Usb, kModelKm49}));

}  // namespace
}  // namespace pyxis::test
