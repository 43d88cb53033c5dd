#pragma once
// Line and number helpers: comment splitting, line classification, field
// parsing and the number text of the program.
#include <cstdint>
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

// The key letters X, Y, Z, E and F of a line, each where it first stands
// from the fourth character on (the command word is never searched), and
// its number when it is a plain decimal that the same pass could read. A
// field in any other form is read, or refused, only when it is asked for.
struct LineFields {
  enum Key : uint8_t { x, y, z, e, f };
  size_t at[5];    // npos when absent
  double value[5];
  uint8_t read = 0;  // bit 1 << key: value[key] holds the number
};
LineFields ScanFields(std::string_view line);
// The number of `key`: no_value when absent. Throws NumberError.
double FieldValue(std::string_view line, const LineFields& fields, LineFields::Key key);

// The kind that a line's command word gives: text, g1, g0 or g92.
line_kind CommandKind(std::string_view line);
// The kind of a move (command g1 or g0): a move whose Z differs from
// `current_z` is a layer change and sets `current_z`.
line_kind ClassifyMove(line_kind command, std::string_view line, const LineFields& fields, double& current_z);
// The kind of a line without its comment (both steps above).
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
