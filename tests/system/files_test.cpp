#include "platform/files.h"

#include <sys/stat.h>

#include "platform/language.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class Files : public Bench {};

TEST_F(Files, NamesAreFoundAsWindowsWould) {
  const Bytes one{1};
  Write("Work/Job1.VELMAR", one);
  Write("Work/twins/B.txt", one);
  Write("Work/twins/b.TXT", one);
  // clang-format off
  for (const auto& [asked, found] : Table<const char*, const char*>{
           {"work/job1.velmar", "Work/Job1.VELMAR"}, {"Work/Job1.VELMAR", "Work/Job1.VELMAR"},
           {"WORK/new.bin", "Work/new.bin"}, {"nowhere/x", "nowhere/x"}, {"work/TWINS/b.txt", "Work/twins/B.txt"},
           {"Work/twins/b.TXT", "Work/twins/b.TXT"}})
    // clang-format on
    EXPECT_EQ(ResolvePath(Path(asked)), Path(found));
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

TEST_F(Files, PipesHugeFilesAndAFullDiskFail) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  for (const char* mode : {"rb", "r+b", "wb"}) EXPECT_FALSE(OpenFile(Path("pipe"), mode)) << mode;
  EXPECT_FALSE(WriteWholeFile(Path("pipe"), Bytes(100000)));
  Write("huge", {});
  std::filesystem::resize_file(folder / "huge", std::uintmax_t{1} << 40);
  EXPECT_FALSE(ReadWholeFile(Path("huge")));
  EXPECT_FALSE(WriteWholeFile("/dev/full", Bytes(10)));
}

TEST(Language, Sublanguages) {
  // clang-format off
  for (const auto& [locale, sublanguage] : Table<const char*, int>{
           {"zh_TW.UTF-8", 1}, {"zh_CN.UTF-8", 2}, {"zh_HK", 3}, {"en_US.UTF-8", 1}, {"en_GB", 2}, {"C", 1},
           {"de_DE@euro", 1}, {"xx_YY", 1}, {"", 1}})
    // clang-format on
    EXPECT_EQ(LangIdOfLocale(locale) >> 10, sublanguage) << locale;
}

}  // namespace
}  // namespace pyxis::test
