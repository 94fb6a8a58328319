// Numbers, time, language and the broken pipe.
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <ctime>

#include "data/cases.h"
#include "platform/big_digit.h"
#include "system/broken_pipe.h"
#include "system/system_clock.h"
#include "system/system_language.h"

namespace pyxis::test {
namespace {

class Number {
 public:
  explicit Number(const char* text) { count = bdConvFromHex(bd, text); }
  ~Number() { bdFree(&bd); }
  std::string Text() const {
    char text[40];
    const std::size_t size = bdConvToHex(bd, text, sizeof text);
    EXPECT_EQ(size, std::string(text).size());
    return text;
  }
  BD bd = bdNew();
  std::size_t count;
};

TEST(BigDigit, TextAndBack) {
  ForEachCase("system.tsv", "big numbers", [](const Case& c) {
    const Number number(c[0].c_str());
    EXPECT_EQ(All(number.count, number.Text()), All(static_cast<std::size_t>(c.Number(1)), c[2]));
  });
  Number number("12345");
  char cut[] = "........";
  for (const auto& [room, text] : Table<std::size_t, const char*>{{4, "123"}, {0, "123"}, {1, ""}}) {
    EXPECT_EQ(bdConvToHex(number.bd, cut, room), 5U);
    EXPECT_EQ(All(std::string(cut), cut[1], cut[4]), All(text, '2', '.'));
  }
  bdConvFromHex(number.bd, "g");
  EXPECT_EQ(bdIsZero(number.bd), 1);
  bdFree(&number.bd);
  EXPECT_EQ(number.bd, nullptr);
  bdFree(&number.bd);
}

TEST(BigDigit, Counts) {
  Number a("fffffffffffffffffffffffffffffffe"), b("2"), sum("0");
  bdIncrement(a.bd);
  EXPECT_EQ(a.Text(), "ffffffffffffffffffffffffffffffff");
  EXPECT_EQ(bdIsEqual(a.bd, b.bd), 0);
  bdAdd(sum.bd, a.bd, b.bd);
  EXPECT_EQ(sum.Text(), "100000000000000000000000000000001");
  for (const char* left : {"1", "0", "0"}) {
    bdDecrement(b.bd);
    EXPECT_EQ(b.Text(), left);
  }
  EXPECT_EQ(All(bdIsZero(b.bd), bdIsZero(a.bd)), All(1, 0));
  bdSetZero(a.bd);
  EXPECT_EQ(bdIsEqual(a.bd, b.bd), 1);
}

TEST(SystemClock, IsTheSystems) {
  setenv("TZ", "XYZ-5:30", 1);
  tzset();
  SystemClock clock;
  const auto second = [] { return std::chrono::system_clock::to_time_t(std::chrono::system_clock::now()); };
  std::time_t before, after;
  LocalTime now;
  do {
    before = second();
    now = clock.Now();
    after = second();
  } while (before != after);
  const std::tm t = *std::gmtime(&(before += 5 * 3600 + 30 * 60));
  EXPECT_EQ(All(now.year, now.month, now.dayOfWeek, now.day, now.hour, now.minute, now.second),
            All(t.tm_year + 1900, t.tm_mon + 1, t.tm_wday, t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec));
  EXPECT_LT(now.milliseconds, 1000);
  unsetenv("TZ");
  using namespace std::chrono;
  const auto ticks = [] { return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count(); };
  const auto early = static_cast<std::uint32_t>(ticks());
  const std::uint32_t tick = clock.TickCount();
  EXPECT_LE(tick - early, static_cast<std::uint32_t>(ticks()) - early);
}

TEST(Language, IsThatOfTheFirstVariableThatIsSet) {
  ForEachCase("system.tsv", "languages", [](const Case& c) { EXPECT_EQ(LangIdOfLocale(c[0]), c.Number(1)); });
  const char* const kVariables[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
  const auto id = [&](const Texts& values) {
    for (std::size_t i = 0; i < values.size(); ++i) setenv(kVariables[i], values[i].c_str(), 1);
    return SystemLanguage().GetSystemDefaultLangID();
  };
  EXPECT_EQ(All(id({"zh_TW", "zh_CN", "zh_HK"}), id({"", "zh_CN", "zh_HK"}), id({"", "", "zh_HK"}), id({"", "", ""})),
            All(0x0404, 0x0804, 0x0C04, 0x0409));
  for (const char* variable : kVariables) unsetenv(variable);
  EXPECT_EQ(SystemLanguage().GetSystemDefaultLangID(), 0x0409);
}

void WriteWithoutReader() {
  int ends[2];
  if (pipe(ends) != 0) _exit(1);
  close(ends[0]);
  IgnoreBrokenPipes();
  _exit(write(ends[1], "x", 1) == -1 && errno == EPIPE ? 0 : 2);
}

TEST(BrokenPipe, FailsTheWriteAlone) { EXPECT_EXIT(WriteWithoutReader(), testing::ExitedWithCode(0), ""); }

}  // namespace
}  // namespace pyxis::test
