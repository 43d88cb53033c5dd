// One mouse step of a drag in the window: 20 marked vertices follow the
// pointer, on a layer of 20,000 records and on the largest layer of the
// ~100 MB print. Each step is the move event on picDraw (the vertex move,
// the list refresh and the redraw) and the painting of the window that it
// causes.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>

#include "app/fm_main.h"
#include "bench/bench_gui.h"
#include "document/document.h"
#include "editing/list_state.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed::bench {

namespace {

constexpr int32_t layer_records = 20000;
constexpr int32_t marked_vertices = 20;

// Layer 1 holds 20,000 records: its Z move, then rows of 200 moves 0.2 mm
// apart, each row reached by a travel, like a slicer's infill.
std::string LayerPrint() {
  const std::string path = KORVEXED_BENCH_DIR "/drag_layer.gcode";
  std::ofstream out(path, std::ios::binary);
  out << "G21\nG92 E0\nG1 Z0.2 F1800\n";
  double e = 0;
  for (int i = 1; i < layer_records; ++i) {
    const int column = i % 200, row = i / 200;
    out << (column == 0 ? "G0" : "G1") << " X" << 20 + column * 0.2 << " Y" << 20 + row * 0.2;
    if (column != 0) out << " E" << (e += 0.008);
    out << '\n';
  }
  out << "G1 Z0.4\nG1 X30 Y30 E" << e + 1 << '\n';
  return path;
}

// The layer with the most records.
int32_t LargestLayer() {
  int32_t largest = 0;
  for (int32_t i = 1; i < doc.layer_count; ++i)
    if (doc.layer(i).g_count > doc.layer(largest).g_count) largest = i;
  return largest;
}

// Marks `count` moves from the middle of the current layer on; the first of
// them.
int32_t MarkMovesFromMiddle(int32_t count) {
  const layer_data& layer = doc.layer(doc.current_layer);
  int32_t first = -1;
  for (int32_t r = layer.g_count / 2; r < layer.g_count && count > 0; ++r) {
    if (!is_move(layer.g[static_cast<size_t>(r)].kind)) continue;
    if (first < 0) first = r;
    lists.select_flag[static_cast<size_t>(r)] = 1;
    --count;
  }
  ApplySelection(false);
  return first;
}

void Send(QWidget* area, QEvent::Type type, QPoint at, Qt::MouseButtons held) {
  QMouseEvent event(type, at, area->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
  QApplication::sendEvent(area, &event);
}

void DragStep(benchmark::State& state, const std::string& path) {
  FmMain window({});
  window.resize(1280, 800);
  window.Start();
  window.LoadCommand(path);
  if (!IsDocumentLoaded()) return state.SkipWithError("loading failed");
  ShowSingleLayer(LargestLayer());
  ZoomFit();
  const int32_t first = MarkMovesFromMiddle(marked_vertices);
  QApplication::processEvents();

  auto* area = window.findChild<QWidget*>(QStringLiteral("picDraw"));
  const coor_data& vertex = doc.coor(doc.current_layer, first);
  int32_t px, py;
  WorldToPixel(vertex.x, vertex.y, px, py);
  QPoint at(px, drawing.picture.height - py);
  Send(area, QEvent::MouseButtonPress, at, Qt::LeftButton);
  int step = 1;
  for (auto _ : state) {
    at.rx() += step;
    step = -step;  // back and forth, so the vertices stay on view
    const auto start = std::chrono::steady_clock::now();
    Send(area, QEvent::MouseMove, at, Qt::LeftButton);
    QApplication::processEvents();  // the window paints what changed
    state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  Send(area, QEvent::MouseButtonRelease, at, Qt::NoButton);
  if (!doc.modified) state.SkipWithError("the drag moved nothing");
  state.counters["layer_records"] = doc.layer(doc.current_layer).g_count;
  state.counters["marked"] = CountSelected(lists.select_line);
  doc.modified = false;  // the window closes without asking
}

}  // namespace

void DragStepLayerOf20000(benchmark::State& state) { DragStep(state, LayerPrint()); }
void DragStepLargestLayerOfPrint(benchmark::State& state) { DragStep(state, GuiPrint().path); }

BENCHMARK(DragStepLayerOf20000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(DragStepLargestLayerOfPrint)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);

}  // namespace korvexed::bench
