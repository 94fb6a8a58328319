// The figures of the program folder, as Qt reads them.
#include <QImage>
#include <charconv>

#include "catalogue/chip_catalogue.h"
#include "platform/files.h"
#include "pyxisfolder/drawing/package.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class Pictures : public Bench {};

TEST_F(Pictures, EveryRowAndModeHasAReadableFigureWithItsPins) {
  TheAppState().StartDirectory = PYXIS_BIN_DIR "/../folder";
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list)) {
      const std::string label = row.TypeLabel;
      SCOPED_TRACE(label);
      for (const auto& [exhvIsp, isp] : Table<bool, bool>{{false, false}, {true, false}, {false, true}}) {
        if ((exhvIsp || isp) && !row.HasIspProgram) continue;
        const auto file = ReadWholeFile(FigurePath(label, exhvIsp, isp));
        ASSERT_TRUE(file);
        EXPECT_FALSE(QImage::fromData(file->data(), static_cast<int>(file->size())).isNull());
      }
      const folder::Package package = folder::PackageOf(label);
      EXPECT_EQ(folder::PinsOf(package).size(), static_cast<std::size_t>(package.Pins()));
      int pins = 0;  // the label's last number
      const char *const from = label.c_str() + label.rfind('_') + 1, *const end = label.c_str() + label.size();
      if (std::from_chars(from, end, pins).ptr == end) {
        EXPECT_EQ(package.Pins(), pins);
      }
    }
}

}  // namespace
}  // namespace pyxis::test
