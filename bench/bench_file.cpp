// Load and plain save of a ~100 MB print, and the memory a loaded print
// takes.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "bench/bench_registry.h"
#include "document/document.h"
#include "document/korvexed_file.h"

namespace korvexed::bench {

namespace {

// Peak resident memory of the process (VmHWM), in bytes.
double PeakResidentBytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("VmHWM:", 0) == 0) return std::stod(line.substr(6)) * 1024;
  }
  return 0;
}

// Starts the peak over from the memory in use now.
void ResetPeakResident() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

void Load(benchmark::State& state, const BenchFile& file) {
  for (auto _ : state) {
    if (!LoadGCode(file.path)) state.SkipWithError("loading failed");
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * file.bytes));
}

void Save(benchmark::State& state, const BenchFile& file) {
  if (!LoadGCode(file.path)) state.SkipWithError("loading failed");
  const std::string out = file.path + ".saved";
  for (auto _ : state) {
    if (!SaveGCode(out, save_plain)) state.SkipWithError("saving failed");
  }
  std::remove(out.c_str());
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * file.bytes));
}

// The document's pools are kept between loads, so the peak over one load
// is what a loaded print holds plus what loading needs on the way.
void PeakMemory(benchmark::State& state, const BenchFile& file) {
  ResetDocument(false);
  ResetPeakResident();
  for (auto _ : state) {
    if (!LoadGCode(file.path)) state.SkipWithError("loading failed");
  }
  const double peak = PeakResidentBytes();
  state.counters["peak_rss_MB"] = peak / 1e6;
  state.counters["peak_per_file_size"] = peak / file.bytes;
}

}  // namespace

void RegisterFileBenchmarks(const BenchFile& file) {
  benchmark::RegisterBenchmark(("PeakMemory/" + file.name).c_str(), PeakMemory, file)
      ->Iterations(1)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(("LoadGCode/" + file.name).c_str(), Load, file)
      ->MinTime(2)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
  benchmark::RegisterBenchmark(("SaveGCode/" + file.name).c_str(), Save, file)
      ->MinTime(2)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
}

}  // namespace korvexed::bench
