#pragma once
// The ~100 MB prints the benchmarks work on, made by the project's own
// generator at the first run, beside the benchmark program in the build
// tree.
#include <cstdint>
#include <string>
#include <vector>

#include "bench/gcode_generator.h"

namespace korvexed::bench {

struct BenchFile {
  std::string name;
  PrintSettings settings;
  std::string path;
  double bytes = 0;
};

// The print with G92 E0 at every layer change, and the one without any E
// reset, both made when missing. Empty when one could not be written.
std::vector<BenchFile> PreparePrints();

// The layer of the loaded print with the most records.
int32_t LargestLayer();

}  // namespace korvexed::bench
