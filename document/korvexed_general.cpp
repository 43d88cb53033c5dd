#include "document/korvexed_general.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>

#include "platform/platform.h"

namespace korvexed {

NumberError::NumberError(std::string_view text) : std::runtime_error(std::string(text) + " is not a number.") {}

std::string_view SplitComment(std::string_view& line) {
  const size_t p = line.find(';');
  if (p == std::string_view::npos) return {};
  const std::string_view comment = line.substr(p + 1);
  line = line.substr(0, p);
  return comment;
}

line_kind CommandKind(std::string_view line) {
  if (line.size() < 2) return line_kind::text;
  if (line.starts_with("G92")) return line_kind::g92;
  if (line.starts_with("G1 ") || line.starts_with("G01 ")) return line_kind::g1;
  if (line.starts_with("G0 ") || line.starts_with("G00 ")) return line_kind::g0;
  return line_kind::text;
}

line_kind ClassifyMove(line_kind command, std::string_view line, const LineFields& fields, double& current_z) {
  const double z = FieldValue(line, fields, LineFields::z);
  if (z != no_value && z != current_z) {
    current_z = z;
    return line_kind::layer_change;
  }
  return command;
}

line_kind ClassifyLine(std::string_view line, double& current_z) {
  const line_kind command = CommandKind(line);
  return is_move(command) ? ClassifyMove(command, line, ScanFields(line), current_z) : command;
}

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_field_char(char c) { return is_digit(c) || c == '.' || c == ',' || c == '-'; }

std::string_view trim_blanks(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

[[noreturn]] void not_a_number(std::string_view text, bool comma) {
  std::string shown(text);
  if (comma) {
    const size_t dot = shown.find('.');
    if (dot != std::string::npos) shown[dot] = ',';
  }
  throw NumberError(shown);
}

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

DigitRun read_digits(std::string_view text, size_t i, bool comma) {
  DigitRun run;
  bool separator = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (is_digit(c)) {
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

// The exact conversion, for texts of more than 15 digits.
double convert_long(std::string_view body, std::string_view text, bool comma) {
  std::string plain(body);
  const size_t separator = plain.find_first_of(".,");
  if (separator != std::string::npos) plain[separator] = '.';
  double value = 0;
  const auto [end, ec] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (ec == std::errc::result_out_of_range) {
    // Without an exponent a value of 1 or more cannot underflow: any
    // non-zero integer digit means the number is beyond a double.
    const std::string_view integer = std::string_view(plain).substr(0, separator);
    if (integer.find_first_not_of('0') != std::string_view::npos) not_a_number(text, comma);
    return 0;
  }
  if (ec != std::errc() || end != plain.data() + plain.size()) not_a_number(text, comma);
  return value;
}

// An optional sign, then digits with at most one decimal separator, at
// least one digit. The separator is "." (or "," and the first "." when the
// locale writes a decimal comma). Like the locale's conversion, it skips
// a leading tab; a tab anywhere else is refused.
double convert_number(std::string_view text, bool comma) {
  std::string_view body = text;
  if (body.starts_with('\t')) body.remove_prefix(1);
  bool negative = false;
  if (!body.empty() && (body.front() == '+' || body.front() == '-')) {
    negative = body.front() == '-';
    body.remove_prefix(1);
  }
  const DigitRun run = read_digits(body, 0, comma);
  if (run.digits == 0 || run.end != body.size()) not_a_number(text, comma);
  const double value = run.exact() ? run.value() : convert_long(body, text, comma);
  return negative ? -value : value;
}

// The common field of slicer output, "-12.345" with a period and up to 15
// digits, read in one pass from `i`: false for anything else, which
// convert_number then reads or rejects.
bool plain_decimal(std::string_view line, size_t i, double& value, size_t& end) {
  if (doc.decimal_comma) return false;
  const bool negative = i < line.size() && line[i] == '-';
  const DigitRun run = read_digits(line, i + negative, false);
  if (!run.exact() || (run.end < line.size() && is_field_char(line[run.end]))) return false;
  value = negative ? -run.value() : run.value();
  end = run.end;
  return true;
}

}  // namespace

LineFields ScanFields(std::string_view line) {
  // Slot of each key letter, plus one; 0 for every other character.
  static constexpr auto slot_of = [] {
    std::array<uint8_t, 256> slots{};
    slots['X'] = 1 + LineFields::x;
    slots['Y'] = 1 + LineFields::y;
    slots['Z'] = 1 + LineFields::z;
    slots['E'] = 1 + LineFields::e;
    slots['F'] = 1 + LineFields::f;
    return slots;
  }();
  LineFields found;
  std::fill(std::begin(found.at), std::end(found.at), std::string_view::npos);
  uint8_t seen = 0;
  for (size_t i = 3; i < line.size();) {
    const uint8_t slot = slot_of[static_cast<unsigned char>(line[i])];
    const uint8_t bit = slot ? static_cast<uint8_t>(1u << (slot - 1)) : 0;
    if (!bit || (seen & bit)) {
      ++i;
      continue;
    }
    seen |= bit;
    found.at[slot - 1] = i;
    // A number read here is skipped: no key letter stands inside it.
    if (plain_decimal(line, i + 1, found.value[slot - 1], i)) {
      found.read |= bit;
    } else {
      ++i;
    }
  }
  return found;
}

double FieldValue(std::string_view line, const LineFields& fields, LineFields::Key key) {
  return fields.read & (1u << key) ? fields.value[key] : ParseFieldAt(line, fields.at[key]);
}

double ParseFieldAt(std::string_view line, size_t key_position) {
  if (key_position == std::string_view::npos) return no_value;
  double value = 0;
  if (size_t end = 0; plain_decimal(line, key_position + 1, value, end)) return value;
  // The character right behind the key is taken whatever it is.
  const size_t start = std::min(key_position + 1, line.size());
  size_t stop = key_position + 2;
  while (stop < line.size() && is_field_char(line[stop])) ++stop;
  stop = std::min(stop, line.size());
  return convert_number(trim_blanks(line.substr(start, stop - start)), doc.decimal_comma);
}

double ParseField(std::string_view line, char key) {
  return ParseFieldAt(line, line.size() > 3 ? line.find(key, 3) : std::string_view::npos);
}

bool DetectDecimalComma() { return platform().locale_decimal_comma(); }

namespace {

// The value in units of the fifth decimal, rounded as printf("%.5f")
// rounds, when the double product can be trusted: the value is of moderate
// size and the product is not within its rounding error of a half.
bool fifth_decimal_units(double value, long long& units) {
  if (!(std::fabs(value) < 1e10)) return false;
  const double scaled = value * 100000.0;
  const double rounded = RoundHalfEven(scaled);
  const double distance_to_half = std::fabs(std::fabs(scaled - rounded) - 0.5);
  if (distance_to_half <= std::fabs(scaled) * 0x1p-50 + 0x1p-60) return false;
  units = static_cast<long long>(rounded);
  return true;
}

// Two digits of each number 0..99, for writing digits in pairs.
constexpr char digit_pairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

// Coordinates are mostly below 1000: their digits are written directly.
char* write_integer(char* out, uint64_t n) {
  if (n < 10) {
    *out = static_cast<char>('0' + n);
    return out + 1;
  }
  if (n < 100) {
    std::memcpy(out, digit_pairs + 2 * n, 2);
    return out + 2;
  }
  if (n < 1000) {
    *out = static_cast<char>('0' + n / 100);
    std::memcpy(out + 1, digit_pairs + 2 * (n % 100), 2);
    return out + 3;
  }
  return std::to_chars(out, out + max_number_chars, n).ptr;
}

// A positive count of fifth decimals: the integer digits, then the
// decimals without trailing zeros.
char* write_units(char* out, uint64_t units, char point) {
  out = write_integer(out, units / 100000);
  const uint32_t decimals = static_cast<uint32_t>(units % 100000);
  if (decimals == 0) return out;
  out[0] = point;
  std::memcpy(out + 1, digit_pairs + 2 * (decimals / 1000), 2);
  const uint32_t last_three = decimals % 1000;
  std::memcpy(out + 3, digit_pairs + 2 * (last_three / 10), 2);
  out[5] = static_cast<char>('0' + last_three % 10);
  // Counted rather than searched for: a loop over the zeros mispredicts.
  const int trailing_zeros =
      (decimals % 10 == 0) + (decimals % 100 == 0) + (decimals % 1000 == 0) + (decimals % 10000 == 0);
  return out + 6 - trailing_zeros;
}

// The exact decimal expansion rounded to five decimals, for the values
// whose fifth decimal the double product cannot decide.
char* write_exact(char* out, double value, char point) {
  char* const start = out;
  out = std::to_chars(out, start + max_number_chars, value, std::chars_format::fixed, 5).ptr;
  if (char* dot = static_cast<char*>(std::memchr(start, '.', static_cast<size_t>(out - start)))) {
    while (out[-1] == '0') --out;
    if (out[-1] == '.') --out;
    else *dot = point;
  }
  if (std::string_view(start, static_cast<size_t>(out - start)) == "-0") {
    *start = '0';
    out = start + 1;
  }
  return out;
}

}  // namespace

char* WriteNumber(char* out, double value, bool to_period) {
  const char point = doc.decimal_comma && !to_period ? ',' : '.';
  long long units = 0;
  if (!fifth_decimal_units(value, units)) return write_exact(out, value, point);
  if (units == 0) {
    *out = '0';  // never "-0"
    return out + 1;
  }
  *out = '-';
  out += units < 0;
  return write_units(out, static_cast<uint64_t>(units < 0 ? -units : units), point);
}

void AppendNumber(std::string& out, double value, bool to_period) {
  char buf[max_number_chars];
  out.append(buf, WriteNumber(buf, value, to_period));
}

std::string FormatNumber(double value, bool to_period) {
  std::string s;
  AppendNumber(s, value, to_period);
  return s;
}

double RoundTo5(double value) {
  if (std::fabs(value) < 21474.83647) return RoundHalfEven(value * 100000) / 100000;
  // The written text read back: the units and 1e5 are exact doubles, so
  // the one division gives the double nearest to the text's value.
  if (long long units = 0; fifth_decimal_units(value, units)) return static_cast<double>(units) / 100000;
  const std::string text = FormatNumber(value, true);
  double result = value;
  std::from_chars(text.data(), text.data() + text.size(), result);
  return result;
}

}  // namespace korvexed
