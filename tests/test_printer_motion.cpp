// The tests' own printer: what it makes of short hand-written G-code, and
// how it tells two files' motion apart.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/printer_motion.h"

using korvexed::test::CompareMotion;
using korvexed::test::PrinterMove;
using korvexed::test::RunPrinter;

namespace {

constexpr double kUnknown = NAN;

struct RunCase {
  const char* name;
  const char* gcode;
  std::vector<PrinterMove> moves;
};

void PrintTo(const RunCase& run, std::ostream* out) { *out << run.name; }

const RunCase kRunCases[] = {
    {"AbsoluteE", "G1 X1 Y2 Z0.3 E1\nG1 X2 E1.5\nG1 E-0.5\n",
     {{1, 1, 2, 0.3, 1}, {2, 2, 2, 0.3, 0.5}, {3, 2, 2, 0.3, -2}}},
    {"RelativeE", "M83\nG1 X1 Y2 Z0.3 E1\nG1 X2 E1\nM82\nG1 E3\n",
     {{2, 1, 2, 0.3, 1}, {3, 2, 2, 0.3, 1}, {5, 2, 2, 0.3, 1}}},
    {"G92SetsThePosition", "G1 X1 Y1 Z1 E5\nG92 E0\nG1 X2 E1\nG92 X0\nG1 X1\nG92\nG1 X1 Y1 Z1 E1\n",
     {{1, 1, 1, 1, 5}, {3, 2, 1, 1, 1}, {5, 1, 1, 1, 0}, {7, 1, 1, 1, 1}}},
    {"G91MakesEverythingRelative", "G1 X1 Y1 Z1 E5\nG91\nG1 Z1 E-1\nG1 X-1\nG90\nG1 X3 E5\n",
     {{1, 1, 1, 1, 5}, {3, 1, 1, 2, -1}, {4, 0, 1, 2, 0}, {6, 3, 1, 2, 1}}},
    {"G90GoesBackToTheLastM82OrM83", "M83\nG91\nM82\nG1 E1\nG90\nG1 E1\nM83\nG91\nG90\nG1 E1\n",
     {{4, kUnknown, kUnknown, kUnknown, 1}, {10, kUnknown, kUnknown, kUnknown, 1}}},
    {"RelativeStepsFromUnknown", "G91\nG1 Z0.4\nG1 X0\n", {{2, kUnknown, kUnknown, kUnknown, 0}}},
    {"G28HomesWhatItNames", "G28 X\nG1 X5\nG28 W\nG28 Z0\nG28 Y\n",
     {{1, 0, kUnknown, kUnknown, 0, '0'}, {2, 5, kUnknown, kUnknown, 0}, {3, 0, 0, 0, 0, '0'}}},
    {"CommandWords", "G1X10Y20Z0.3E1\n  G01 X11\n\tG0X12\nN7 G1 X13*71\nG1.5 X1\nG10\nG11\nG28.1\ng1 X1\nG1 X\n",
     {{1, 10, 20, 0.3, 1}, {2, 11, 20, 0.3, 0}, {3, 12, 20, 0.3, 0, '0'}, {4, 13, 20, 0.3, 0}}},
    {"Comments", "G1 X1 Y1 Z1 (Extrude E5) E1\n(G1 X5\nG1 X2 ; E9\n;G1 X7\nG1 X3(c)Y2\n",
     {{1, 1, 1, 1, 1}, {3, 2, 1, 1, 0}, {5, 3, 2, 1, 0}}},
    {"LineEnds", "G1 X1 Y1 Z1\rG1 X2\r\n\r\nG1 X3\n\rG1 X4", {{1, 1, 1, 1, 0}, {2, 2, 1, 1, 0}, {4, 3, 1, 1, 0}, {6, 4, 1, 1, 0}}},
    {"UnreadableNumbers", "G1 X1 Y1 Z1\nG1 X0 Y{machine_depth}\nG1 X1.2.3\nG1 X-\n{if x}\nM104 S200\nT0\nG1 X+.5\n",
     {{1, 1, 1, 1, 0}, {8, 0.5, 1, 1, 0}}},
    {"NothingChanges", "G1 X1 Y1 Z1\nG1 X1 Y1 F1200\nG1 E0\nG28\nG28\n", {{1, 1, 1, 1, 0}, {4, 0, 0, 0, 0, '0'}}},
    {"ArcsWithCentreOffsets", "G92 X0 Y0 Z0\nG2 X10 Y0 I5 J0 E1\nG3 X0 Y0 I-5 Z0.2\n",
     {{2, 10, 0, 0, 1, '2', 5, 0}, {3, 0, 0, 0.2, 0, '3', 5, 0}}},
    {"ArcsWithARadius", "G92 X0 Y0 Z0\nG2 X8 R5\nG2 X0 R-5\nG3 X8 R5\nG3 X0 R-5\nG2 X20 R1\n",
     {{2, 8, 0, 0, 0, '2', 4, -3},
      {3, 0, 0, 0, 0, '2', 4, -3},
      {4, 8, 0, 0, 0, '3', 4, 3},
      {5, 0, 0, 0, 0, '3', 4, 3},
      {6, 20, 0, 0, 0, '2', 10, 0}}},
    {"FullCirclesAndArcsWithoutCentre", "G92 X0 Y0 Z0\nG3 I5 E3\nG2 J-2\nG2 X3 Y0\nG2 X0 I0 J0\nG3 R5\n",
     {{2, 0, 0, 0, 3, '3', 5, 0}, {3, 0, 0, 0, 0, '2', 0, -2}}},
};

class PrinterMotionCase : public ::testing::TestWithParam<RunCase> {};

TEST_P(PrinterMotionCase, ListsTheMovesThePrinterMakes) {
  EXPECT_EQ(CompareMotion(RunPrinter(GetParam().gcode), GetParam().moves, 1e-9), "");
}

INSTANTIATE_TEST_SUITE_P(PrinterMotion, PrinterMotionCase, ::testing::ValuesIn(kRunCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(PrinterMotion, ComparesTargetsCentresAndFilamentButNotLineNumbers) {
  const char* original = "G1 X1 Y1 Z1 E1\nG1 X2 E2\n";
  const struct {
    const char* other;
    const char* difference;
  } cases[] = {
      {"; same motion, relative E\nM83\nG1 X1 Y1 Z1 E1\nG1 X2 E1.000001\n", ""},
      {"G1 X1 Y1 Z1 E1\nG1 X2.001 E2\n",
       "moves[1]: line 2 G1 X2 Y1 Z1 filament 1 vs line 2 G1 X2.001 Y1 Z1 filament 1"},
      {"G1 X1 Y1 Z1 E1\nG1 X2 E2.5\n", "moves[1]: line 2 G1 X2 Y1 Z1 filament 1 vs line 2 G1 X2 Y1 Z1 filament 1.5"},
      {"G1 X1 Y1 Z1 E1\nG1 X2 E2\nG0 X0\n", "moves[2]: no move vs line 3 G0 X0 Y1 Z1 filament 0"},
      {"G1 X1 Y1 Z1 E1\n", "moves[1]: line 2 G1 X2 Y1 Z1 filament 1 vs no move"},
      {"G1 X1 Y1 Z1 E1\nG2 X2 I0.5 E2\n",
       "moves[1]: line 2 G1 X2 Y1 Z1 filament 1 vs line 2 G2 X2 Y1 Z1 filament 1 centre 1.5,1"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CompareMotion(RunPrinter(original), RunPrinter(c.other)), c.difference) << c.other;
  }
}

}  // namespace
