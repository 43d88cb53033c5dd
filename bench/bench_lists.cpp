// The three lists at work in the real window, painting included: a click
// on a layer of 100,000 records, the lists' refresh after an edit of it,
// a page of its rows scrolled, most of its vertices deleted, and each step
// of the layer slider dragged across the big print.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSlider>
#include <string>
#include <vector>

#include "app/fm_main.h"
#include "bench/bench_gui.h"
#include "controls/list_box.h"
#include "document/document.h"
#include "editing/commands.h"
#include "editing/list_state.h"

namespace korvexed::bench {

namespace {

// The most records one layer may hold.
constexpr int32_t long_layer_records = max_data_count;

std::string LongLayerPrint() { return WriteLongLayerPrint("long_layer.gcode", long_layer_records, 500, 0.1); }

constexpr QSize window_size(1400, 900);

template <typename T>
T* Control(const FmMain& window, const char* name) {
  return window.findChild<T*>(QString::fromLatin1(name));
}

// A left click on a list line, as the mouse sends it.
void ClickLine(ListBox* list, int line) {
  const QPointF at = list->line_rect(line).center();
  const QPointF global = list->viewport()->mapToGlobal(at);
  QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(list->viewport(), &press);
  QApplication::sendEvent(list->viewport(), &release);
}

// A click on the long layer's line, from a short one: the data list filled
// with its 100,000 rows, the selection list rebuilt, the picture redrawn.
void ClickLongLayer(benchmark::State& state) {
  const auto window = OpenWindow(LongLayerPrint(), window_size);
  auto* layers = Control<ListBox>(*window, "lstLayer");
  if (doc.layer(1).g_count != long_layer_records) state.SkipWithError("the long layer was not loaded whole");
  StepTimer timer;
  for (auto _ : state) {
    ClickLine(layers, 2);
    window->repaint();
    timer.Start();
    ClickLine(layers, 1);
    window->repaint();
    state.SetIterationTime(timer.Stop() / 1000);
  }
  if (doc.current_layer != 1 || CountSelected(lists.data_selected) != long_layer_records)
    state.SkipWithError("the click did not list the long layer");
  state.counters["slowest_ms"] = timer.slowest();
}

// What an edit of the long layer costs the lists: their refresh and repaint.
void RefreshAfterEditOfLongLayer(benchmark::State& state) {
  const auto window = OpenWindow(LongLayerPrint(), window_size);
  ClickLine(Control<ListBox>(*window, "lstLayer"), 1);
  auto* data = Control<ListBox>(*window, "lstData");
  data->set_top_line(long_layer_records / 2);
  StepTimer timer;
  for (auto _ : state) {
    timer.Start();
    RefreshListsAfterEdit();
    data->repaint();
    state.SetIterationTime(timer.Stop() / 1000);
  }
  state.counters["slowest_ms"] = timer.slowest();
}

// The data list of the long layer scrolled a page at a time from its top
// to its end: only the lines on screen are painted, whatever the length.
void ScrollLongDataList(benchmark::State& state) {
  const auto window = OpenWindow(LongLayerPrint(), window_size);
  ClickLine(Control<ListBox>(*window, "lstLayer"), 1);
  auto* data = Control<ListBox>(*window, "lstData");
  const int page = data->verticalScrollBar()->pageStep();
  int top = 0;
  StepTimer timer;
  for (auto _ : state) {
    top = top + page < long_layer_records ? top + page : 0;
    timer.Start();
    data->set_top_line(top);
    data->repaint();
    state.SetIterationTime(timer.Stop() / 1000);
  }
  state.counters["slowest_ms"] = timer.slowest();
}

// Nine vertices in ten of the long layer marked and deleted: the lists
// follow the records row by row, then repaint once.
void DeleteMarkedVerticesOfLongLayer(benchmark::State& state) {
  const std::string path = LongLayerPrint();
  const auto window = OpenWindow(path, window_size);
  auto* layers = Control<ListBox>(*window, "lstLayer");
  StepTimer timer;
  for (auto _ : state) {
    doc.modified = false;
    window->LoadCommand(path);
    ClickLine(layers, 1);
    for (size_t i = 0; i < lists.select_flag.size(); ++i) lists.select_flag[i] = i % 10 != 0;
    ApplySelection(false);
    window->repaint();
    timer.Start();
    const bool deleted = DeleteSelectedDataCommand(true);
    QApplication::processEvents();
    window->repaint();
    state.SetIterationTime(timer.Stop() / 1000);
    if (!deleted || doc.layer(1).g_count != long_layer_records / 10) state.SkipWithError("the vertices were not deleted");
  }
  doc.modified = false;
}

// The layer slider dragged one layer at a time across the big print,
// without range scroll: each step lists the new layer and draws it. One
// iteration is the whole drag; its time is the mean step.
void DragLayerSlider(benchmark::State& state) {
  const auto window = OpenWindow(GuiPrint().path, window_size);
  auto* slider = Control<QSlider>(*window, "scrLayer");
  const int last = slider->maximum();
  if (last < 1) state.SkipWithError("the print was not loaded");
  StepTimer timer;
  for (auto _ : state) {
    slider->setSliderDown(true);
    double total = 0;
    for (int position = 1; position <= last; ++position) {
      timer.Start();
      slider->setSliderPosition(position);
      window->repaint();
      total += timer.Stop();
      if (doc.current_layer != position) state.SkipWithError("the slider did not follow");
    }
    slider->setSliderDown(false);
    slider->setValue(0);
    state.SetIterationTime(total / last / 1000);
  }
  state.counters["slowest_ms"] = timer.slowest();
  state.counters["layers"] = last + 1;
}

BENCHMARK(ClickLongLayer)->Name("Lists/click_layer_of_100000")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(RefreshAfterEditOfLongLayer)
    ->Name("Lists/refresh_after_edit_of_100000")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollLongDataList)->Name("Lists/scroll_page_of_100000")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(DeleteMarkedVerticesOfLongLayer)
    ->Name("Lists/delete_90000_marked_vertices")
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(DragLayerSlider)
    ->Name("Lists/layer_slider_step_100mb")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace korvexed::bench
