// The thirteen lists of the Type list, in its order. A label is the IC's name alone, or the name and the pin counts of
// the packages that share a figure.
#pragma once

#include <iterator>

#include "catalogue/profiles.h"

namespace pyxis {

struct ListRow {
  const char* TypeLabel;
  // Where the row differs from its IC; zeros where it doesn't.
  Masks masks{};
  unsigned readSizeBytes = 0;
};

// clang-format off

// MCU: 4 Bit QV41 series, KM48
inline constexpr ListRow kList0[] = {
    {"QV4101"}, {"QV4103"}, {"QV4105"}, {"QV4106"}, {"QV4107"},
};
static_assert(std::size(kList0) == 5);

// MCU: 4 Bit QV42 series, KM48
inline constexpr ListRow kList1[] = {
    {"QV4206"}, {"QV4201"}, {"QV4203"}, {"QV4204"}, {"QV4205"}, {"QV4207"},
};
static_assert(std::size(kList1) == 6);

// MCU: 8 Bit QV81 Series, KM48
inline constexpr ListRow kList2[] = {
    {"QV8121"}, {"QV8122"}, {"QV8101"}, {"QV8102"}, {"QV8103"}, {"QV8104"}, {"QV8105"}, {"QV8106"}, {"QV8108"},
    {"QV8111"}, {"QV8113"}, {"QV8115"}, {"QV8117"}, {"QV8119"}, {"QV8120"},
};
static_assert(std::size(kList2) == 15);

// MCU: 8 Bit QV82 Series, KM48
inline constexpr ListRow kList3[] = {
    {"QV8202"},
};
static_assert(std::size(kList3) == 1);

// MCU: 8 Bit QV83 Series, KM48
inline constexpr ListRow kList4[] = {
    {"QV8323"}, {"QV8324"}, {"QV8325"}, {"QV8326"}, {"QV8328"}, {"QV8329"}, {"QV8330"}, {"QV8331"}, {"QV8332"},
    {"QV8333"}, {"QV8334"}, {"QV8335"}, {"QV8336"}, {"QV8337"}, {"QV8338"}, {"QV8339"}, {"QV8341"}, {"QV8342"},
    {"QV8343"}, {"QV8344"}, {"QV8345"}, {"QV8346"}, {"QV8347"}, {"QV8348"}, {"QV8350"}, {"QV8351"}, {"QV8352"},
    {"QV8353"}, {"QV8354"}, {"QV8356"}, {"QV8358"}, {"QV8359"}, {"QV8360"}, {"QV8361"}, {"QV8362"}, {"QV8363"},
    {"QV8364"}, {"QV8365"}, {"QV8366"}, {"QV8367"}, {"QV8368"}, {"QV8370"}, {"QV8371"}, {"QV8372"}, {"QV8373"},
    {"QV8375"}, {"QV8376"}, {"QV8377"}, {"QV8378"}, {"QV8301"}, {"QV8302"}, {"QV8303"}, {"QV8304"}, {"QV8306"},
    {"QV8307"}, {"QV8309"}, {"QV8310"}, {"QV8311"}, {"QV8312"}, {"QV8315"}, {"QV8316"}, {"QV8317"}, {"QV8318"},
    {"QV8319"}, {"QV8321"}, {"QV8322"},
};
static_assert(std::size(kList4) == 66);

// MCU: 8 Bit QV85 Series, KM48
inline constexpr ListRow kList5[] = {
    {"QV8501"}, {"QV8502"},
};
static_assert(std::size(kList5) == 2);

// USB: Low Speed Series, KM48
inline constexpr ListRow kList6[] = {
    {"QVL01"}, {"QVL02"}, {"QVL03"},
};
static_assert(std::size(kList6) == 3);

// USB: Full Speed Series, KM48
inline constexpr ListRow kList7[] = {
    {"QVL04"}, {"QVL05"}, {"QVL06"}, {"QVL07"}, {"QVL09"}, {"QVL10"}, {"QVL11"}, {"QVL12"}, {"QVL13"},
};
static_assert(std::size(kList7) == 9);

// MCU: 8 Bit QV81 Series, KM49
inline constexpr ListRow kList8[] = {
    {"QV8121_20"}, {"QV8122_20"}, {"QV8101_36"}, {"QV8102_36"}, {"QV8103_64"}, {"QV8104_80"}, {"QV8105_80"},
    {"QV8106_48"}, {"QV8108_48"}, {"QV8111_20"}, {"QV8113_20"}, {"QV8115_20"}, {"QV8117_20"}, {"QV8119_28_32_44"},
    {"QV8120_28_32_44"},
};
static_assert(std::size(kList8) == 15);

// MCU: 8 Bit QV82 Series, KM49
inline constexpr ListRow kList9[] = {
    {"QV8202_16"}, {"QV8202_20"},
};
static_assert(std::size(kList9) == 2);

// MCU: 8 Bit QV83 Series, KM49
inline constexpr ListRow kList10[] = {
    {"QV8323_8"}, {"QV8324_8"}, {"QV8325_8"}, {"QV8326_8"}, {"QV8328_8"}, {"QV8329_16", M2}, {"QV8330_10"},
    {"QV8330_16"}, {"QV8331_8"}, {"QV8332_8"}, {"QV8332_14"}, {"QV8332_16"}, {"QV8333_8"}, {"QV8334_6"},
    {"QV8335_8"}, {"QV8336_16"}, {"QV8336_20"}, {"QV8337_16"}, {"QV8337_20"}, {"QV8338_16"}, {"QV8338_20"},
    {"QV8339_20"}, {"QV8341_20"}, {"QV8343_16"}, {"QV8343_20"}, {"QV8342_20"}, {"QV8344_16"}, {"QV8344_20"},
    {"QV8345_20"}, {"QV8345_24"}, {"QV8346_20"}, {"QV8346_24"}, {"QV8347_18"}, {"QV8347_20"}, {"QV8347_24"},
    {"QV8348_14"}, {"QV8348_18"}, {"QV8350_8"}, {"QV8351_8"}, {"QV8352_6"}, {"QV8353_8"}, {"QV8354_6"},
    {"QV8356_14"}, {"QV8358_6"}, {"QV8359_14"}, {"QV8360_14"}, {"QV8361_8"}, {"QV8361_14"}, {"QV8362_6"},
    {"QV8363_8"}, {"QV8364_6"}, {"QV8365_8"}, {"QV8366_14"}, {"QV8366_20"}, {"QV8367_14"}, {"QV8367_20"},
    {"QV8368_24"}, {"QV8370_8"}, {"QV8371_6"}, {"QV8372_8"}, {"QV8373_14"}, {"QV8373_20"}, {"QV8375_14"},
    {"QV8375_20"}, {"QV8376_20"}, {"QV8376_24"}, {"QV8377_20"}, {"QV8377_24"}, {"QV8378_18"}, {"QV8378_20"},
    {"QV8378_24"}, {"QV8368_24"}, {"QV8301_16"}, {"QV8301_20"}, {"QV8302_16"}, {"QV8302_20"}, {"QV8303_48"},
    {"QV8304_48"}, {"QV8306_16", {}, 0x1020}, {"QV8307_16", {}, 0x1020}, {"QV8305_16"}, {"QV8309_16"},
    {"QV8309_20"}, {"QV8310_16"}, {"QV8310_20"}, {"QV8311_16"}, {"QV8311_20"}, {"QV8312_14"}, {"QV8312_16"},
    {"QV8315_8"}, {"QV8316_6"}, {"QV8317_18"}, {"QV8317_28"}, {"QV8318_64"}, {"QV8319_18", M4}, {"QV8321_20"},
    {"QV8322_20"},
};
static_assert(std::size(kList10) == 97);

// MCU: 8 Bit QV85 Series, KM49
inline constexpr ListRow kList11[] = {
    {"QV8501_24"}, {"QV8502_8"},
};
static_assert(std::size(kList11) == 2);

// USB: Full Speed Series, KM49
inline constexpr ListRow kList12[] = {
    {"QVL09_48"},
};
static_assert(std::size(kList12) == 1);
// clang-format on

}  // namespace pyxis
