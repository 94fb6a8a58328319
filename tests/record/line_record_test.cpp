// The line's record: what stands on the disk when, half-written lines, and where a series goes on.
#include "record/line_record.h"

#include <sys/resource.h>

#include <csignal>

#include "support/bench.h"

namespace pyxis::test {
namespace {

class Record : public Bench {
 protected:
  std::string File() const { return Path("line.jsonl"); }
  std::string Text() const {
    const Bytes bytes = Contents("line.jsonl");
    return {bytes.begin(), bytes.end()};
  }
  static LineEntry Chip(const std::string& serial) {
    return {.time = "2026-05-04T07:08:09Z",
            .command = "serial",
            .job = {"QV8348", "1A2B", "2026-05-04T06:00:00"},
            .file = "",
            .serial = serial,
            .series = kSeries,
            .writer = {"PYX", "hwversion1.0", "KM48", "code 0x8348, version 1, level 4"}};
  }
  static void Put(LineRecord& record, const std::string& serial, const std::string& result) {
    EXPECT_EQ(record.Begin(Chip(serial)), "");
    EXPECT_EQ(record.End(result), "");
  }
  inline static const LineSeries kSeries = MakeLineSeries("1", "3fa", "0xFC", "4", "low");
};

TEST_F(Record, HoldsAllButTheResultBeforeTheChipIsTouched) {
  LineRecord record;
  ASSERT_EQ(record.Open(File(), true), "");
  ASSERT_EQ(record.Begin(Chip("FC")), "");
  const std::string before =
      R"({"time":"2026-05-04T07:08:09Z","command":"serial","ic":"QV8348","checksum":"1A2B",)"
      R"("converted":"2026-05-04T06:00:00","serial":"FC","series":{"length":1,"address":"03FA","start":"FC",)"
      R"("amount":"4","direction":"low"},"writer":{"identity":"PYX","hardware":"hwversion1.0","model":"KM48",)"
      R"("firmware":"code 0x8348, version 1, level 4"})";
  EXPECT_EQ(Text(), before);
  ASSERT_EQ(record.End("OK"), "");
  EXPECT_EQ(Text(), before + ",\"result\":\"OK\"}\n");
}

// Cut at every byte, and with what a power cut may leave behind the cut: what is whole stays, the rest counts as not
// done.
TEST_F(Record, AHalfWrittenLineCountsAsNotDone) {
  {
    LineRecord record;
    ASSERT_EQ(record.Open(File(), true), "");
    Put(record, "FC", "OK");
    Put(record, "FD", "OK");
  }
  const std::string whole = Text();
  const std::size_t second = whole.find('\n') + 1, serial = whole.find("\"series\"", second);
  for (const std::string& behind : {std::string(), std::string(3, '\0')}) {
    for (std::size_t size = second + 1; size < whole.size(); ++size) {
      WriteText("line.jsonl", whole.substr(0, size) + behind);
      std::string notice;
      {
        LineRecord record;
        ASSERT_EQ(record.Open(File(), false), "") << size;
        notice = record.Notice();
        EXPECT_EQ(ResumeSeries(record.Serials(), kSeries, "QV8348", "1A2B").start, "FD") << size;
      }
      EXPECT_NE(notice, "") << size;
      EXPECT_EQ(notice.find("serial FD") != std::string::npos, size >= serial - 1) << size;
      EXPECT_EQ(Text().substr(0, second), whole.substr(0, second));
      EXPECT_TRUE(Text().ends_with("\"result\":\"interrupted\"}\n")) << Text();
      LineRecord again;
      EXPECT_EQ(again.Open(File(), false), "") << size;
      EXPECT_EQ(again.Notice(), "");
      Put(again, "FD", "OK");
      EXPECT_EQ(ResumeSeries(again.Serials(), kSeries, "QV8348", "1A2B").start, "FE");
    }
  }
}

TEST_F(Record, AnotherFileIsRefusedAndLeftAsItIs) {
  for (const char* text : {":020000021000EC", ":020000021000EC\n:00000001FF\n", "{}\n", "{\"time\":1}\n{\"t"}) {
    WriteText("line.jsonl", text);
    LineRecord record;
    EXPECT_NE(record.Open(File(), true), "") << text;
    EXPECT_FALSE(record.IsOpen());
    EXPECT_EQ(Text(), text);
  }
}

TEST_F(Record, TellsWhatCantBeHad) {
  LineRecord missing, folderItself, first, second;
  EXPECT_NE(missing.Open(Path("none/line.jsonl"), true), "");
  EXPECT_NE(missing.Open(File(), false), "");
  EXPECT_FALSE(std::filesystem::exists(File()));
  EXPECT_NE(folderItself.Open(Path(""), true), "");
  ASSERT_EQ(first.Open(File(), true), "");
  EXPECT_NE(second.Open(File(), true).find("in use"), std::string::npos);
  // A full disk in the middle of a line: no chip may follow.
  Put(first, "FC", "OK");
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  rlimit full = before;
  full.rlim_cur = Text().size() + 5;
  setrlimit(RLIMIT_FSIZE, &full);
  const std::string error = first.Begin(Chip("FD"));
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_NE(error.find(File()), std::string::npos) << error;
  EXPECT_NE(first.Begin(Chip("FE")), "");
}

TEST_F(Record, ASeriesGoesOnBehindItsLastGoodSerial) {
  using Lines = std::vector<std::pair<std::string, bool>>;
  const auto resumed = [](const LineSeries& series, const Lines& lines) {
    std::vector<RecordedSerial> record;
    for (const auto& [serial, good] : lines) record.push_back({"QV8348", "1A2B", series, serial, good});
    const Resumption at = ResumeSeries(record, series, "QV8348", "1A2B");
    return at.error.empty() ? at.start + " " + at.amount : "refused";
  };
  const LineSeries longest = MakeLineSeries("10", "0", std::string(31, 'f') + "0", "10", "low");
  for (const auto& [series, lines, wanted] : Table<LineSeries, Lines, std::string>{
           {kSeries, {}, "refused"},
           {kSeries, {{"FC", false}}, "FC 4"},
           {kSeries, {{"FC", true}, {"FD", false}}, "FD 3"},
           {kSeries, {{"FC", true}, {"FD", false}, {"FD", true}, {"FE", true}}, "FF 1"},
           {kSeries, {{"FF", true}}, "100 0"},
           {kSeries, {{"FB", true}}, "refused"},
           {longest, {{std::string(31, 'F') + "E", true}}, std::string(32, 'F') + " 1"},
           {longest, {{std::string(32, 'F'), true}}, "1" + std::string(32, '0') + " 0"}})
    EXPECT_EQ(resumed(series, lines), wanted) << lines.size();
}

TEST_F(Record, AnotherSeriesIcOrChecksumIsRefusedWithWhatDiffers) {
  const std::vector<RecordedSerial> record{{"QV8348", "1A2B", kSeries, "FC", true}};
  for (const auto& [series, ic, checksum, words] : Table<LineSeries, std::string, std::string, Texts>{
           {kSeries, "QV8329", "1A2B", {"QV8348", "QV8329"}},
           {kSeries, "QV8348", "1A2C", {"1A2B", "1A2C"}},
           {MakeLineSeries("2", "3FA", "FC", "4", "low"), "QV8348", "1A2B", {"length 1", "not 2"}},
           {MakeLineSeries("1", "3FB", "FC", "4", "low"), "QV8348", "1A2B", {"03FA", "03FB"}},
           {MakeLineSeries("1", "3FA", "FB", "4", "low"), "QV8348", "1A2B", {"FC", "FB"}},
           {MakeLineSeries("1", "3FA", "FC", "3", "low"), "QV8348", "1A2B", {"amount 4", "not 3"}},
           {MakeLineSeries("1", "3FA", "FC", "4", "high"), "QV8348", "1A2B", {"low", "high"}}}) {
    const std::string error = ResumeSeries(record, series, ic, checksum).error;
    for (const std::string& word : words) EXPECT_NE(error.find(word), std::string::npos) << error << word;
  }
}

// Whatever the job's checksum: no serial twice.
TEST_F(Record, SerialsThatHaveGoneOutBeginNoSeries) {
  const LineSeries other = MakeLineSeries("1", "3FA", "FE", "1", "low");
  const std::vector<RecordedSerial> record{{"QV8348", "1A2B", kSeries, "FC", true},
                                           {"QV8348", "0001", other, "FE", true},
                                           {"QV8348", "1", kSeries, "FF", false}};
  for (const auto& [start, amount, ic, gone] :
       Table<std::string, std::string, std::string, bool>{{"FC", "1", "QV8348", true},
                                                          {"F0", "D", "QV8348", true},
                                                          {"F0", "C", "QV8348", false},
                                                          {"FD", "1", "QV8348", false},
                                                          {"FC", "1", "QV8329", false},
                                                          {"FF", "1", "QV8348", false}})
    EXPECT_EQ(!SerialsGoneOut(record, MakeLineSeries("1", "0", start, amount, "low"), ic).empty(), gone) << start << ic;
  EXPECT_NE(ResumeSeries(record, kSeries, "QV8348", "1A2B").error.find("FE"), std::string::npos);
}

}  // namespace
}  // namespace pyxis::test
