#pragma once
// The benchmarks of the real widgets: a window on Qt's offscreen platform
// working on the ~100 MB print, in the same process for every run.
#include "bench/bench_prints.h"

namespace korvexed::bench {

// The print with G92 E0 at every layer change; ready before any benchmark
// runs.
const BenchFile& GuiPrint();

}  // namespace korvexed::bench
