// Filters of the file dialog: captions and patterns, "||" at the end.
#pragma once

namespace pyxis {

inline constexpr char kHexFilter[] = "Kestrel Hex Files (*.hex)|*.hex||";
inline constexpr char kObjFilter[] = "Kestrel Obj Files (*.obj)|*.obj||";
inline constexpr char kOtpFilter[] = "Kestrel Otp Files (*.otp)|*.otp||";
inline constexpr char kEpmFilter[] = "Kestrel Epm Files (*.epm)|*.epm||";

}  // namespace pyxis
