// The three lists at work in the real window, painting included: a click
// on a layer of 100,000 records, the lists' refresh after an edit of it,
// a page of its rows scrolled, most of its vertices deleted, and each step
// of the layer slider dragged across the big print.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <memory>
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

using Clock = std::chrono::steady_clock;

// The most records one layer may hold.
constexpr int32_t long_layer_records = max_data_count;

// Layer 1 holds 100,000 records: its Z move, then rows of 500 moves 0.1 mm
// apart, each row reached by a travel. Layer 2 is one short move.
std::string LongLayerPrint() {
  const std::string path = KORVEXED_BENCH_DIR "/long_layer.gcode";
  std::ofstream out(path, std::ios::binary);
  out << "G21\nG92 E0\nG1 Z0.2 F1800\n";
  double e = 0;
  for (int i = 1; i < long_layer_records; ++i) {
    const int column = i % 500, row = i / 500;
    out << (column == 0 ? "G0" : "G1") << " X" << 20 + column * 0.1 << " Y" << 20 + row * 0.1;
    if (column != 0) out << " E" << (e += 0.004);
    out << '\n';
  }
  out << "G1 Z0.4\nG1 X30 Y30 E" << e + 1 << '\n';
  return path;
}

// The window as a person sees it, with `path` open.
std::unique_ptr<FmMain> OpenWindow(const std::string& path) {
  auto window = std::make_unique<FmMain>(std::vector<std::string>{});
  window->resize(1400, 900);
  window->Start();
  window->LoadCommand(path);
  QApplication::processEvents();
  return window;
}

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

double Milliseconds(Clock::time_point since) {
  return std::chrono::duration<double, std::milli>(Clock::now() - since).count();
}

// A click on the long layer's line, from a short one: the data list filled
// with its 100,000 rows, the selection list rebuilt, the picture redrawn.
void ClickLongLayer(benchmark::State& state) {
  const auto window = OpenWindow(LongLayerPrint());
  auto* layers = Control<ListBox>(*window, "lstLayer");
  if (doc.layer(1).g_count != long_layer_records) state.SkipWithError("the long layer was not loaded whole");
  double slowest = 0;
  for (auto _ : state) {
    ClickLine(layers, 2);
    window->repaint();
    const Clock::time_point start = Clock::now();
    ClickLine(layers, 1);
    window->repaint();
    const double ms = Milliseconds(start);
    slowest = std::max(slowest, ms);
    state.SetIterationTime(ms / 1000);
  }
  if (doc.current_layer != 1 || CountSelected(lists.data_selected) != long_layer_records)
    state.SkipWithError("the click did not list the long layer");
  state.counters["slowest_ms"] = slowest;
}

// What an edit of the long layer costs the lists: their refresh and repaint.
void RefreshAfterEditOfLongLayer(benchmark::State& state) {
  const auto window = OpenWindow(LongLayerPrint());
  ClickLine(Control<ListBox>(*window, "lstLayer"), 1);
  auto* data = Control<ListBox>(*window, "lstData");
  data->set_top_line(long_layer_records / 2);
  double slowest = 0;
  for (auto _ : state) {
    const Clock::time_point start = Clock::now();
    RefreshListsAfterEdit();
    data->repaint();
    const double ms = Milliseconds(start);
    slowest = std::max(slowest, ms);
    state.SetIterationTime(ms / 1000);
  }
  state.counters["slowest_ms"] = slowest;
}

// The data list of the long layer scrolled a page at a time from its top
// to its end: only the lines on screen are painted, whatever the length.
void ScrollLongDataList(benchmark::State& state) {
  const auto window = OpenWindow(LongLayerPrint());
  ClickLine(Control<ListBox>(*window, "lstLayer"), 1);
  auto* data = Control<ListBox>(*window, "lstData");
  const int page = data->verticalScrollBar()->pageStep();
  int top = 0;
  double slowest = 0;
  for (auto _ : state) {
    top = top + page < long_layer_records ? top + page : 0;
    const Clock::time_point start = Clock::now();
    data->set_top_line(top);
    data->repaint();
    const double ms = Milliseconds(start);
    slowest = std::max(slowest, ms);
    state.SetIterationTime(ms / 1000);
  }
  state.counters["slowest_ms"] = slowest;
}

// Nine vertices in ten of the long layer marked and deleted: the lists
// follow the records row by row, then repaint once.
void DeleteMarkedVerticesOfLongLayer(benchmark::State& state) {
  const std::string path = LongLayerPrint();
  const auto window = OpenWindow(path);
  auto* layers = Control<ListBox>(*window, "lstLayer");
  for (auto _ : state) {
    doc.modified = false;
    window->LoadCommand(path);
    ClickLine(layers, 1);
    for (size_t i = 0; i < lists.select_flag.size(); ++i) lists.select_flag[i] = i % 10 != 0;
    ApplySelection(false);
    window->repaint();
    const Clock::time_point start = Clock::now();
    const bool deleted = DeleteSelectedDataCommand(true);
    QApplication::processEvents();
    window->repaint();
    state.SetIterationTime(Milliseconds(start) / 1000);
    if (!deleted || doc.layer(1).g_count != long_layer_records / 10) state.SkipWithError("the vertices were not deleted");
  }
  doc.modified = false;
}

// The layer slider dragged one layer at a time across the big print,
// without range scroll: each step lists the new layer and draws it. One
// iteration is the whole drag; its time is the mean step.
void DragLayerSlider(benchmark::State& state) {
  const auto window = OpenWindow(GuiPrint().path);
  auto* slider = Control<QScrollBar>(*window, "scrLayer");
  const int last = slider->maximum();
  if (last < 1) state.SkipWithError("the print was not loaded");
  double slowest = 0;
  for (auto _ : state) {
    slider->setSliderDown(true);
    double total = 0;
    for (int position = 1; position <= last; ++position) {
      const Clock::time_point start = Clock::now();
      slider->setSliderPosition(position);
      window->repaint();
      const double ms = Milliseconds(start);
      total += ms;
      slowest = std::max(slowest, ms);
      if (doc.current_layer != position) state.SkipWithError("the slider did not follow");
    }
    slider->setSliderDown(false);
    slider->setValue(0);
    state.SetIterationTime(total / last / 1000);
  }
  state.counters["slowest_ms"] = slowest;
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
