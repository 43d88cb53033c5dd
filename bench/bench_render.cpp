// The full redraw of an 800 x 800 drawing area fitted to the print, with
// travel moves and arrows shown: one layer of 50,000 moves alone, and every
// layer of a large print on view at once.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/bench_registry.h"
#include "bench/large_layer.h"
#include "document/document.h"
#include "document/korvexed_file.h"
#include "editing/list_state.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed::bench {

namespace {

// Makes `current` the current layer, fits the view and times the redraw.
void TimeRedraws(benchmark::State& state, int32_t current, bool every_layer) {
  ShowSingleLayer(current);
  if (every_layer) lists.layer_selected.assign(lists.layer_selected.size(), 1);
  draw_settings = {.show_movement = true, .show_arrow = true};
  if (!CreateDrawing(800, 800)) state.SkipWithError("no drawing bitmap");
  ZoomFit();
  for (auto _ : state) RedrawView();
  int64_t moves = 0;
  for (int32_t l = 0; l < doc.layer_count; ++l)
    if (lists.layer_selected[static_cast<size_t>(l)]) moves += doc.layer(l).coor_count;
  state.counters["moves"] = static_cast<double>(moves);
  state.counters["px_per_mm"] = view.view_scale;
}

void RedrawLargeLayer(benchmark::State& state, const BenchFile& file, bool arcs) {
  if (!LoadLargeLayerPrint(file.path, arcs)) state.SkipWithError("loading failed");
  TimeRedraws(state, 1, false);
}

void RedrawEveryLayer(benchmark::State& state, const BenchFile& file) {
  if (!LoadGCode(file.path)) state.SkipWithError("loading failed");
  TimeRedraws(state, doc.layer_count / 2, true);
}

}  // namespace

void RegisterRenderBenchmarks(const BenchFile& file) {
  if (file.settings.reset_e) {
    benchmark::RegisterBenchmark("Redraw/layer_of_50000", RedrawLargeLayer, file, false)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Redraw/layer_of_50000_arcs", RedrawLargeLayer, file, true)
        ->Unit(benchmark::kMillisecond);
  }
  benchmark::RegisterBenchmark(("RedrawEveryLayer/" + file.name).c_str(), RedrawEveryLayer, file)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace korvexed::bench
