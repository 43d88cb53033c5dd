#include "editing/typed_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "document/document.h"

namespace korvexed {

namespace {

char separator() { return doc.decimal_comma ? ',' : '.'; }

}  // namespace

std::string TypedNumberText(double value) {
  char text[32];
  const char* end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15).ptr;
  std::string result(static_cast<const char*>(text), end);
  std::replace(result.begin(), result.end(), '.', separator());
  return result;
}

std::optional<double> ParseTypedNumber(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return std::nullopt;
  text = text.substr(first, text.find_last_not_of(" \t") + 1 - first);
  std::string plain(text);
  // Only the locale's separator is a separator: "1.5" in a comma locale is
  // not a number.
  if (doc.decimal_comma) {
    if (plain.find('.') != std::string::npos) return std::nullopt;
    std::replace(plain.begin(), plain.end(), ',', '.');
  }
  const char* begin = plain.data() + (plain.starts_with('+') ? 1 : 0);
  const char* end = plain.data() + plain.size();
  double value = 0;
  const auto [ptr, ec] = std::from_chars(begin, end, value);
  if (ec != std::errc() || ptr != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

}  // namespace korvexed
