// How edit scripts are cut into lines, words, numbers and index lists.
#include <gtest/gtest.h>

#include "cli/numbers.h"
#include "cli/script_args.h"
#include "cli/script_lines.h"

using namespace korvexed::cli;

namespace {

std::vector<int32_t> Indices(std::string_view text, int32_t count) {
  const std::vector<ScriptLine> lines = SplitScript(text);
  return ScriptArgs(lines.at(0)).indices(0, count, "row");
}

std::string IndicesError(std::string_view text, int32_t count) {
  try {
    Indices(text, count);
  } catch (const ScriptError& error) {
    return error.what();
  }
  return "(accepted)";
}

TEST(CliScriptLines, LinesEndAtLfOrCrLfAndKeepTheirNumbers) {
  // A hash starts a comment only as the first word; a last line without a line end counts.
  std::vector<std::pair<int, std::vector<std::string_view>>> lines;
  for (const ScriptLine& line : SplitScript("layer 1\r\n\n   \t\n# note\n  #x\nmove 1\t2 \r\ntext #x"))
    lines.emplace_back(line.number, line.words);
  EXPECT_EQ(lines, (decltype(lines){{1, {"layer", "1"}}, {6, {"move", "1", "2"}}, {7, {"text", "#x"}}}));
}

TEST(CliScriptLines, TextAfterAWordStartsBehindOneBlank) {
  const std::vector<ScriptLine> lines = SplitScript("text  7  two  blanks ;c \r\ntext 7\ntext 7 \n");
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(TextAfterWord(lines[0], 1), " two  blanks ;c ");
  EXPECT_EQ(TextAfterWord(lines[1], 1), "");
  EXPECT_EQ(TextAfterWord(lines[2], 1), "");
}

TEST(CliScriptNumbers, APeriodAndAnExponentWhateverTheLocale) {
  for (const auto& [text, value] : {std::pair{"1.5", 1.5}, {"-2", -2.0}, {"+.5", 0.5}, {"5.", 5.0}, {"2.5e-1", 0.25}})
    EXPECT_EQ(ParseNumber(text), value) << text;
  for (const std::string_view bad : {"", "+", "1,5", "1.5x", "x", "+-1", "--1", "inf", "nan", "1e400", "0x10", " 1"}) {
    EXPECT_FALSE(ParseNumber(bad)) << "'" << bad << "'";
  }
}

TEST(CliScriptNumbers, IndicesAreWholeNonNegativeIntegers) {
  EXPECT_EQ(ParseIndex("0"), 0);
  EXPECT_EQ(ParseIndex("42"), 42);
  for (const std::string_view bad : {"", "-1", "+1", "1.0", "1e2", "99999999999", "7x"}) {
    EXPECT_FALSE(ParseIndex(bad)) << "'" << bad << "'";
  }
}

TEST(CliScriptArgs, IndexListsTakeRangesInTheirOrder) {
  EXPECT_EQ(Indices("rows 5 0-2 4-4", 6), (std::vector<int32_t>{5, 0, 1, 2, 4}));
}

TEST(CliScriptArgs, IndexListsRefuseWhatIsNotThere) {
  EXPECT_EQ(IndicesError("rows 0", 0), "row 0 does not exist (valid: none)");
  const std::pair<const char*, const char*> cases[] = {{"rows", "'rows' needs at least one row index"},
      {"rows 6", "row 6 does not exist (valid: 0 to 5)"}, {"rows 2-9", "row 9 does not exist (valid: 0 to 5)"},
      {"rows 4-2", "range '4-2' runs backwards"}, {"rows -1", "'-1' is not a row index"},
      {"rows 1-", "'1-' is not a row index"}, {"rows 1.5", "'1.5' is not a row index"}};
  for (const auto& [script, error] : cases) EXPECT_EQ(IndicesError(script, 6), error);
}

}  // namespace
