// Benchmarks of the window's widgets. They register themselves with
// BENCHMARK and reach the print through GuiPrint().
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "bench/bench_gui.h"

namespace korvexed::bench {

namespace {
BenchFile gui_print;
}

const BenchFile& GuiPrint() { return gui_print; }

}  // namespace korvexed::bench

int main(int argc, char** argv) {
  // Widgets are measured without a display; the painting is the same.
  if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  const auto files = korvexed::bench::PreparePrints();
  if (files.empty()) return 1;
  korvexed::bench::gui_print = files.front();
  std::fflush(stdout);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
