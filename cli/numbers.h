#pragma once
// Numbers as the command line and edit scripts write them: a period as the
// decimal separator and an optional exponent, whatever the locale.
#include <cstdint>
#include <optional>
#include <string_view>

namespace korvexed::cli {

// A finite number taking the whole text, or nothing.
std::optional<double> ParseNumber(std::string_view text);

// A non-negative decimal integer taking the whole text, or nothing.
std::optional<int32_t> ParseIndex(std::string_view text);

// A value typed into one of the editor's value dialogs comes back clamped
// to the range that the dialog accepts.
double DialogValue(double typed);

}  // namespace korvexed::cli
