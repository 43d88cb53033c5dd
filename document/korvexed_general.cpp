#include "document/korvexed_general.h"

#include <charconv>
#include <cmath>
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

line_kind ClassifyLine(std::string_view line, double& current_z) {
  if (line.size() < 2) return line_kind::text;
  if (line.starts_with("G92")) return line_kind::g92;
  const bool g1 = line.starts_with("G1 ") || line.starts_with("G01 ");
  const bool g0 = !g1 && (line.starts_with("G0 ") || line.starts_with("G00 "));
  if (!g1 && !g0) return line_kind::text;
  const double z = ParseField(line, 'Z');
  if (z != no_value && z != current_z) {
    current_z = z;
    return line_kind::layer_change;
  }
  return g1 ? line_kind::g1 : line_kind::g0;
}

namespace {

bool is_field_char(char c) { return (c >= '0' && c <= '9') || c == '.' || c == ',' || c == '-'; }

std::string_view trim_blanks(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

// An optional sign, then digits with at most one separator, at least one
// digit. Converts it, or throws NumberError with `text`.
double convert_number(std::string_view text, char separator) {
  std::string_view body = text;
  bool negative = false;
  if (!body.empty() && (body.front() == '+' || body.front() == '-')) {
    negative = body.front() == '-';
    body.remove_prefix(1);
  }
  size_t digits = 0, separators = 0;
  for (const char c : body) {
    if (c >= '0' && c <= '9') {
      ++digits;
    } else if (c == separator && separators == 0) {
      ++separators;
    } else {
      throw NumberError(text);
    }
  }
  if (digits == 0) throw NumberError(text);

  std::string plain(body);  // from_chars wants a period and no sign
  if (separators) plain[plain.find(separator)] = '.';
  double value = 0;
  const auto [end, ec] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (ec == std::errc::result_out_of_range) {
    // Without an exponent a value of 1 or more cannot underflow: any
    // non-zero integer digit means the number is beyond a double.
    const size_t integer_end = plain.find('.');
    const std::string_view integer = std::string_view(plain).substr(0, integer_end);
    if (integer.find_first_not_of('0') != std::string_view::npos) throw NumberError(text);
    value = 0;
  } else if (ec != std::errc() || end != plain.data() + plain.size()) {
    throw NumberError(text);
  }
  return negative ? -value : value;
}

}  // namespace

double ParseField(std::string_view line, char key) {
  const size_t p = line.size() > 3 ? line.find(key, 3) : std::string_view::npos;
  if (p == std::string_view::npos) return no_value;
  // The character right behind the key is taken whatever it is.
  size_t i = p + 2;
  while (i < line.size() && is_field_char(line[i])) ++i;
  const size_t start = p + 1;
  std::string text(trim_blanks(line.substr(std::min(start, line.size()), std::min(i, line.size()) - std::min(start, line.size()))));
  if (doc.decimal_comma) {
    const size_t dot = text.find('.');
    if (dot != std::string::npos) text[dot] = ',';
  }
  return convert_number(text, doc.decimal_comma ? ',' : '.');
}

bool DetectDecimalComma() { return platform().locale_decimal_comma(); }

namespace {

// Writes value as printf("%.5f") would and returns the end. Values of
// moderate size take an integer path; a product within rounding error of
// a half, and large values, go through the exact conversion.
char* format_fixed5(char* out, char* out_end, double value) {
  if (std::fabs(value) < 1e10) {
    const double scaled = value * 100000.0;
    const double rounded = std::nearbyint(scaled);
    const double distance_to_half = std::fabs(std::fabs(scaled - rounded) - 0.5);
    if (distance_to_half > std::fabs(scaled) * 0x1p-50 + 0x1p-60) {
      long long units = static_cast<long long>(rounded);
      if (units < 0) {
        *out++ = '-';
        units = -units;
      }
      out = std::to_chars(out, out_end, units / 100000).ptr;
      *out++ = '.';
      long long frac = units % 100000;
      for (int d = 4; d >= 0; --d) {
        out[d] = static_cast<char>('0' + frac % 10);
        frac /= 10;
      }
      return out + 5;
    }
  }
  return std::to_chars(out, out_end, value, std::chars_format::fixed, 5).ptr;
}

}  // namespace

void AppendNumber(std::string& out, double value, bool to_period) {
  char buf[400];
  char* end = format_fixed5(buf, buf + sizeof buf, value);
  const char* dot = std::char_traits<char>::find(buf, static_cast<size_t>(end - buf), '.');
  if (dot) {
    while (end[-1] == '0') --end;
    if (end[-1] == '.') --end;
  }
  std::string_view text(buf, static_cast<size_t>(end - buf));
  if (text == "-0") text = "0";
  const size_t start = out.size();
  out.append(text);
  if (doc.decimal_comma && !to_period) {
    const size_t p = out.find('.', start);
    if (p != std::string::npos) out[p] = ',';
  }
}

std::string FormatNumber(double value, bool to_period) {
  std::string s;
  AppendNumber(s, value, to_period);
  return s;
}

double RoundTo5(double value) {
  if (std::fabs(value) < 21474.83647) return std::nearbyint(value * 100000) / 100000;
  const std::string text = FormatNumber(value, true);
  double result = value;
  std::from_chars(text.data(), text.data() + text.size(), result);
  return result;
}

}  // namespace korvexed
