#pragma once
// What a printer does with a G-code file, read as Marlin-like firmware
// reads it and independent of the editor's own loader: the tests compare a
// file before and after a save by the moves it makes the printer run.
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

namespace korvexed::test {

struct PrinterMove {
  int line = 0;              // 1-based line number in the text
  double x, y, z;            // target after the move; NaN where the printer's position is not known
  double e_change = 0;       // filament pushed by the move (negative: retraction)
  char kind = '1';           // '0', '1', '2' (clockwise arc), '3' (counter-clockwise arc)
  double cx = NAN, cy = NAN; // an arc's centre (absolute), NaN for lines
};

// Every line that changes the position of X, Y, Z or E, in file order.
// Follows G0/G1, G2/G3 (XY plane; R wins over I/J), G28 (listed as a '0'
// move to the homed position), G90/G91, M82/M83 and G92. A line or G28
// that changes nothing is not listed; an arc with a centre always is.
std::vector<PrinterMove> RunPrinter(std::string_view gcode);

// "" when both have the same moves, of the same kinds, with targets, centres
// and filament changes equal to `tolerance` (NaN equals NaN; line numbers
// are not compared); otherwise a one-line description of the first
// difference (index, both line numbers, both moves).
std::string CompareMotion(const std::vector<PrinterMove>& a, const std::vector<PrinterMove>& b,
                          double tolerance = 1e-5);

}  // namespace korvexed::test
