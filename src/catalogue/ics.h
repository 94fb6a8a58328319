// The ICs: what all rows of an IC have in common.
#pragma once

#include <array>
#include <cstdint>

#include "catalogue/profiles.h"

namespace pyxis {

struct Ic {
  const char* ChipName;
  std::uint32_t ChipCode;
  const char* FileExtension;
  const char* FirmwareFile;
  std::uint32_t FirmwareCode;  // 0: the common image
  Ticks ticks;
  Masks masks;
  std::uint32_t ReadSizeBytes;
  bool HasOptionDialog;
  bool HasSmartOption;
  bool ReadSwapBytes;
  bool HasIspProgram;
};

// clang-format off
inline constexpr std::array<Ic, 108> kIcs{{
    // name    code      file       firmware      fw code ticks masks read size option smart swap isp
    {"QV4101", 0x1382,  ".epm",    "QV4101.nce", 0x1382, T4,  M0,  0x87FC,  false, false, true,  false},
    {"QV4103", 0x1397,  ".otp",    "all.nce",    0x0,    T7,  M0,  0x32E0,  false, true,  true,  false},
    {"QV4105", 0x1395,  ".otp",    "QV4105.nce", 0x1395, T9,  M0,  0x1FFF,  true,  false, true,  false},
    {"QV4106", 0x1396,  ".otp",    "all.nce",    0x0,    T7,  M0,  0x32E0,  true,  false, true,  false},
    {"QV4107", 0x1385,  ".epm",    "QV4107.nce", 0x1385, T4,  M0,  0x201A,  false, false, true,  false},
    {"QV4206", 0x1393,  ".epm",    "QV4207.nce", 0x1393, T4,  M0,  0x1001A, false, false, true,  false},
    {"QV4201", 0x1387,  ".epm",    "QV4201.nce", 0x1387, T4,  M0,  0x401A,  false, false, true,  false},
    {"QV4203", 0x1388,  ".epm",    "QV4203.nce", 0x1388, T4,  M0,  0x801A,  false, false, true,  false},
    {"QV4204", 0x1392,  ".epm",    "QV4204.nce", 0x1392, T4,  M0,  0x801A,  false, false, true,  false},
    {"QV4205", 0x1384,  ".epm",    "QV4205.nce", 0x1384, T4,  M0,  0xC01A,  false, false, true,  false},
    {"QV4207", 0x13931, ".epm",    "QV4207.nce", 0x1393, T4,  M0,  0x1001A, false, false, true,  false},
    {"QV8121", 0x3706,  ".velmar", "QV8121.nce", 0x3706, T1,  M10, 0x1010,  false, true,  false, true},
    {"QV8122", 0x37060, ".velmar", "QV8121.nce", 0x3706, T1,  M10, 0x1010,  false, true,  false, true},
    {"QV8101", 0x3714,  ".velmar", "QV8101.nce", 0x3714, T1,  M3,  0x8010,  false, true,  false, true},
    {"QV8102", 0x37140, ".velmar", "QV8101.nce", 0x3714, T1,  M3,  0x8010,  false, true,  false, true},
    {"QV8103", 0x3704,  ".velmar", "QV8103.nce", 0x3704, T1,  M3,  0x4010,  false, true,  false, true},
    {"QV8104", 0x3709,  ".velmar", "QV8103.nce", 0x3704, T1,  M3,  0x4010,  false, true,  false, true},
    {"QV8105", 0x37090, ".velmar", "QV8103.nce", 0x3704, T1,  M3,  0x4010,  false, true,  false, true},
    {"QV8106", 0x3713,  ".velmar", "QV8106.nce", 0x3713, T1,  M3,  0x2010,  false, true,  false, true},
    {"QV8108", 0x37130, ".velmar", "QV8106.nce", 0x3713, T1,  M3,  0x2010,  false, true,  false, true},
    {"QV8111", 0x3712,  ".velmar", "QV8120.nce", 0x3703, T1,  M8,  0x2010,  false, true,  false, true},
    {"QV8113", 0x37120, ".velmar", "QV8120.nce", 0x3703, T1,  M8,  0x2010,  false, true,  false, true},
    {"QV8115", 0x3710,  ".velmar", "QV8120.nce", 0x3703, T1,  M8,  0x2010,  false, true,  false, true},
    {"QV8117", 0x37100, ".velmar", "QV8120.nce", 0x3703, T1,  M8,  0x2010,  false, true,  false, true},
    {"QV8119", 0x37030, ".velmar", "QV8120.nce", 0x3703, T1,  M11, 0x4010,  false, true,  false, true},
    {"QV8120", 0x3703,  ".velmar", "QV8120.nce", 0x3703, T1,  M11, 0x4010,  false, true,  false, true},
    {"QV8202", 0x2748,  ".hex",    "QV8319.nce", 0x2735, T1,  M16, 0x2020,  false, true,  true,  true},
    {"QV8323", 0x27011, ".hex",    "QV8323.nce", 0x11,   T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8324", 0x1740,  ".hex",    "QV8351.nce", 0x1740, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8325", 0x17402, ".hex",    "QV8351.nce", 0x1740, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8326", 0x17403, ".hex",    "QV8351.nce", 0x1740, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8328", 0x27430, ".hex",    "QV8328.nce", 0x1743, T2,  M6,  0x800,   false, true,  true,  false},
    {"QV8329", 0x2712,  ".hex",    "QV8330.nce", 0x2712, T2,  M23, 0x800,   false, true,  true,  false},
    {"QV8330", 0x2702,  ".hex",    "QV8330.nce", 0x2712, T2,  M17, 0x800,   false, true,  true,  false},
    {"QV8331", 0x2747,  ".hex",    "QV8331.nce", 0x2747, T2,  M7,  0x800,   false, true,  true,  false},
    {"QV8332", 0x2744,  ".hex",    "QV8332.nce", 0x2744, T2,  M12, 0x800,   false, true,  true,  false},
    {"QV8333", 0x2801,  ".hex",    "QV8333.nce", 0x2801, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8334", 0x28016, ".hex",    "QV8333.nce", 0x2801, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8335", 0x28014, ".hex",    "QV8333.nce", 0x2801, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8336", 0x27091, ".hex",    "QV8336.nce", 0x709,  T1,  M2,  0x2000,  false, true,  true,  false},
    {"QV8337", 0x2746,  ".hex",    "QV8337.nce", 0x2746, T1,  M4,  0x1000,  false, true,  true,  false},
    {"QV8338", 0x2757,  ".hex",    "QV8337.nce", 0x2746, T1,  M4,  0x1000,  false, true,  true,  false},
    {"QV8339", 0x2729,  ".hex",    "QV8339.nce", 0x2729, T1,  M4,  0x1000,  false, true,  true,  false},
    {"QV8341", 0x27291, ".hex",    "QV8339.nce", 0x2729, T1,  M4,  0x1000,  false, true,  true,  false},
    {"QV8342", 0x27293, ".hex",    "QV8339.nce", 0x2729, T1,  M4,  0x1000,  false, true,  true,  false},
    {"QV8343", 0x2756,  ".hex",    "QV8343.nce", 0x2756, T1,  M18, 0x1000,  false, true,  true,  false},
    {"QV8344", 0x2709,  ".hex",    "QV8344.nce", 0x2709, T1,  M2,  0x2000,  false, true,  true,  false},
    {"QV8345", 0x2755,  ".hex",    "QV8345.nce", 0x2755, T1,  M1,  0x2000,  false, true,  true,  false},
    {"QV8346", 0x27553, ".hex",    "QV8345.nce", 0x2755, T1,  M1,  0x2000,  false, true,  true,  false},
    {"QV8347", 0x2803,  ".hex",    "QV8347.nce", 0x2803, T2,  M7,  0x2000,  false, true,  true,  false},
    {"QV8348", 0x2700,  ".hex",    "QV8348.nce", 0x2710, T5,  M1,  0x800,   false, true,  true,  false},
    {"QV8350", 0x2711,  ".hex",    "QV8350.nce", 0x2711, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8351", 0x2740,  ".hex",    "QV8351.nce", 0x2740, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8352", 0x27401, ".hex",    "QV8351.nce", 0x2740, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8353", 0x27403, ".hex",    "QV8351.nce", 0x2740, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8354", 0x27404, ".hex",    "QV8351.nce", 0x2740, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8356", 0x2713,  ".hex",    "QV8356.nce", 0x2713, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8358", 0x27131, ".hex",    "QV8356.nce", 0x2713, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8359", 0x27132, ".hex",    "QV8356.nce", 0x2713, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8360", 0x2737,  ".hex",    "QV8360.nce", 0x2737, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8361", 0x2743,  ".hex",    "QV8361.nce", 0x2743, T2,  M6,  0x800,   false, true,  true,  false},
    {"QV8362", 0x27431, ".hex",    "QV8361.nce", 0x2743, T2,  M6,  0x800,   false, true,  true,  false},
    {"QV8363", 0x27432, ".hex",    "QV8361.nce", 0x2743, T2,  M6,  0x800,   false, true,  true,  false},
    {"QV8364", 0x27433, ".hex",    "QV8361.nce", 0x2743, T2,  M6,  0x800,   false, true,  true,  false},
    {"QV8365", 0x27134, ".hex",    "QV8356.nce", 0x2713, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8366", 0x2750,  ".hex",    "QV8366.nce", 0x2750, T1,  M5,  0x1000,  false, true,  true,  false},
    {"QV8367", 0x27503, ".hex",    "QV8366.nce", 0x2750, T1,  M5,  0x1000,  false, true,  true,  false},
    {"QV8368", 0x2728,  ".hex",    "QV8368.nce", 0x2728, T1,  M2,  0x2000,  false, true,  true,  false},
    {"QV8370", 0x28011, ".hex",    "QV8333.nce", 0x2801, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8371", 0x28017, ".hex",    "QV8333.nce", 0x2801, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8372", 0x28015, ".hex",    "QV8333.nce", 0x2801, T2,  M1,  0x800,   false, true,  true,  false},
    {"QV8373", 0x27501, ".hex",    "QV8366.nce", 0x2750, T1,  M5,  0x1000,  false, true,  true,  false},
    {"QV8375", 0x27504, ".hex",    "QV8366.nce", 0x2750, T1,  M5,  0x1000,  false, true,  true,  false},
    {"QV8376", 0x27551, ".hex",    "QV8345.nce", 0x2755, T1,  M1,  0x2000,  false, true,  true,  false},
    {"QV8377", 0x27554, ".hex",    "QV8345.nce", 0x2755, T1,  M1,  0x2000,  false, true,  true,  false},
    {"QV8378", 0x28031, ".hex",    "QV8347.nce", 0x2803, T2,  M7,  0x2000,  false, true,  true,  false},
    {"QV8301", 0x2705,  ".hex",    "QV8301.nce", 0x2705, T1,  M2,  0x2040,  false, true,  true,  false},
    {"QV8302", 0x27050, ".hex",    "QV8301.nce", 0x2705, T1,  M2,  0x2040,  false, true,  true,  false},
    {"QV8303", 0x2708,  ".hex",    "QV8303.nce", 0x2708, T3,  M9,  0x4040,  false, true,  true,  true},
    {"QV8304", 0x27081, ".hex",    "QV8303.nce", 0x2708, T3,  M9,  0x4040,  false, true,  true,  true},
    {"QV8306", 0x2805,  ".hex",    "QV8312.nce", 0x2802, T1,  M13, 0x820,   false, true,  true,  true},
    {"QV8307", 0x28051, ".hex",    "QV8312.nce", 0x2802, T1,  M13, 0x820,   false, true,  true,  true},
    {"QV8309", 0x2738,  ".hex",    "QV8309.nce", 0x2738, T1,  M1,  0x1020,  false, true,  true,  true},
    {"QV8310", 0x27381, ".hex",    "QV8309.nce", 0x2738, T1,  M1,  0x1020,  false, true,  true,  true},
    {"QV8311", 0x2753,  ".hex",    "QV8309.nce", 0x2738, T1,  M1,  0x1020,  false, true,  true,  true},
    {"QV8312", 0x2802,  ".hex",    "QV8312.nce", 0x2802, T1,  M19, 0x1020,  false, true,  true,  true},
    {"QV8315", 0x2752,  ".hex",    "QV8315.nce", 0x2752, T1,  M14, 0x820,   false, true,  true,  false},
    {"QV8316", 0x27521, ".hex",    "QV8315.nce", 0x2752, T1,  M14, 0x820,   false, true,  true,  false},
    {"QV8317", 0x2726,  ".hex",    "QV8317.nce", 0x2726, T1,  M9,  0x1020,  false, true,  true,  true},
    {"QV8318", 0x2727,  ".hex",    "QV8318.nce", 0x2727, T1,  M20, 0x2020,  false, true,  true,  true},
    {"QV8319", 0x2735,  ".hex",    "QV8319.nce", 0x2735, T1,  M24, 0x820,   false, true,  true,  true},
    {"QV8321", 0x2754,  ".hex",    "QV8321.nce", 0x2754, T1,  M21, 0x1020,  false, true,  true,  true},
    {"QV8322", 0x2806,  ".hex",    "QV8312.nce", 0x2802, T1,  M22, 0x1020,  false, true,  true,  true},
    {"QV8501", 0x27552, ".hex",    "QV8345.nce", 0x2755, T1,  M1,  0x2000,  false, true,  true,  false},
    {"QV8502", 0x28012, ".hex",    "QV8333.nce", 0x2801, T2,  M1,  0x800,   false, true,  true,  false},
    {"QVL01",  0x1603,  ".obj",    "all.nce",    0x0,    T6,  M0,  0x4000,  false, false, true,  false},
    {"QVL02",  0x1604,  ".obj",    "all.nce",    0x0,    T6,  M0,  0x4000,  false, false, true,  false},
    {"QVL03",  0x1615,  ".obj",    "all.nce",    0x0,    T6,  M0,  0x3FFE,  false, false, true,  false},
    {"QVL04",  0x1622,  ".hex",    "all.nce",    0x0,    T10, M0,  0x8001,  true,  false, false, false},
    {"QVL05",  0x1630,  ".hex",    "all.nce",    0x0,    T8,  M0,  0x4001,  true,  false, false, false},
    {"QVL06",  0x1636,  ".hex",    "all.nce",    0x0,    T11, M0,  0x6001,  true,  false, false, false},
    {"QVL07",  0x1638,  ".hex",    "QVL07.nce",  0x1638, T3,  M0,  0x6020,  true,  false, false, true},
    {"QVL09",  0x1645,  ".hex",    "QVL09.nce",  0x1645, T3,  M15, 0x4040,  false, true,  true,  true},
    {"QVL10",  0x1646,  ".hex",    "QVL10.nce",  0x1646, T3,  M15, 0x3020,  false, true,  true,  true},
    {"QVL11",  0x1650,  ".hexbin", "QVL11.nce",  0x1650, T3,  M25, 0x2020,  false, true,  true,  true},
    {"QVL12",  0x1655,  ".hex",    "QVL09.nce",  0x1645, T3,  M15, 0x4040,  false, true,  true,  true},
    {"QVL13",  0x1632,  ".hex",    "all.nce",    0x0,    T8,  M0,  0x4001,  true,  false, false, false},
    {"QV8305", 0x27530, ".hex",    "QV8309.nce", 0x2738, T1,  M1,  0x1020,  false, true,  true,  true},
}};
// clang-format on

constexpr bool IcsAreUnique() {
  for (std::size_t i = 0; i < kIcs.size(); ++i)
    for (std::size_t k = i + 1; k < kIcs.size(); ++k)
      if (kIcs[i].ChipCode == kIcs[k].ChipCode) return false;
  return true;
}
static_assert(IcsAreUnique());

}  // namespace pyxis
