#include "bench/bench_prints.h"

#include <cstdio>
#include <vector>

#include "document/document.h"

namespace korvexed::bench {

namespace {

// A 40 mm tube of 2800 layers of 0.1 mm: about 100 MB and 3.4 million lines.
PrintSettings HundredMegabytes(bool reset_e) {
  PrintSettings s;
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
    const bool written = f && WriteSlicerGcode(f, file.settings);
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

}  // namespace

int32_t LargestLayer() {
  int32_t largest = 0;
  for (int32_t i = 1; i < doc.layer_count; ++i)
    if (doc.layer(i).g_count > doc.layer(largest).g_count) largest = i;
  return largest;
}

std::vector<BenchFile> PreparePrints() {
  std::vector<BenchFile> files{
      {"e_reset", HundredMegabytes(true), KORVEXED_BENCH_DIR "/bench_100mb.gcode"},
      {"no_e_reset", HundredMegabytes(false), KORVEXED_BENCH_DIR "/bench_100mb_no_e_reset.gcode"},
  };
  for (BenchFile& file : files) {
    if (!Prepare(file)) return {};
  }
  return files;
}

}  // namespace korvexed::bench
