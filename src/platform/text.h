// Small text helpers. All texts are UTF-8; "case" means ASCII letter case.
#pragma once

#include <string>
#include <string_view>

namespace pyxis {

// printf into a string.
[[gnu::format(printf, 1, 2)]] std::string Printf(const char* format, ...);

std::string ToLower(std::string_view text);
std::string ToUpper(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
// A caption without the "&" in front of the letter that the keyboard reaches it by.
std::string WithoutMnemonic(std::string_view caption);

}  // namespace pyxis
