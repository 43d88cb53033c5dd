#pragma once
// Line and number helpers: comment splitting, line classification, field
// parsing and the number text of the program.
#include <cstdint>
#include <string>
#include <string_view>

#include "document/document.h"

namespace korvexed {

// Splits `line` at its first ";": `line` keeps what stands before it
// (trailing blanks included), the result is what follows it.
std::string_view SplitComment(std::string_view& line);

// The number of a field: an optional sign, digits with at most one
// decimal separator ("." or, when doc.decimal_comma is set, also ","), at
// least one digit, a leading tab skipped. False for anything else.
bool ReadNumber(std::string_view text, double& value);

// Digits with at most one decimal separator, read from `i` up to the first
// other character.
struct DigitRun {
  uint64_t mantissa = 0;
  int digits = 0;
  int decimals = 0;
  size_t end = 0;

  // Up to 15 digits the mantissa and the power of ten are exact, so one
  // division gives the correctly rounded value.
  bool exact() const { return digits > 0 && digits <= 15; }
  double value() const {
    static constexpr double powers_of_ten[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7,
                                               1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    return static_cast<double>(mantissa) / powers_of_ten[decimals];
  }
};

inline DigitRun ReadDigits(std::string_view text, size_t i, bool comma) {
  DigitRun run;
  bool separator = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (c >= '0' && c <= '9') {
      run.mantissa = run.mantissa * 10 + static_cast<uint64_t>(c - '0');
      ++run.digits;
      run.decimals += separator;
    } else if (!separator && (c == '.' || (comma && c == ','))) {
      separator = true;
    } else {
      break;
    }
  }
  run.end = i;
  return run;
}

// The common field of slicer output, "-12.345" with a period and up to 15
// digits, read in one pass from `i` up to `end`: false for anything else,
// which ReadNumber then reads or rejects. Inline: it runs for every field
// of every move loaded.
inline bool ReadPlainDecimal(std::string_view line, size_t i, double& value, size_t& end) {
  if (doc.decimal_comma) return false;
  const bool negative = i < line.size() && line[i] == '-';
  const DigitRun run = ReadDigits(line, i + negative, false);
  if (!run.exact()) return false;
  value = negative ? -run.value() : run.value();
  end = run.end;
  return true;
}

// Whether the user's locale writes a decimal comma.
bool DetectDecimalComma();

// At most five decimals, rounded as printf's "%.5f", trailing zeros and a
// trailing separator dropped, never "-0". The separator is "," when
// doc.decimal_comma is set and `to_period` is false.
std::string FormatNumber(double value, bool to_period);
// The same text appended to `out`, or written at `out` (room for
// max_number_chars) returning its end: the writer's fast paths.
void AppendNumber(std::string& out, double value, bool to_period);
inline constexpr size_t max_number_chars = 400;  // "%.5f" of the largest double
char* WriteNumber(char* out, double value, bool to_period);

// The nearest integer, halves to even, for magnitudes below 2^52: adding
// and taking away 2^52 leaves no fraction bits. Much cheaper than
// nearbyint, which guards the floating-point environment on every call.
inline double RoundHalfEven(double x) {
  constexpr double shift = 0x1p52;
  return x >= 0 ? (x + shift) - shift : (x - shift) + shift;
}

// The value rounded to five decimals, for comparing written values.
double RoundTo5(double value);

}  // namespace korvexed
