// Compares a print with the same print after moves of its first printed
// layer were copied and pasted into the layer above it, as the printer runs
// both: every extruding move that is new at that height must be one of the
// first layer's, to the same point with the same filament (but the move
// after the pasted ones, which now starts where they end). Exit 0 when
// they are, and enough were pasted to tell; 1 naming the first that is
// not.
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/printer_motion.h"

namespace {

using korvexed::test::PrinterMove;

std::vector<PrinterMove> extruding(const char* path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  std::vector<PrinterMove> moves;
  for (const PrinterMove& move : korvexed::test::RunPrinter(text.str()))
    if (move.e_change > 0 && !std::isnan(move.z)) moves.push_back(move);
  return moves;
}

bool same(const PrinterMove& a, const PrinterMove& b) {
  return std::abs(a.x - b.x) < 1e-4 && std::abs(a.y - b.y) < 1e-4 && std::abs(a.e_change - b.e_change) < 1e-4;
}

bool holds(const std::vector<PrinterMove>& moves, double z, const PrinterMove& wanted) {
  for (const PrinterMove& move : moves)
    if (std::abs(move.z - z) < 1e-6 && same(move, wanted)) return true;
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: check_paste ORIGINAL PASTED\n");
    return 2;
  }
  const std::vector<PrinterMove> original = extruding(argv[1]), pasted = extruding(argv[2]);
  if (original.empty()) return 1;
  const double first_z = original.front().z;
  double second_z = NAN;
  for (const PrinterMove& move : original)
    if (move.z > first_z + 1e-6 && std::isnan(second_z)) second_z = move.z;
  int copies = 0, others = 0;
  for (const PrinterMove& move : pasted) {
    if (std::abs(move.z - second_z) >= 1e-6 || holds(original, second_z, move)) continue;
    if (holds(original, first_z, move)) {
      ++copies;
    } else if (++others > 1) {
      std::fprintf(stderr, "line %d: X%g Y%g E%g is no copy of the first layer\n", move.line, move.x, move.y,
                   move.e_change);
      return 1;
    }
  }
  std::printf("%d pasted moves\n", copies);
  return copies >= 20 ? 0 : 1;
}
