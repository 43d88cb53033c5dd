// One mouse step of a drag in the window: 20 marked vertices follow the
// pointer, on a layer of 20,000 records and on the largest layer of the
// ~100 MB print. Each step is the move event on picDraw (the vertex move,
// the list refresh and the redraw) and the painting of the window that it
// causes.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
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
  const auto window = OpenWindow(path, QSize(1280, 800));
  if (!IsDocumentLoaded()) return state.SkipWithError("loading failed");
  ShowSingleLayer(LargestLayer());
  ZoomFit();
  const int32_t first = MarkMovesFromMiddle(marked_vertices);
  QApplication::processEvents();

  auto* area = window->findChild<QWidget*>(QStringLiteral("picDraw"));
  const coor_data& vertex = doc.coor(doc.current_layer, first);
  int32_t px, py;
  WorldToPixel(vertex.x, vertex.y, px, py);
  QPoint at(px, drawing.picture.height - py);
  Send(area, QEvent::MouseButtonPress, at, Qt::LeftButton);
  int step = 1;
  StepTimer timer;
  for (auto _ : state) {
    at.rx() += step;
    step = -step;  // back and forth, so the vertices stay on view
    timer.Start();
    Send(area, QEvent::MouseMove, at, Qt::LeftButton);
    QApplication::processEvents();  // the window paints what changed
    state.SetIterationTime(timer.Stop() / 1000);
  }
  Send(area, QEvent::MouseButtonRelease, at, Qt::NoButton);
  if (!doc.modified) state.SkipWithError("the drag moved nothing");
  state.counters["slowest_ms"] = timer.slowest();
  state.counters["layer_records"] = doc.layer(doc.current_layer).g_count;
  state.counters["marked"] = CountSelected(lists.select_line);
  doc.modified = false;  // the window closes without asking
}

}  // namespace

void DragStepLayerOf20000(benchmark::State& state) {
  DragStep(state, WriteLongLayerPrint("drag_layer.gcode", layer_records, 200, 0.2));
}
void DragStepLargestLayerOfPrint(benchmark::State& state) { DragStep(state, GuiPrint().path); }

BENCHMARK(DragStepLayerOf20000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(DragStepLargestLayerOfPrint)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);

}  // namespace korvexed::bench
