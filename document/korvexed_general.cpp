#include "document/korvexed_general.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>

#include "platform/platform.h"

namespace korvexed {

std::string_view SplitComment(std::string_view& line) {
  const size_t p = line.find(';');
  if (p == std::string_view::npos) return {};
  const std::string_view comment = line.substr(p + 1);
  line = line.substr(0, p);
  return comment;
}

namespace {

// The exact conversion, for texts of more than 15 digits.
bool convert_long(std::string_view body, double& value) {
  std::string plain(body);
  const size_t separator = plain.find_first_of(".,");
  if (separator != std::string::npos) plain[separator] = '.';
  const auto [end, ec] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (ec == std::errc::result_out_of_range) {
    // Without an exponent a value of 1 or more cannot underflow: any
    // non-zero integer digit means the number is beyond a double.
    const std::string_view integer = std::string_view(plain).substr(0, separator);
    value = 0;
    return integer.find_first_not_of('0') == std::string_view::npos;
  }
  return ec == std::errc() && end == plain.data() + plain.size();
}

}  // namespace

bool ReadNumber(std::string_view text, double& value) {
  std::string_view body = text;
  if (body.starts_with('\t')) body.remove_prefix(1);
  bool negative = false;
  if (!body.empty() && (body.front() == '+' || body.front() == '-')) {
    negative = body.front() == '-';
    body.remove_prefix(1);
  }
  const DigitRun run = ReadDigits(body, 0, doc.decimal_comma);
  if (run.digits == 0 || run.end != body.size()) return false;
  if (run.exact()) {
    value = run.value();
  } else if (!convert_long(body, value)) {
    return false;
  }
  if (negative) value = -value;
  return true;
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
