#pragma once
// Slicer-like G-code of a ribbed tube with a round hole, made by the project
// itself: the bundled example print and the file the benchmarks load.
#include <cstdint>
#include <cstdio>

namespace korvexed::bench {

struct PrintSettings {
  double size = 20;           // outer width of the tube, mm (1 to 180)
  int32_t layers = 10;
  double layer_height = 0.3;  // mm
  bool reset_e = true;        // G92 E0 at every layer change; else E runs on to the end
  uint32_t seed = 1;          // seam positions and rib phase
};

// Writes the whole print to `out`. The same settings always give the same
// bytes. False when writing failed.
bool WriteSlicerGcode(std::FILE* out, const PrintSettings& settings);

}  // namespace korvexed::bench
