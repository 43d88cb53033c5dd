#pragma once

namespace korvexed::cli {

inline constexpr int exit_ok = 0;
inline constexpr int exit_io = 1;     // a file could not be read or written
inline constexpr int exit_usage = 2;  // a wrong command line or script line

}  // namespace korvexed::cli
