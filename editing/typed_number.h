#pragma once
// Numbers in the editing dialogs' text boxes: shown in the plain form of
// the user's locale, read back clamped to the range the dialogs accept.
#include <optional>
#include <string>
#include <string_view>

namespace korvexed {

inline constexpr double max_typed_value = 328000;

// Up to 15 significant digits, no trailing zeros, the locale's separator.
std::string TypedNumberText(double value);
// The whole text (blanks around it allowed) as a finite number, read with
// the locale's separator; nothing when it is not one.
std::optional<double> ParseTypedNumber(std::string_view text);

inline double ClampTyped(double value, double min_value, double max_value) {
  return value < min_value ? min_value : value > max_value ? max_value : value;
}

}  // namespace korvexed
