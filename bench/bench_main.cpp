#include <benchmark/benchmark.h>

#include <cstdio>

#include "bench/bench_registry.h"
#include "platform/headless_platform.h"

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  korvexed::ScopedHeadlessPlatform platform;
  const auto files = korvexed::bench::PreparePrints();
  if (files.empty()) return 1;
  for (const auto& file : files) {
    korvexed::bench::RegisterFileBenchmarks(file);
    korvexed::bench::RegisterEditingBenchmarks(file);
    korvexed::bench::RegisterUndoBenchmarks(file);
    korvexed::bench::RegisterRenderBenchmarks(file);
  }
  std::fflush(stdout);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
