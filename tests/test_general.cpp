#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>

#include "document/korvexed_general.h"

using namespace korvexed;

namespace {

struct CommaLocale {
  CommaLocale() { doc.decimal_comma = true; }
  ~CommaLocale() { doc.decimal_comma = false; }
};

std::string parse_error(std::string_view line, char key) {
  try {
    ParseField(line, key);
  } catch (const NumberError& e) {
    return e.what();
  }
  return "(no error)";
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

TEST(ClassifyLine, RecognisesOnlyExactCommandWords) {
  double z = 0;
  for (const char* text : {"G1", "G1\tX5", "g1 X5", " G1 X5", "G10 X5", "M104 S200"})
    EXPECT_EQ(ClassifyLine(text, z), line_kind::text) << text;
  const std::pair<const char*, line_kind> moves[] = {{"G92 E0", line_kind::g92}, {"G920", line_kind::g92},
      {"G1 X5", line_kind::g1}, {"G01 X5", line_kind::g1}, {"G0 X5", line_kind::g0}, {"G00 X5", line_kind::g0}};
  for (const auto& [text, kind] : moves) EXPECT_EQ(ClassifyLine(text, z), kind) << text;
  EXPECT_EQ(z, 0);
}

TEST(ClassifyLine, ChangesLayerOnlyWhenZDiffers) {
  double z = 0.2;
  EXPECT_EQ(ClassifyLine("G1 Z0.2 F300", z), line_kind::g1);
  EXPECT_EQ(ClassifyLine("G1 Z0.4", z), line_kind::layer_change);
  EXPECT_EQ(z, 0.4);
  EXPECT_EQ(ClassifyLine("G0 X1 Z0.6", z), line_kind::layer_change);
  EXPECT_EQ(z, 0.6);
  EXPECT_EQ(ClassifyLine("G92 Z5", z), line_kind::g92);
  EXPECT_EQ(z, 0.6);
}

TEST(ParseField, ReadsTheFirstOccurrenceFromTheFourthCharacter) {
  EXPECT_EQ(ParseField("X5", 'X'), no_value);
  EXPECT_EQ(ParseField("G1 Y2", 'X'), no_value);
  // The conversion skips a tab right behind the key, as it skips blanks.
  const std::pair<const char*, double> cases[] = {{"G1 X 12.5", 12.5}, {"G1 X-3 X4", -3}, {"G1 X.5", 0.5},
      {"G1 X5.", 5}, {"G1 X+5", 5}, {"G1 X7 ", 7}, {"G1 X\t13 Y8", 13}, {"G1 X\t-2.5", -2.5}, {"G1 X1\t3", 1}};
  for (const auto& [line, value] : cases) EXPECT_EQ(ParseField(line, 'X'), value) << line;
  EXPECT_EQ(ParseField("G1 X1.5E2", 'X'), 1.5);
  EXPECT_EQ(ParseField("G1 X1.5E2", 'E'), 2);
}

TEST(ParseField, RejectsWhatIsNotANumber) {
  // The line, and the text the error names. A key letter inside another
  // word behind the command word counts.
  const std::pair<const char*, const char*> cases[] = {
      {"G1 X", ""},       {"G1 Xabc", "a"},     {"G1 X-", "-"},     {"G1 X.", "."},   {"G1 X--1", "--1"},
      {"G1 X1,5", "1,5"}, {"G1 X1.2.3", "1.2.3"}, {"G1 X1-2", "1-2"}, {"G1 X  5", ""},  {"G1 X\t", "\t"},
      {"G1 X\t\t5", "\t"}, {"G1 X \t5", ""},      {"M117 EXIT", "I"}};
  for (const auto& [line, bad] : cases) EXPECT_EQ(parse_error(line, 'X'), std::string(bad) + " is not a number.");
}

TEST(ParseField, KeepsWithinTheRangeOfADouble) {
  const std::string huge = "G1 X" + std::string(400, '9');
  EXPECT_EQ(parse_error(huge, 'X'), std::string(400, '9') + " is not a number.");
  const std::string tiny = "G1 X-0." + std::string(400, '0') + "1";
  const double value = ParseField(tiny, 'X');
  EXPECT_EQ(value, 0);
  EXPECT_TRUE(std::signbit(value));
  EXPECT_EQ(ParseField("G1 X" + std::string(300, '0') + "12", 'X'), 12);
}

TEST(ParseField, ReadsTheLocaleSeparator) {
  CommaLocale comma;
  EXPECT_EQ(ParseField("G1 X1.5", 'X'), 1.5);
  EXPECT_EQ(ParseField("G1 X1,5", 'X'), 1.5);
  EXPECT_EQ(parse_error("G1 X1.5.3", 'X'), "1,5.3 is not a number.");
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
