// korvexed-make-gcode: writes the project's own slicer-like test prints.
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "bench/gcode_generator.h"

namespace {

constexpr const char* usage =
    "Usage: korvexed-make-gcode [options]\n"
    "Writes the G-code of a ribbed tube with a round hole, as a slicer would\n"
    "print it: perimeters, zig-zag infill, travels and retractions.\n"
    "\n"
    "  -o FILE             write to FILE (default: standard output)\n"
    "  --size MM           outer width of the tube, 1 to 180 (default 20)\n"
    "  --layers N          number of layers (default 10)\n"
    "  --layer-height MM   layer height, 0.05 to 1 (default 0.3)\n"
    "  --no-e-reset        no G92 E0 at layer changes: E runs on to the end\n"
    "  --seed N            seam positions and rib phase (default 1)\n"
    "  --help              show this help\n";

template <class T>
bool parse(std::string_view text, T& value, T min, T max) {
  T v{};
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
  if (ec != std::errc() || end != text.data() + text.size() || v < min || v > max) return false;
  value = v;
  return true;
}

int fail(const std::string& why) {
  std::fprintf(stderr, "korvexed-make-gcode: %s\n%s", why.c_str(), usage);
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  korvexed::bench::PrintSettings settings;
  const char* path = nullptr;
  for (int i = 1; i < argc; ++i) {
    const std::string_view arg = argv[i];
    if (arg == "--help" || arg == "-h") {
      std::fputs(usage, stdout);
      return 0;
    }
    if (arg == "--no-e-reset") {
      settings.reset_e = false;
      continue;
    }
    if (i + 1 >= argc) return fail("unknown option or missing value: " + std::string(arg));
    const std::string_view value = argv[++i];
    bool ok = true;
    if (arg == "-o") {
      path = argv[i];
    } else if (arg == "--size") {
      ok = parse(value, settings.size, 1.0, 180.0);
    } else if (arg == "--layers") {
      ok = parse(value, settings.layers, 1, 100000);
    } else if (arg == "--layer-height") {
      ok = parse(value, settings.layer_height, 0.05, 1.0);
    } else if (arg == "--seed") {
      ok = parse(value, settings.seed, 0u, 4294967295u);
    } else {
      return fail("unknown option: " + std::string(arg));
    }
    if (!ok) return fail("bad value for " + std::string(arg) + ": " + std::string(value));
  }

  std::FILE* out = path && std::string_view(path) != "-" ? std::fopen(path, "wb") : stdout;
  if (!out) {
    std::fprintf(stderr, "korvexed-make-gcode: cannot write %s: %s\n", path, std::strerror(errno));
    return 1;
  }
  bool ok = korvexed::bench::WriteSlicerGcode(out, settings);
  ok = (out == stdout ? std::fflush(out) : std::fclose(out)) == 0 && ok;
  if (!ok) {
    std::fprintf(stderr, "korvexed-make-gcode: writing failed: %s\n", std::strerror(errno));
    return 1;
  }
  return 0;
}
