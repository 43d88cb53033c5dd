#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>

#include "document/gcode_line.h"
#include "document/korvexed_general.h"

using namespace korvexed;

namespace {

struct CommaLocale {
  CommaLocale() { doc.decimal_comma = true; }
  ~CommaLocale() { doc.decimal_comma = false; }
};

// A line read as the loader reads it: "text", "unreadable", or its kind
// and the fields it states ("G1 X10 Y20" as "G1 X10 Y20", G0 and G92 alike),
// then " ;" and the comment when there is one.
std::string read(std::string_view line) {
  std::string_view code = line;
  const std::string_view comment = SplitComment(code);
  std::string scratch;
  const ReadLine r = ReadMoveLine(ReadCommandWord(code), code, comment, scratch);
  if (r.read == LineRead::text) return "text";
  if (r.read == LineRead::unreadable) return "unreadable";
  std::string s = r.kind == line_kind::g0 ? "G0" : r.kind == line_kind::g1 ? "G1" : "G92";
  for (int key = 0; key < 5; ++key) {
    if (!(r.fields.given & (1 << key))) continue;
    s += std::string(" ") + "XYZEF"[key];
    AppendNumber(s, r.fields.value[key], true);
  }
  if (!r.comment.empty()) s.append(" ;").append(r.comment);
  return s;
}

// printf's "%.5f" without trailing zeros, separator or minus sign of zero.
std::string printf_text(double value, char point = '.') {
  char text[512];
  std::snprintf(text, sizeof text, "%.5f", value);
  std::string want = text;
  want.erase(want.find_last_not_of('0') + 1);
  if (want.back() == '.') want.pop_back();
  if (want == "-0") want = "0";
  if (const size_t dot = want.find('.'); dot != std::string::npos) want[dot] = point;
  return want;
}

}  // namespace

TEST(SplitComment, KeepsBlanksBeforeTheFirstSemicolon) {
  using Split = std::pair<std::string_view, std::string_view>;
  const auto split = [](std::string_view line) {
    const std::string_view comment = SplitComment(line);
    return Split(line, comment);
  };
  EXPECT_EQ(split("G1 X10 Y20 ;move;more"), Split("G1 X10 Y20 ", "move;more"));
  EXPECT_EQ(split(";LAYER:3"), Split("", "LAYER:3"));
  EXPECT_EQ(split("M104 S200"), Split("M104 S200", ""));
}

TEST(ReadMoveLine, ReadsMovesAsThePrinterDoes) {
  const std::pair<std::string, std::string> cases[] = {
      // The command word: after blanks, followed at once by a field, by number.
      {"G1X10Y20E1", "G1 X10 Y20 E1"}, {"  G1 X10", "G1 X10"}, {"\tG01X5", "G1 X5"}, {"G00 X5", "G0 X5"},
      {"G1 X5 ;move", "G1 X5 ;move"}, {"G92 E0", "G92 E0"}, {"G92", "G92"}, {"G1 Z.3 F7800", "G1 Z0.3 F7800"},
      // Numbers with a blank or tab behind the key, signs, bare separators.
      {"G1 X 12.5", "G1 X12.5"}, {"G1 X\t13 Y8", "G1 X13 Y8"}, {"G1 X+5 Y-3", "G1 X5 Y-3"},
      {"G1 X.5 Y5.F100", "G1 X0.5 Y5 F100"}, {"G1 X1.5E2", "G1 X1.5 E2"},
      {"G1 X" + std::string(300, '0') + "12", "G1 X12"},
      // Parenthesised groups are comments, before the line's own.
      {"G1 X10 Y10 (Extrude ...)", "G1 X10 Y10 ;(Extrude ...)"}, {"G1 X1 (a) Y2 ;b", "G1 X1 Y2 ;(a);b"},
      {"G1 X1(a)Y2", "G1 X1 Y2 ;(a)"},
      // Other commands, bare moves, other words and unclosed groups stay text.
      {"G1", "text"}, {"G1 ;c", "text"}, {"g1 X5", "text"}, {"G10 X5", "text"}, {"G1.5 X1", "text"},
      {"G28 X0", "text"}, {"G920", "text"}, {"G92 Z0", "text"}, {"G1 X5 S100", "text"}, {"N10 G1 X5", "text"},
      {"G1 X5*71", "text"}, {"G1 X1 X2", "text"}, {"G1 x5", "text"}, {"G1 X1 (a", "text"}, {"G1 X1 a)", "text"},
      {"M104 S200", "text"}, {";G1 X5", "text"}, {"", "text"},
      // Fields that are not numbers.
      {"G1 X0 Y{machine_depth}", "unreadable"}, {"G1 X1.2.3", "unreadable"}, {"G1 Xabc", "unreadable"},
      {"G1 X", "unreadable"}, {"G1 X-", "unreadable"}, {"G1 X1,5", "unreadable"}, {"G92 E{x}", "unreadable"},
      {"G1 X" + std::string(400, '9'), "unreadable"}};
  for (const auto& [line, want] : cases) EXPECT_EQ(read(line), want) << line;
  // Below the smallest double: zero, with its sign.
  double tiny = 1;
  EXPECT_TRUE(ReadNumber("-0." + std::string(400, '0') + "1", tiny));
  EXPECT_EQ(tiny, 0);
  EXPECT_TRUE(std::signbit(tiny));
}

