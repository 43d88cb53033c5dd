// Load and plain save of a ~100 MB print, and the memory a loaded print
// takes. The prints are made by the project's own generator at the first
// run, beside this program in the build tree.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "bench/gcode_generator.h"
#include "document/document.h"
#include "document/korvexed_file.h"
#include "platform/headless_platform.h"

namespace {

struct BenchFile {
  std::string name;
  korvexed::bench::PrintSettings settings;
  std::string path;
  double bytes = 0;
};

// A 40 mm tube of 2800 layers of 0.1 mm: about 100 MB and 3.4 million lines.
korvexed::bench::PrintSettings HundredMegabytes(bool reset_e) {
  korvexed::bench::PrintSettings s;
  s.size = 40;
  s.layers = 2800;
  s.layer_height = 0.1;
  s.reset_e = reset_e;
  return s;
}

long long CountLines(const std::string& path) {
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (!f) return -1;
  std::vector<char> buf(1 << 20);
  long long lines = 0;
  while (size_t n = std::fread(buf.data(), 1, buf.size(), f)) {
    for (size_t i = 0; i < n; ++i) lines += buf[i] == '\n';
  }
  std::fclose(f);
  return lines;
}

// Makes the print when it is missing, and says what it is.
bool Prepare(BenchFile& file) {
  std::FILE* f = std::fopen(file.path.c_str(), "rb");
  if (!f) {
    std::printf("making %s\n", file.path.c_str());
    f = std::fopen(file.path.c_str(), "wb");
    const bool written = f && korvexed::bench::WriteSlicerGcode(f, file.settings);
    if (!f || std::fclose(f) != 0 || !written) {
      std::fprintf(stderr, "cannot write %s\n", file.path.c_str());
      std::remove(file.path.c_str());
      return false;
    }
    f = std::fopen(file.path.c_str(), "rb");
  }
  std::fseek(f, 0, SEEK_END);
  file.bytes = static_cast<double>(std::ftell(f));
  std::fclose(f);
  std::printf("%s: %s, %.0f bytes (%.1f MB), %lld lines\n", file.name.c_str(), file.path.c_str(), file.bytes,
              file.bytes / 1e6, CountLines(file.path));
  return true;
}

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
    if (!korvexed::LoadGCode(file.path)) state.SkipWithError("loading failed");
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * file.bytes));
}

void Save(benchmark::State& state, const BenchFile& file) {
  if (!korvexed::LoadGCode(file.path)) state.SkipWithError("loading failed");
  const std::string out = file.path + ".saved";
  for (auto _ : state) {
    if (!korvexed::SaveGCode(out, korvexed::save_plain)) state.SkipWithError("saving failed");
  }
  std::remove(out.c_str());
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * file.bytes));
}

// The document's pools are kept between loads, so the peak over one load
// is what a loaded print holds plus what loading needs on the way.
void PeakMemory(benchmark::State& state, const BenchFile& file) {
  korvexed::ResetDocument(false);
  ResetPeakResident();
  for (auto _ : state) {
    if (!korvexed::LoadGCode(file.path)) state.SkipWithError("loading failed");
  }
  const double peak = PeakResidentBytes();
  state.counters["peak_rss_MB"] = peak / 1e6;
  state.counters["peak_per_file_size"] = peak / file.bytes;
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  korvexed::ScopedHeadlessPlatform platform;

  std::vector<BenchFile> files{
      {"e_reset", HundredMegabytes(true), KORVEXED_BENCH_DIR "/bench_100mb.gcode"},
      {"no_e_reset", HundredMegabytes(false), KORVEXED_BENCH_DIR "/bench_100mb_no_e_reset.gcode"},
  };
  for (BenchFile& file : files) {
    if (!Prepare(file)) return 1;
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
  std::fflush(stdout);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
