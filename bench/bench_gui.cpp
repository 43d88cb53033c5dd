#include "bench/bench_gui.h"

#include <QApplication>
#include <algorithm>
#include <fstream>
#include <vector>

#include "app/fm_main.h"

namespace korvexed::bench {

std::string WriteLongLayerPrint(const std::string& name, int32_t records, int columns, double spacing,
                                int later_layers) {
  const std::string path = KORVEXED_BENCH_DIR "/" + name;
  std::ofstream out(path, std::ios::binary);
  out << "G21\nG92 E0\nG1 Z0.2 F1800\n";
  // 0.04 mm of filament per millimetre of move.
  const double e_per_move = 0.04 * spacing;
  double e = 0;
  for (int32_t i = 1; i < records; ++i) {
    const int32_t column = i % columns, row = i / columns;
    out << (column == 0 ? "G0" : "G1") << " X" << 20 + column * spacing << " Y" << 20 + row * spacing;
    if (column != 0) out << " E" << (e += e_per_move);
    out << '\n';
  }
  out << "G1 Z0.4\nG1 X30 Y30 E" << (e += 1) << '\n';
  for (int layer = 0; layer < later_layers; ++layer) {
    out << "G1 Z" << 0.6 + 0.2 * layer << '\n';
    for (int i = 0; i < 5000; ++i) out << "G1 X" << 20 + i % 100 * 0.5 << " Y" << 20 + i / 100 << " E" << (e += 0.02) << '\n';
  }
  return path;
}

std::unique_ptr<FmMain> OpenWindow(const std::string& path, QSize size) {
  auto window = std::make_unique<FmMain>(std::vector<std::string>{});
  window->resize(size);
  window->Start();
  window->LoadCommand(path);
  QApplication::processEvents();
  return window;
}

double StepTimer::Stop() {
  const double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_).count();
  slowest_ = std::max(slowest_, ms);
  return ms;
}

}  // namespace korvexed::bench
