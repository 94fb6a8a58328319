// What the bits of the ICs' configuration words mean. A list belongs to a family and a profile of masks, and names one
// option for each mask, from the high bits down. The alternatives of an option stand in the order of the field's values
// counted down from all ones, so a word without a zero shows the first of each.
#pragma once

#include <array>
#include <bit>
#include <string_view>

#include "catalogue/profiles.h"

namespace pyxis::folder {

enum class SetBy { Program, Board };  // the loading program's own choices, and those that go with a circuit

struct Option {
  std::string_view caption;
  std::string_view alternatives;  // with kAlternativeEnd between them
  SetBy setBy = SetBy::Board;
  char usual = '0';  // the alternative that shows while no word is known; '0' leaves the row as it was
};
inline constexpr char kAlternativeEnd = '|';

enum class OptionFamily { OneTimeDual, OneTime, MultiTime, Flash, Usb, FourBit };

struct OptionList {
  OptionFamily family;
  Masks masks;
  std::array<Option, 8> options;
};

// Protection is told by a bit that is set on the one-time and the flash ICs, and cleared on the others.
inline constexpr Option kProtectBySet{"Code protection", "Protected|Not protected", SetBy::Program};
inline constexpr Option kProtectByClear{"Code protection", "Not protected|Protected", SetBy::Program};
inline constexpr Option kProgramArea{"Program area", "Whole memory|Upper half", SetBy::Program};
inline constexpr Option kNoOptions{"Options", "None. For the protection see Fuse", SetBy::Program};

inline constexpr Option kOscillator4{"Oscillator", "High-speed crystal|Low-speed crystal|External RC|Internal RC",
                                     SetBy::Board, '3'};
inline constexpr Option kOscillator2{"Oscillator", "Crystal|Internal RC", SetBy::Board, '1'};
inline constexpr Option kOscillatorStop{"Oscillator in sleep mode", "Stopped|Running"};
inline constexpr Option kClockDivider{"Clock divider", "4 clocks a cycle|2 clocks a cycle"};
inline constexpr Option kClockDivider4{"Clock divider", "1/1|1/2|1/4|1/8"};
inline constexpr Option kStartUp2{"Start-up time", "18 ms|4.5 ms"};
inline constexpr Option kStartUp4{"Start-up time", "18 ms|4.5 ms|288 ms|72 ms"};
inline constexpr Option kResetVoltage4{"Reset voltage", "4.0 V|3.6 V|2.4 V|2.0 V", SetBy::Board, '2'};
inline constexpr Option kResetVoltage2{"Reset voltage", "3.6 V|2.4 V", SetBy::Board, '1'};
inline constexpr Option kLowVoltageReset{"Low voltage reset", "Enabled|Disabled"};
inline constexpr Option kWatchdog{"Watchdog timer", "Enabled|Disabled"};
inline constexpr Option kWatchdogSleep{"Watchdog in sleep mode", "Running|Stopped"};
inline constexpr Option kResetPin{"Reset pin", "Reset input|Input pin"};
inline constexpr Option kPullUps{"Port pull-ups", "Enabled|Disabled"};
inline constexpr Option kBoot{"Boot block", "Writable|Locked"};
inline constexpr Option kUsbPullUp{"USB pull-up", "Internal|External"};

// clang-format off
inline constexpr OptionList kOptionLists[] = {
    {OptionFamily::OneTimeDual, M1,  {kProtectBySet, kProgramArea, kOscillator4, kResetVoltage4, kWatchdog, kResetPin, kClockDivider}},
    {OptionFamily::OneTimeDual, M2,  {kProtectBySet, kProgramArea, kOscillator4, kResetVoltage4, kWatchdog, kResetPin}},
    {OptionFamily::OneTimeDual, M5,  {kProtectBySet, kProgramArea, kOscillator4, kWatchdog, kStartUp4}},
    {OptionFamily::OneTimeDual, M6,  {kProtectBySet, kProgramArea, kOscillator4, kLowVoltageReset, kResetVoltage2, kWatchdog, kResetPin, kClockDivider}},
    {OptionFamily::OneTimeDual, M7,  {kProtectBySet, kProgramArea, kOscillator4, kWatchdog, kResetPin, kClockDivider}},
    {OptionFamily::OneTimeDual, M12, {kProtectBySet, kProgramArea, kOscillator2, kWatchdog, kResetPin, kClockDivider}},
    {OptionFamily::OneTimeDual, M17, {kProtectBySet, kProgramArea, kOscillator2, kResetVoltage4, kWatchdog, kResetPin, kClockDivider}},

    {OptionFamily::OneTime,     M2,  {kProtectBySet, kStartUp2, kOscillator4, kResetVoltage4, kWatchdog, kResetPin}},
    {OptionFamily::OneTime,     M4,  {kProtectBySet, kOscillator4, kResetVoltage4, kWatchdog, kResetPin}},
    {OptionFamily::OneTime,     M18, {kProtectBySet, kOscillator4, kLowVoltageReset, kWatchdog}},

    {OptionFamily::MultiTime,   M1,  {kProtectByClear, kStartUp2, kOscillator4, kResetVoltage4, kWatchdog, kResetPin, kClockDivider}},
    {OptionFamily::MultiTime,   M2,  {kProtectByClear, kStartUp2, kOscillator4, kResetVoltage4, kWatchdog, kResetPin}},
    {OptionFamily::MultiTime,   M4,  {kProtectByClear, kOscillator4, kResetVoltage4, kWatchdog, kResetPin}},
    {OptionFamily::MultiTime,   M9,  {kProtectByClear, kStartUp2, kOscillator2, kOscillatorStop, kResetVoltage4, kWatchdog, kResetPin, kClockDivider}},
    {OptionFamily::MultiTime,   M13, {kProtectByClear, kOscillator2, kWatchdog, kResetPin}},
    {OptionFamily::MultiTime,   M14, {kProtectByClear, kLowVoltageReset, kResetVoltage2, kWatchdog, kResetPin, kClockDivider}},
    {OptionFamily::MultiTime,   M16, {kProtectByClear, kLowVoltageReset, kWatchdog, kResetPin}},
    {OptionFamily::MultiTime,   M19, {kProtectByClear, kStartUp2, kOscillator4, kLowVoltageReset, kWatchdog, kResetPin, kClockDivider}},
    {OptionFamily::MultiTime,   M20, {kProtectByClear, kOscillator4, kResetVoltage4, kResetPin}},
    {OptionFamily::MultiTime,   M21, {kProtectByClear, kOscillator4, kWatchdog, kResetPin}},
    {OptionFamily::MultiTime,   M22, {kProtectByClear, kStartUp2, kWatchdog, kResetPin}},

    {OptionFamily::Flash,       M3,  {kProtectBySet, kBoot, kWatchdog, kWatchdogSleep, kResetPin}},
    {OptionFamily::Flash,       M8,  {kProtectBySet, kBoot, kOscillator4, kWatchdog, kWatchdogSleep, kResetPin, kClockDivider4}},
    {OptionFamily::Flash,       M10, {kProtectBySet, kBoot, kOscillator4, kWatchdog, kResetPin, kClockDivider4}},
    {OptionFamily::Flash,       M11, {kProtectBySet, kBoot, kOscillator4, kWatchdog, kWatchdogSleep, kResetPin, kClockDivider4, kPullUps}},

    {OptionFamily::Usb,         M15, {kProtectByClear, kUsbPullUp}},
    {OptionFamily::Usb,         M25, {kProtectByClear}},

    {OptionFamily::FourBit,     M0,  {kNoOptions}},
};
// clang-format on

constexpr int CountAlternatives(const Option& option) {
  if (option.alternatives.empty()) return 0;
  int count = 1;
  for (const char c : option.alternatives) count += c == kAlternativeEnd ? 1 : 0;
  return count;
}

// As many alternatives as a field has values; without any field there is one option with one alternative.
constexpr bool OptionsFitTheMasks() {
  for (const OptionList& list : kOptionLists)
    for (std::size_t i = 0; i < list.options.size(); ++i) {
      const bool used = list.masks[i] != 0 || (i == 0 && list.masks == M0);
      if (CountAlternatives(list.options[i]) != (used ? 1 << std::popcount(list.masks[i]) : 0)) return false;
    }
  return true;
}
static_assert(OptionsFitTheMasks());

}  // namespace pyxis::folder
