// The command line of korvexed-cli as the parser reads it.
#include <gtest/gtest.h>

#include <tuple>

#include "cli/arguments.h"

using korvexed::cli::Arguments;
using korvexed::cli::Command;
using korvexed::cli::ParseArguments;
using korvexed::cli::UsageError;

namespace {

Arguments Parse(std::initializer_list<std::string_view> words) { return ParseArguments(words); }

std::string Error(std::initializer_list<std::string_view> words) {
  try {
    ParseArguments(words);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "(accepted)";
}

TEST(CliArguments, HelpAndVersionWinOverEverythingElse) {
  EXPECT_EQ(Parse({"--help"}).command, Command::help);
  EXPECT_EQ(Parse({"info", "-h"}).command, Command::help);
  EXPECT_EQ(Parse({"render", "x", "--help"}).command, Command::help);
  EXPECT_EQ(Parse({"--version"}).command, Command::version);
  EXPECT_EQ(Parse({"dump", "--bogus", "--version"}).command, Command::version);
}

TEST(CliArguments, EachCommandTakesItsFilesInOrder) {
  const Arguments info = Parse({"info", "a.gcode"});
  EXPECT_EQ(std::tie(info.command, info.file, info.accept_partial), std::tuple(Command::info, "a.gcode", false));
  const Arguments edit = Parse({"edit", "a.gcode", "-"});
  EXPECT_EQ(std::tie(edit.command, edit.file, edit.script), std::tuple(Command::edit, "a.gcode", "-"));
  EXPECT_EQ(Parse({"dump", "a.gcode"}).out, "") << "dump without -o writes to standard output";
}

TEST(CliArguments, OptionsMayStandAnywhereAfterTheCommand) {
  const Arguments convert = Parse({"convert", "--tagged", "-o", "-", "a.gcode", "--accept-partial"});
  EXPECT_EQ(std::tie(convert.command, convert.file, convert.out, convert.tagged, convert.accept_partial),
            std::tuple(Command::convert, "a.gcode", "-", true, true));
}

TEST(CliArguments, TranslateValuesAreNumbersWithAPeriodAndDefaultToZero) {
  const Arguments none = Parse({"translate", "a", "-o", "b"});
  EXPECT_EQ(std::tie(none.rotate, none.dx, none.dy), std::tuple(0, 0, 0));
  const Arguments all = Parse({"translate", "a", "-o", "b", "--rotate", "-90", "--dx=1.5e1", "--dy", "+.25"});
  EXPECT_EQ(std::tie(all.rotate, all.dx, all.dy), std::tuple(-90, 15, 0.25));
  EXPECT_EQ(Error({"translate", "a", "-o", "b", "--dx", "1,5"}), "option '--dx': '1,5' is not a number");
}

TEST(CliArguments, WrongCommandLinesAreRefusedWithTheReason) {
  EXPECT_EQ(Error({}), "no command given");
  EXPECT_EQ(Error({"render", "a.gcode"}), "render needs -o OUT");
  EXPECT_EQ(Error({"info"}), "info needs FILE");
  EXPECT_EQ(Error({"edit", "a.gcode"}), "edit needs FILE and SCRIPT");
  EXPECT_EQ(Error({"info", "a", "b"}), "unexpected argument 'b'");
  EXPECT_EQ(Error({"convert", "a.gcode"}), "convert needs -o OUT");
  EXPECT_EQ(Error({"translate", "a.gcode", "--dx", "1"}), "translate needs -o OUT");
  EXPECT_EQ(Error({"dump", "a.gcode", "-o"}), "option '-o' needs a value");
  EXPECT_EQ(Error({"info", "a.gcode", "-o", "x"}), "info does not take option '-o'");
  EXPECT_EQ(Error({"dump", "a.gcode", "--tagged"}), "dump does not take option '--tagged'");
  EXPECT_EQ(Error({"convert", "a.gcode", "-o", "x", "--rotate", "5"}), "convert does not take option '--rotate'");
  EXPECT_EQ(Error({"info", "a.gcode", "--verbose"}), "unknown option '--verbose'");
  EXPECT_EQ(Error({"info", "a.gcode", "--accept-partial=yes"}), "option '--accept-partial' takes no value");
}

TEST(CliArguments, RenderTakesALayerOtherLayersASizeAndSwitches) {
  const Arguments plain = Parse({"render", "a", "-o", "a.png"});
  EXPECT_EQ(std::tie(plain.command, plain.layer, plain.width, plain.height, plain.travel, plain.arrows),
            std::tuple(Command::render, std::nullopt, 800, 800, true, true));
  EXPECT_TRUE(plain.with.empty());
  const Arguments all = Parse({"render", "a", "-o", "a.png", "--layer", "3", "--with=0,3-5,7", "--size", "640x480",
                               "--no-travel", "--no-arrows"});
  EXPECT_EQ(std::tie(all.layer, all.width, all.height, all.travel, all.arrows),
            std::tuple(std::optional(3), 640, 480, false, false));
  EXPECT_EQ(all.with, (std::vector<std::pair<int32_t, int32_t>>{{0, 0}, {3, 5}, {7, 7}}));
  EXPECT_EQ(Error({"render", "a", "-o", "b", "--layer", "-1"}), "option '--layer': '-1' is not a layer index");
  EXPECT_EQ(Error({"render", "a", "-o", "b", "--with", "1,,2"}), "option '--with': '' is not a layer index");
  EXPECT_EQ(Error({"render", "a", "-o", "b", "--with", "5-3"}), "option '--with': the range '5-3' runs backwards");
  for (const char* size : {"0x10", "10", "10x", "x10", "16385x1", "1.5x2", "10x10x10"})
    EXPECT_EQ(Error({"render", "a", "-o", "b", "--size", size}),
              "option '--size': '" + std::string(size) + "' is not WIDTHxHEIGHT with sides from 1 to 16384");
  EXPECT_EQ(Error({"render", "a", "-o", "b", "--no-travel=1"}), "option '--no-travel' takes no value");
  EXPECT_EQ(Error({"info", "a", "--layer", "1"}), "info does not take option '--layer'");
}

TEST(CliArguments, EveryCommandTakesAcceptPartialAndDecimalComma) {
  for (std::vector<std::string_view> words : std::vector<std::vector<std::string_view>>{
           {"info", "a"}, {"dump", "a"}, {"convert", "a", "-o", "b"}, {"translate", "a", "-o", "b"},
           {"render", "a", "-o", "b"}, {"edit", "a", "s"}}) {
    words.insert(words.end(), {"--accept-partial", "--decimal-comma"});
    const Arguments args = ParseArguments(words);
    EXPECT_TRUE(args.accept_partial && args.decimal_comma) << words[0];
  }
}

}  // namespace
