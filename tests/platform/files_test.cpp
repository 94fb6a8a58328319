#include "platform/files.h"

#include <sys/stat.h>

#include "data/cases.h"
#include "platform/clock.h"
#include "platform/device_pipes.h"
#include "platform/diagnostics.h"
#include "platform/language.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"

namespace pyxis::test {
namespace {

class Files : public Bench {};

TEST_F(Files, NamesAreFoundAsWindowsWould) {
  const Bytes one{1};
  Write("Work/Job1.VELMAR", one);
  Write("Work/AZ.bin", one);
  Write("Work/twins/B.txt", one);
  Write("Work/twins/b.TXT", one);
  ForEachCase("system.tsv", "names", [&](const Case& c) { EXPECT_EQ(ResolvePath(Path(c[0])), Path(c[1])); });
}

TEST_F(Files, WhatIsNoFileAndAFullDiskFail) {
  std::filesystem::create_directories(folder / "dir");
  EXPECT_FALSE(OpenFile(Path("dir"), "rb") || ReadWholeFile(Path("none")) || ReadForUpdate(Path("dir")));
  EXPECT_FALSE(WriteWholeFile(Path("none/x"), {}));
  EXPECT_TRUE(WriteWholeFile(Path("empty"), {}) && ReadWholeFile(Path("empty"))->empty());
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  for (const char* mode : {"rb", "r+b", "wb"}) EXPECT_FALSE(OpenFile(Path("pipe"), mode)) << mode;
  EXPECT_FALSE(WriteWholeFile(Path("pipe"), Bytes(100000)));
  Write("huge", {});
  std::filesystem::resize_file(folder / "huge", std::uintmax_t{1} << 40);
  EXPECT_FALSE(ReadWholeFile(Path("huge")));
  EXPECT_EQ(All(WriteWholeFile("/dev/full", Bytes(10)), WriteWholeFile("/dev/null", Bytes(10))), All(false, true));
}

TEST_F(Files, ModesAndLengths) {
  Write("a.BIN", Bytes{1, 2, 3});
  const File file = OpenFile(Path("A.bin"), "r+b");
  ASSERT_TRUE(file);
  EXPECT_EQ(std::fgetc(file.get()), 1);
  EXPECT_EQ(All(FileLength(file.get()), std::ftell(file.get())), All(3L, 1L));
  std::fseek(file.get(), 0, SEEK_END);
  std::fputc(4, file.get());
  EXPECT_EQ(FileLength(file.get()), 4);  // with what isn't on the disk yet
  EXPECT_EQ(ReadStream(file.get()), (Bytes{1, 2, 3, 4}));
  EXPECT_EQ(ReadForUpdate(Path("a.bin")), (Bytes{1, 2, 3, 4}));
  EXPECT_FALSE(ReadStream(OpenFile(Path("a.bin"), "ab").get()));
  Write("large", {});
  std::filesystem::resize_file(folder / "large", std::uintmax_t{256} << 20);
  EXPECT_TRUE(OpenFile(Path("large"), "rb"));
  std::filesystem::resize_file(folder / "large", (std::uintmax_t{256} << 20) + 1);
  EXPECT_FALSE(OpenFile(Path("large"), "rb"));
}

TEST_F(Files, ClosingTellsOfLostBytes) {
  EXPECT_FALSE(CloseFile(nullptr));
  EXPECT_TRUE(CloseFile(OpenFile(Path("new"), "wb")));
  File full(std::fopen("/dev/full", "w+b"));
  std::fputc(1, full.get());
  EXPECT_FALSE(ReadStream(full.get()));
  EXPECT_FALSE(CloseFile(std::move(full)));
  File failed(std::fopen("/dev/full", "wb"));
  std::fputc(1, failed.get());
  EXPECT_NE(std::fflush(failed.get()), 0);
  EXPECT_FALSE(CloseFile(std::move(failed)));
}

TEST_F(Files, AReplacedFileIsEmptyWithoutAGoodWrite) {
  Write("Job", Bytes(5000, 1));
  EXPECT_TRUE(ReplacedFile(Path("job")).Write(Bytes{2, 3}));
  EXPECT_EQ(Contents("Job"), (Bytes{2, 3}));
  {
    ReplacedFile given(Path("job")), taken;
    EXPECT_EQ(Contents("Job"), (Bytes{2, 3}));  // opening alone changes nothing
    EXPECT_TRUE(given.IsOpen() && !taken.IsOpen());
    taken = std::move(given);
    const ReplacedFile last(std::move(taken));
    EXPECT_TRUE(last.IsOpen() && !taken.IsOpen());
  }
  EXPECT_EQ(Contents("Job"), Bytes{});
  ReplacedFile once(Path("job"));
  EXPECT_TRUE(once.Write(Bytes(70000, 9)));
  EXPECT_FALSE(once.IsOpen());
  EXPECT_FALSE(once.Write(Bytes{1}));
  EXPECT_EQ(Contents("Job"), Bytes(70000, 9));
  EXPECT_FALSE(ReplacedFile(Path("none/x")).IsOpen());
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(ReplacedFile(Path("pipe")).IsOpen());
  RemoveFile(Path("JOB"));
  RemoveFile(Path("job"));
  EXPECT_FALSE(std::filesystem::exists(folder / "Job"));
}

TEST_F(Files, LettersChangeCaseAndNothingElse) {
  EXPECT_EQ(All(ToLower("@AZ[`az{"), ToUpper("@AZ[`az{"), Printf("%s", "").size()), All("@az[`az{", "@AZ[`AZ{", 0U));
}

TEST_F(Files, WhereNobodyAnswersItIsNo) {
  ResetMachine();
  const Machine& nobody = TheMachine();
  DevicePipes& pipes = *nobody.pipes;
  EXPECT_FALSE(nobody.op->Ask("", "", MessageIcon::None) || pipes.Exist() || pipes.Write(nullptr, nullptr, 0) ||
               pipes.Read(nullptr, nullptr, 0));
  EXPECT_EQ(nobody.language->GetSystemDefaultLangID(), 0x0400);
  const std::uint32_t before = nobody.clock->TickCount();
  EXPECT_EQ(nobody.clock->TickCount() - before, 1U);
}

TEST_F(Files, DirectoriesOfTheProcess) {
  EXPECT_EQ(CurrentDirectory(), std::filesystem::current_path());
  EXPECT_EQ(ProgramDirectory(), std::filesystem::canonical("/proc/self/exe").parent_path());
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder);
  Write("Here.txt", {});
  Write("Sub/There.txt", {});
  for (const auto& [asked, found] : Table<const char*, const char*>{
           {"here.TXT", "Here.txt"}, {"sub//there.txt", "Sub/There.txt"}, {"", ""}, {"sub/", "Sub/"}})
    EXPECT_EQ(ResolvePath(asked), found);
  std::filesystem::current_path(before);
}

// Over the end of the tick count; and what is told goes to the stream that is set.
TEST_F(Files, WaitsAndDiagnostics) {
  clock.tick = 0xFFFFFF00;
  WaitMs(1500);
  EXPECT_EQ(clock.Waited(), 1500U);
  const File out = OpenFile(Path("told"), "w+b");
  Diagnose("nobody hears %d", 1);
  TheMachine().diagnostics = TheMachine().trace = out.get();
  Diagnose("%d, ", 2);
  Trace("%s", "three");
  TheMachine().diagnostics = TheMachine().trace = nullptr;
  EXPECT_EQ(ReadStream(out.get()), (Bytes{'2', ',', ' ', 't', 'h', 'r', 'e', 'e'}));
}

}  // namespace
}  // namespace pyxis::test