TEST(ReadMoveLine, ReadsTheLocaleSeparator) {
  CommaLocale comma;
  EXPECT_EQ(read("G1 X1.5 Y1,25"), "G1 X1.5 Y1.25");
  EXPECT_EQ(read("G1 X1.5.3"), "unreadable");
}

TEST(KeepsPosition, OnlyLinesThatCannotMoveTheHead) {
  for (const char* line : {"", "  ", "; comment", "G4 P100", "G21", "G90", "M82", "M83", "M104 S200", "M117 Done"})
    EXPECT_TRUE(KeepsPosition(line, ReadCommandWord(line))) << line;
  for (const char* line : {"G28", "G91", "G90.1", "M600", "M0", "M701", "T1", "G1 X5 A2", "(park) G28", "G29"})
    EXPECT_FALSE(KeepsPosition(line, ReadCommandWord(line))) << line;
}

TEST(FormatNumber, AgreesWithPrintfOnTheValuesOfGCode) {
  std::mt19937_64 random(5);
  std::uniform_int_distribution<long long> coordinate(-30000000, 30000000);  // in fifth decimals
  std::uniform_int_distribution<long long> length(0, 100000000000000);
  std::uniform_int_distribution<int> feed(0, 20000);
  std::uniform_int_distribution<int> decimals(0, 5);
  std::uniform_int_distribution<int> scale(-40, 70);
  std::uniform_real_distribution<double> fraction(-1, 1);
  const double powers[] = {1, 10, 100, 1000, 10000, 100000};
  CommaLocale comma;
  for (int i = 0; i < 1500000; ++i) {
    double value = 0;
    switch (i % 6) {
      case 0: {  // a coordinate as a slicer writes it, with 0 to 5 decimals
        const int d = decimals(random);
        value = static_cast<double>(coordinate(random) / static_cast<long long>(powers[5 - d])) / powers[d];
        break;
      }
      case 1:  // a long extrusion total
        value = static_cast<double>(length(random)) / 100000;
        break;
      case 2:  // a feed rate
        value = feed(random) * 60.0;
        break;
      case 3:  // tiny and huge values of either sign
        value = std::ldexp(fraction(random), scale(random));
        break;
      case 4:  // on a half of the fifth decimal, or right next to it
        value = (static_cast<double>(coordinate(random)) + 0.5) / 100000;
        if (i % 4 == 0) value = std::nextafter(value, i % 8 ? 1e300 : -1e300);
        break;
      default:  // zero and negative zero, and values that round to them
        value = std::copysign(i % 12 < 6 ? 0.0 : 0.0000049, i % 4 ? 1.0 : -1.0);
    }
    ASSERT_EQ(FormatNumber(value, true), printf_text(value)) << "value " << value;
    ASSERT_EQ(FormatNumber(value, false), printf_text(value, ',')) << "value " << value;
  }
}

TEST(RoundTo5, RoundsHalvesToEvenBelowTheIntegerRange) {
  const std::pair<double, double> cases[] = {{1.234564, 1.23456}, {-2.000004, -2}, {0.0000025, 0}, {0.0000075, 0.00001},
                                             {123456.123456, 123456.12346}, {-50000.000001, -50000}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundTo5(value), rounded) << value;
}

TEST(RoundTo5, AboveTheIntegerRangeIsTheWrittenTextReadBack) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> mantissa(1, 10);
  std::uniform_int_distribution<int> exponent(4, 16);
  std::uniform_int_distribution<long long> units(2147483648, 100000000000000);
  for (int i = 0; i < 100000; ++i) {
    double value = i % 2 ? mantissa(random) * std::pow(10.0, exponent(random))
                         : (static_cast<double>(units(random)) + 0.5) / 100000.0;  // on a half
    if (i % 3 == 0) value = -value;
    if (std::fabs(value) < 21474.83647) continue;
    const std::string text = FormatNumber(value, true);
    double expected = 0;
    std::from_chars(text.data(), text.data() + text.size(), expected);
    ASSERT_EQ(RoundTo5(value), expected) << text;
  }
}
