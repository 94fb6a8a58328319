#include "intake/ready_text.h"

namespace pyxis {

namespace {

constexpr char kLineEnd[] = "\r\n";
constexpr int kLeadingLines = 11;
constexpr int kSublanguageShift = 10;

struct Notice {
  int sublanguage;
  std::size_t indent;  // blanks in front of both lines
  const char* local;
};
constexpr Notice kNotices[] = {
    {1, 40, "下載資料中 , 請勿關閉電源或拔除USB接線"},
    {2, 13, "下 载 资 料 中 , 勿 关 闭 电 源 或 拔 出 USB 接 线"},
};
constexpr char kEnglish[] = "Downloading Data , Please don't power off or plug out USB cable";

}  // namespace

std::string ComposeReadyText(std::uint16_t languageId) {
  std::string text;
  for (int i = 0; i < kLeadingLines; ++i) text += kLineEnd;
  for (const Notice& notice : kNotices) {
    if (languageId >> kSublanguageShift != notice.sublanguage) continue;
    const std::string indent(notice.indent, ' ');
    text += indent + notice.local + kLineEnd + kLineEnd + indent + kEnglish + kLineEnd;
  }
  return text;
}

}  // namespace pyxis
