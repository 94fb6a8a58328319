// The line's record: what stands on the disk when, half-written lines, and where a series goes on.
#include "record/line_record.h"

#include <sys/stat.h>

#include "data/cases.h"
#include "support/full_disk.h"

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
  umask(022);
  ASSERT_EQ(record.Open(File(), true), "");
  struct stat status {};
  EXPECT_EQ(stat(File().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0644U);
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

// Cut, and with what a power cut may leave behind the cut: what is whole stays, the rest counts as not
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
  for (const std::string& behind : {std::string(), std::string(3, '\0'), std::string("\n")}) {
    for (std::size_t size = second + 1; size + (behind == "\n") < whole.size(); ++size) {
      const bool end = size < second + 30 || size + 60 > whole.size() || (size + 4 > serial && size < serial + 4);
      if (!end && size % 16 != 0) continue;  // the bytes between are all alike
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

TEST_F(Record, OfAHalfWrittenLineNoValueIsCut) {
  const std::string whole = R"({"time":"2026","command":"serial","series":{"length":16)";
  WriteText("line.jsonl", whole + R"(,"address":"03F)");
  LineRecord record;
  ASSERT_EQ(record.Open(File(), false), "");
  EXPECT_EQ(Text(), whole + "},\"result\":\"interrupted\"}\n");
}

TEST_F(Record, AnotherFileIsRefusedAndLeftAsItIs) {
  const auto line = [](const char* serial) {
    return std::string(R"({"time":"","command":"","ic":"QV8348","serial":")") + serial +
           R"(","series":{"length":1,"address":"0","start":"FC","amount":"4","direction":"low"},"result":"OK"})" + "\n";
  };
  WriteText("line.jsonl", line("FC"));
  EXPECT_EQ(LineRecord().Open(File(), true), "");
  for (const std::string& text :
       Texts{line("F-"), line(""), std::string(64, '\0'), ":020000021000EC", ":020000021000EC\n:00000001FF\n", "{}\n",
             "{\"time\":1}\n{\"t", "{\"time\":\"\",\"command\":1,\"result\":\"OK\"}\n",
             "{\"time\":\"" + std::string(70000, ' ')}) {
    WriteText("line.jsonl", text);
    LineRecord record;
    EXPECT_NE(record.Open(File(), true).find("Line 1 of"), std::string::npos) << text;
    EXPECT_FALSE(record.IsOpen());
    EXPECT_EQ(Text(), text);
  }
}

TEST_F(Record, BlankLinesArePassedOver) {
  {
    LineRecord record;
    ASSERT_EQ(record.Open(File(), true), "");
    Put(record, "FC", "OK");
  }
  std::string text = Text();
  text.insert(0, 1, '\n').append("\n \r\n");
  WriteText("line.jsonl", text);
  LineRecord record;
  ASSERT_EQ(record.Open(File(), true), "");
  Put(record, "FD", "OK");
  EXPECT_EQ(All(record.Serials().size(), record.Notice()), All(2U, ""));
}

TEST_F(Record, TellsWhatCantBeHad) {
  LineRecord missing, folderItself, first, second;
  EXPECT_NE(missing.Open(Path("none/line.jsonl"), true), "");
  EXPECT_NE(missing.Open(File(), false), "");
  EXPECT_FALSE(std::filesystem::exists(File()));
  EXPECT_NE(folderItself.Open(Path(""), true), "");
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_NE(second.Open(Path("pipe"), true).find("no plain file"), std::string::npos);
  ASSERT_EQ(first.Open(File(), true), "");
  EXPECT_NE(second.Open(File(), true).find("in use"), std::string::npos);
  // A full disk in the middle of a line: no chip may follow.
  Put(first, "FC", "OK");
  std::string error;
  {
    const FullDisk full(Text().size() + 5);
    error = first.Begin(Chip("FD"));
  }
  EXPECT_NE(error.find(File()), std::string::npos) << error;
  EXPECT_FALSE(first.End("NG").empty() || first.Begin(Chip("FE")).empty() || missing.End("NG").empty());
}

// "length address start amount direction" of a series.
LineSeries SeriesOf(const std::string& text) {
  const Texts words = Parts(text, ' ');
  return MakeLineSeries(words.at(0), words.at(1), words.at(2), words.at(3), words.at(4));
}

TEST_F(Record, ASeriesGoesOnBehindItsLastGoodSerial) {
  ForEachCase("line_record.tsv", "goes on", [](const Case& c) {
    std::vector<RecordedSerial> record;
    for (const std::string& chip : Parts(c[1], ' ')) {
      const Texts words = Parts(chip, '=');
      record.push_back({"QV8348", "1A2B", SeriesOf(c[0]), words[0], words[1] == "OK"});
    }
    const Resumption at = ResumeSeries(record, SeriesOf(c[0]), "QV8348", "1A2B");
    EXPECT_EQ(at.error.empty() ? at.start + " " + at.amount : "refused", c[2]);
  });
}

TEST_F(Record, AnotherSeriesIcOrChecksumIsRefusedWithWhatDiffers) {
  const std::vector<RecordedSerial> record{{"QV8348", "1A2B", kSeries, "FC", true}};
  ForEachCase("line_record.tsv", "what differs", [&](const Case& c) {
    const std::string error = ResumeSeries(record, SeriesOf(c[0]), c[1], c[2]).error;
    for (const std::size_t word : {3U, 4U}) EXPECT_NE(error.find(c[word]), std::string::npos) << error;
  });
}

// Whatever the job's checksum: no serial twice.
TEST_F(Record, SerialsThatHaveGoneOutBeginNoSeries) {
  const std::vector<RecordedSerial> record{{"QV8348", "1A2B", kSeries, "FC", true},
                                           {"QV8348", "0001", MakeLineSeries("1", "3FA", "FE", "1", "low"), "FE", true},
                                           {"QV8348", "1", kSeries, "FF", false}};
  ForEachCase("line_record.tsv", "gone out",
              [&](const Case& c) { EXPECT_EQ(!SerialsGoneOut(record, SeriesOf(c[0]), c[1]).empty(), c.Yes(2)); });
  EXPECT_NE(ResumeSeries(record, kSeries, "QV8348", "1A2B").error.find("FE"), std::string::npos);
}

// The dialog refuses the length; until then it must not cost any memory.
TEST_F(Record, ALengthThatNoSeriesHasPadsNoFurtherThanTheLongest) {
  EXPECT_EQ(MakeLineSeries("FFFFFFFF", "0", "1", "1", "low").start, std::string(31, '0') + "1");
}

}  // namespace
}  // namespace pyxis::test
