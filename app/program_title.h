#pragma once
#include <string>

namespace korvexed {

inline constexpr char program_title[] = "Korvex Visual GCode Editor";

// The window title without a file: "Korvex Visual GCode Editor (V1.0.3)".
inline std::string BaseTitle() { return std::string(program_title) + " (V" + KORVEXED_VERSION + ")"; }

}  // namespace korvexed
