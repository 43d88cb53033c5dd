#include "bench/large_layer.h"

#include <cstdio>

#include "document/korvexed_file.h"

namespace korvexed::bench {

namespace {

// Three layers: the large one between a first move and a last layer that
// starts with G92 E0.
std::string LargeLayerPrint(bool arcs) {
  std::string text = "G1 Z0.2 F1800\nG92 E0\n";
  double e = 0;
  const double step = arcs ? 1 : 0.1;
  for (int i = 0; i < 50000; ++i) {
    const std::string xy =
        "X" + std::to_string(50 + (i % 400) * step) + " Y" + std::to_string(50 + (i / 400) * step);
    if (i % 400 == 0) {
      text += "G0 " + xy + "\n";
      continue;
    }
    e += 0.01;
    const std::string head = !arcs ? "G1 " : i % 2 ? "G2 " : "G3 ";
    text += head + xy + (arcs ? " R0.8" : "") + " E" + std::to_string(e) + "\n";
  }
  text += "G1 Z0.4\nG92 E0\nG1 X10 Y10 E1\n";
  return text;
}

}  // namespace

bool LoadLargeLayerPrint(const std::string& beside, bool arcs) {
  const std::string path = beside + ".large-layer.gcode";
  std::FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) return false;
  const std::string text = LargeLayerPrint(arcs);
  const bool written = std::fwrite(text.data(), 1, text.size(), f) == text.size();
  if (std::fclose(f) != 0 || !written) {
    std::remove(path.c_str());
    return false;
  }
  const bool loaded = LoadGCode(path);
  std::remove(path.c_str());
  return loaded;
}

}  // namespace korvexed::bench
