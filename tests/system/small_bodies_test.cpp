// Numbers, time, language and the broken pipe.
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <ctime>

#include "platform/big_digit.h"
#include "support/bench.h"
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
  // clang-format off
  for (const auto& [text, count, back] : Table<const char*, std::size_t, const char*>{
           {"0", 1, "0"}, {"00fF", 4, "ff"}, {"", 0, "0"}, {"g1", 0, "0"}, {"12x4", 2, "12"},
           {"ffffffffffffffffffffffffffffffffff", 34, "ffffffffffffffffffffffffffffffffff"}}) {
    // clang-format on
    const Number number(text);
    EXPECT_EQ(All(number.count, number.Text()), All(count, back));
  }
  Number number("12345");
  char cut[] = "........";
  EXPECT_EQ(bdConvToHex(number.bd, cut, 4), 5U);
  EXPECT_STREQ(cut, "123");
  EXPECT_EQ(cut[4], '.');
  EXPECT_EQ(bdConvToHex(number.bd, cut, 0), 5U);
  EXPECT_STREQ(cut, "123");
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
  std::time_t before, after;
  LocalTime now;
  do {
    before = std::time(nullptr);
    now = clock.Now();
    after = std::time(nullptr);
  } while (before != after);
  const std::tm local = *std::gmtime(&(before += 5 * 3600 + 30 * 60));
  EXPECT_EQ(All(now.year, now.month, now.dayOfWeek, now.day),
            All(local.tm_year + 1900, local.tm_mon + 1, local.tm_wday, local.tm_mday));
  EXPECT_EQ(All(now.hour, now.minute, now.second), All(local.tm_hour, local.tm_min, local.tm_sec));
  EXPECT_LT(now.milliseconds, 1000);
  unsetenv("TZ");
  using namespace std::chrono;
  const auto ticks = [] { return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count(); };
  const auto early = static_cast<std::uint32_t>(ticks());
  const std::uint32_t tick = clock.TickCount();
  EXPECT_LE(tick - early, static_cast<std::uint32_t>(ticks()) - early);
}

TEST(Language, IdentifiersOfLocales) {
  // clang-format off
  for (const auto& [locale, id] : Table<const char*, int>{
           {"zh_TW.UTF-8", 0x0404}, {"zh_CN.UTF-8", 0x0804}, {"zh_HK", 0x0C04}, {"zh_SG", 0x1004}, {"zh_MO", 0x1404},
           {"zh_XX", 0x0804}, {"en_US.UTF-8", 0x0409}, {"en_GB", 0x0809}, {"en_ZZ", 0x0409}, {"C", 0x0409},
           {"C.UTF-8", 0x0409}, {"POSIX", 0x0409}, {"de_DE@euro", 0x0407}, {"de_CH", 0x0807}, {"de", 0x0407},
           {"ja_JP.eucJP", 0x0411}, {"ko_KR", 0x0412}, {"es_ES", 0x0C0A}, {"es_MX", 0x080A}, {"pt_BR", 0x0416},
           {"sv_FI", 0x081D}, {"nn_NO", 0x0814}, {"vi_VN", 0x042A}, {"xx_YY", 0x0400}, {"", 0x0400}})
    // clang-format on
    EXPECT_EQ(LangIdOfLocale(locale), id) << locale;
}

TEST(Language, OfTheFirstVariableThatIsSet) {
  const char* const kVariables[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
  const auto id = [&](const Texts& values) {
    for (std::size_t i = 0; i < values.size(); ++i) setenv(kVariables[i], values[i].c_str(), 1);
    return SystemLanguage().GetSystemDefaultLangID();
  };
  EXPECT_EQ(id({"zh_TW", "zh_CN", "zh_HK"}), 0x0404);
  EXPECT_EQ(id({"", "zh_CN", "zh_HK"}), 0x0804);
  EXPECT_EQ(id({"", "", "zh_HK"}), 0x0C04);
  EXPECT_EQ(id({"", "", ""}), 0x0409);
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
