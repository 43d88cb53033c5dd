#pragma once
// The benchmarks of the real widgets: a window on Qt's offscreen platform
// working on the ~100 MB print or on a print with one long layer.
#include <QSize>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "bench/bench_prints.h"

namespace korvexed {
class FmMain;
}

namespace korvexed::bench {

// The print with G92 E0 at every layer change; ready before any benchmark
// runs.
const BenchFile& GuiPrint();

// Writes `name` beside the benchmark prints and returns its path. Layer 1
// holds `records` records: its Z move, then rows of `columns` moves
// `spacing` mm apart, each row reached by a travel, like a slicer's infill.
// Layer 2 is one short move; `later_layers` layers of 5,000 moves each
// follow it. E runs on from layer 1 to the end, with no G92.
std::string WriteLongLayerPrint(const std::string& name, int32_t records, int columns, double spacing,
                                int later_layers = 0);

// The window as a person sees it, at `size`, with `path` open.
std::unique_ptr<FmMain> OpenWindow(const std::string& path, QSize size);

// Times the steps of a manual-time benchmark in milliseconds and keeps the
// slowest.
class StepTimer {
 public:
  void Start() { start_ = std::chrono::steady_clock::now(); }
  // The milliseconds since Start().
  double Stop();
  double slowest() const { return slowest_; }

 private:
  std::chrono::steady_clock::time_point start_;
  double slowest_ = 0;
};

}  // namespace korvexed::bench
