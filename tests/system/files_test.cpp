#include <sys/stat.h>

#include "platform/files.h"

#include "platform/language.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class Files : public Bench {};

TEST_F(Files, NamesAreFoundAsWindowsWould) {
  const std::vector<std::uint8_t> one{1};
  Write("Work/Job1.VELMAR", one);
  Write("Work/twins/B.txt", one);
  Write("Work/twins/b.TXT", one);
  struct Case {
    const char* asked;
    const char* found;
  };
  for (const Case& c : {Case{"work/job1.velmar", "Work/Job1.VELMAR"}, Case{"Work/Job1.VELMAR", "Work/Job1.VELMAR"},
                        Case{"WORK/new.bin", "Work/new.bin"}, Case{"nowhere/x", "nowhere/x"},
                        Case{"work/TWINS/b.txt", "Work/twins/B.txt"}, Case{"Work/twins/b.TXT", "Work/twins/b.TXT"}})
    EXPECT_EQ(ResolvePath(Path(c.asked)), Path(c.found));
}

TEST_F(Files, DirectoriesAndMissingFilesDontOpen) {
  std::filesystem::create_directories(folder / "dir");
  EXPECT_FALSE(OpenFile(Path("dir"), "rb"));
  EXPECT_FALSE(ReadWholeFile(Path("none")));
  EXPECT_FALSE(ReadForUpdate(Path("dir")));
  EXPECT_FALSE(WriteWholeFile(Path("none/x"), {}));
  EXPECT_TRUE(WriteWholeFile(Path("empty"), {}));
  EXPECT_TRUE(ReadWholeFile(Path("empty"))->empty());
}

TEST_F(Files, PipesAndHugeFilesDontOpen) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  for (const char* mode : {"rb", "r+b", "wb"}) EXPECT_FALSE(OpenFile(Path("pipe"), mode)) << mode;
  EXPECT_FALSE(WriteWholeFile(Path("pipe"), std::vector<std::uint8_t>(100000)));
  Write("huge", {});
  std::filesystem::resize_file(folder / "huge", std::uintmax_t{1} << 40);
  EXPECT_FALSE(ReadWholeFile(Path("huge")));
}

TEST_F(Files, AFullDiskShows) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP();
  EXPECT_FALSE(WriteWholeFile("/dev/full", std::vector<std::uint8_t>(10)));
}

TEST(Language, Sublanguages) {
  struct Case {
    const char* locale;
    int sublanguage;
  };
  for (const Case& c : {Case{"zh_TW.UTF-8", 1}, Case{"zh_CN.UTF-8", 2}, Case{"zh_HK", 3}, Case{"en_US.UTF-8", 1},
                        Case{"en_GB", 2}, Case{"C", 1}, Case{"de_DE@euro", 1}, Case{"xx_YY", 1}, Case{"", 1}})
    EXPECT_EQ(LangIdOfLocale(c.locale) >> 10, c.sublanguage) << c.locale;
}

}  // namespace
}  // namespace pyxis::test
