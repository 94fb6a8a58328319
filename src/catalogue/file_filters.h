// Filters of the file dialog: captions and patterns, "||" at the end.
#pragma once

#include "catalogue/profiles.h"

namespace pyxis {

inline constexpr char kHexFilter[] = "Kestrel Hex Files (*.hex)|*.hex||";
inline constexpr char kObjFilter[] = "Kestrel Obj Files (*.obj)|*.obj||";
inline constexpr char kOtpFilter[] = "Kestrel Otp Files (*.otp)|*.otp||";
inline constexpr char kEpmFilter[] = "Kestrel Epm Files (*.epm)|*.epm||";

// The types of program files.
struct FileType {
  const char* extension;
  const char* filter;
};
inline constexpr FileType kFileTypes[] = {
    {kHex, kHexFilter},
    {kObj, kObjFilter},
    {kOtp, kOtpFilter},
    {kEpm, kEpmFilter},
    {kHexOrBin, "Kestrel Hex Files (*.hex)|*.hex|Kestrel Bin Files (*.bin)|*.bin||"},
    {kVelmar, "Kestrel Velmar Files (*.velmar)|*.velmar||"},
};

}  // namespace pyxis
