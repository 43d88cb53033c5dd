// Drags and deletes of marked vertices in the window. A drag step is the
// move event on picDraw (the vertex move, the list refresh and the redraw)
// and the painting of the window that it causes; a Delete is the command
// with its list refresh, redraw and painting. Each runs with 20 vertices
// marked on a layer of 20,000 records and on the largest layer of the
// ~100 MB print, and with 20, 11,600 and all 100,000 vertices marked on a
// layer of 100,000 records whose E runs on through 20 later layers with no
// G92 (every change of E reaches the end of the print).
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
constexpr int32_t long_layer_records = 100000;

const std::string& LongLayerPrint() {
  static const std::string path = WriteLongLayerPrint("marked_layer.gcode", long_layer_records, 400, 0.1, 20);
  return path;
}

// Marks `count` moves in the middle of the current layer (every move when
// it has no more); the first of them.
int32_t MarkMovesInTheMiddle(int32_t count) {
  const layer_data& layer = doc.layer(doc.current_layer);
  int32_t first = -1;
  for (int32_t r = std::max(0, (layer.g_count - count) / 2); r < layer.g_count && count > 0; ++r) {
    if (!is_move(layer.g[static_cast<size_t>(r)].kind)) continue;
    if (first < 0) first = r;
    lists.select_flag[static_cast<size_t>(r)] = 1;
    --count;
  }
  ApplySelection(false);
  return first;
}

// Opens the print at its largest layer, fitted, with `marked` moves marked;
// the first of them.
int32_t OpenMarked(std::unique_ptr<FmMain>& window, const std::string& path, int32_t marked) {
  window = OpenWindow(path, QSize(1280, 800));
  if (!IsDocumentLoaded()) return -1;
  ShowSingleLayer(LargestLayer());
  ZoomFit();
  const int32_t first = MarkMovesInTheMiddle(marked);
  QApplication::processEvents();
  return first;
}

void Send(QWidget* area, QEvent::Type type, QPoint at, Qt::MouseButtons held) {
  QMouseEvent event(type, at, area->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
  QApplication::sendEvent(area, &event);
}

void DragStep(benchmark::State& state, const std::string& path, int32_t marked) {
  std::unique_ptr<FmMain> window;
  const int32_t first = OpenMarked(window, path, marked);
  if (first < 0) return state.SkipWithError("loading failed");

  auto* area = window->findChild<QWidget*>(QStringLiteral("picDraw"));
  const coor_data& vertex = doc.coor(doc.current_layer, first);
  int32_t px, py;
  WorldToPixel(vertex.x, vertex.y, px, py);
  QPoint at(px, drawing.picture.height - py);
  Send(area, QEvent::MouseButtonPress, at, Qt::LeftButton);
  at.ry() += 3;  // the drag starts
  Send(area, QEvent::MouseMove, at, Qt::LeftButton);
  QApplication::processEvents();
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

void DeleteMarked(benchmark::State& state, const std::string& path, int32_t marked) {
  StepTimer timer;
  for (auto _ : state) {
    std::unique_ptr<FmMain> window;
    if (OpenMarked(window, path, marked) < 0) return state.SkipWithError("loading failed");
    const int32_t records = doc.layer(doc.current_layer).g_count;
    timer.Start();
    window->poSelectEdit_Click(4);  // Delete Selected Data
    QApplication::processEvents();
    state.SetIterationTime(timer.Stop() / 1000);
    state.counters["deleted"] = records - doc.layer(doc.current_layer).g_count;
    doc.modified = false;
  }
  state.counters["slowest_ms"] = timer.slowest();
}

}  // namespace

void DragStepLayerOf20000(benchmark::State& state) {
  DragStep(state, WriteLongLayerPrint("drag_layer.gcode", layer_records, 200, 0.2), 20);
}
void DragStepLargestLayerOfPrint(benchmark::State& state) { DragStep(state, GuiPrint().path, 20); }
void DragStepMarkedOfLayerOf100000(benchmark::State& state) {
  DragStep(state, LongLayerPrint(), static_cast<int32_t>(state.range(0)));
}
void DeleteMarkedOfLayerOf100000(benchmark::State& state) {
  DeleteMarked(state, LongLayerPrint(), static_cast<int32_t>(state.range(0)));
}

BENCHMARK(DragStepLayerOf20000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(DragStepLargestLayerOfPrint)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(DragStepMarkedOfLayerOf100000)
    ->Arg(20)->Arg(11600)->Arg(long_layer_records)
    ->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(100);
// The layer keeps one move: at most 99,999 go. With every move marked the
// command would stop to say so in a message box.
BENCHMARK(DeleteMarkedOfLayerOf100000)
    ->Arg(20)->Arg(11600)->Arg(long_layer_records - 1)
    ->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace korvexed::bench
