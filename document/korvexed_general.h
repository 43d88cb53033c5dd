#pragma once
// Line and number helpers: comment splitting, line classification, field
// parsing and the number text of the program.
#include <stdexcept>
#include <string>
#include <string_view>

#include "document/document.h"

namespace korvexed {

// Error 1234: a field's text is not a number. what() is the description,
// the offending text followed by " is not a number.".
class NumberError : public std::runtime_error {
 public:
  static constexpr int number = 1234;
  explicit NumberError(std::string_view text);
};

// Splits `line` at its first ";": `line` keeps what stands before it
// (trailing blanks included), the result is what follows it.
std::string_view SplitComment(std::string_view& line);

// Where each key letter first stands in a line, searched from the fourth
// character on (the command word is never searched); npos when absent.
// One pass finds all five, so a move line is scanned once.
struct FieldPositions {
  size_t x, y, z, e, f;
};
FieldPositions FindFields(std::string_view line);

// The kind of a line without its comment. A move whose Z differs from
// `current_z` is a layer change and sets `current_z`.
line_kind ClassifyLine(std::string_view line, double& current_z, const FieldPositions& fields);
line_kind ClassifyLine(std::string_view line, double& current_z);

// The number behind `key` ('X', 'Y', 'Z', 'E' or 'F'), searched from the
// fourth character on; no_value when the key is absent. Throws NumberError.
// Reads the decimal separator of doc.decimal_comma.
double ParseField(std::string_view line, char key);
// The same for a key found at `key_position` (npos: absent).
double ParseFieldAt(std::string_view line, size_t key_position);

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
