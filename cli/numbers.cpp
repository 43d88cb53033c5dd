#include "cli/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace korvexed::cli {

std::optional<double> ParseNumber(std::string_view text) {
  // from_chars takes no plus sign; "+-1" must still be refused.
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  double value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (text.empty() || error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<int32_t> ParseIndex(std::string_view text) {
  if (text.empty() || text[0] < '0' || text[0] > '9') return std::nullopt;
  int32_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end) return std::nullopt;
  return value;
}

double DialogValue(double typed) { return std::clamp(typed, -328000.0, 328000.0); }

}  // namespace korvexed::cli
