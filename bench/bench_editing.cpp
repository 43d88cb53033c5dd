// The edits a user makes on a large print: one drag step of 20 marked
// vertices in a middle layer, one point inserted into a 50,000-record
// layer, and turning the whole print.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/bench_registry.h"
#include "bench/large_layer.h"
#include "document/document.h"
#include "document/korvexed_file.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"

namespace korvexed::bench {

namespace {

// Makes a middle layer current with its first `count` moves marked.
void MarkMovesOfMiddleLayer(int32_t count) {
  ShowSingleLayer(doc.layer_count / 2);
  const layer_data& layer = doc.layer(doc.current_layer);
  for (int32_t r = 0; r < layer.g_count && count > 0; ++r) {
    if (is_move(layer.g[static_cast<size_t>(r)].kind)) {
      lists.select_flag[static_cast<size_t>(r)] = 1;
      --count;
    }
  }
}

void MoveMarked(benchmark::State& state, const BenchFile& file) {
  if (!LoadGCode(file.path)) state.SkipWithError("loading failed");
  MarkMovesOfMiddleLayer(20);
  double step = 0.01;
  for (auto _ : state) {
    move_marked(step, step, 0);
    step = -step;  // back and forth, so the print stays where it was
  }
}

void TranslateAll(benchmark::State& state, const BenchFile& file) {
  if (!LoadGCode(file.path)) state.SkipWithError("loading failed");
  for (auto _ : state) translate_all(90, 1, -1);
}

void InsertPoint(benchmark::State& state, const BenchFile& file) {
  if (!LoadLargeLayerPrint(file.path)) state.SkipWithError("loading failed");
  ShowSingleLayer(1);
  const int32_t middle = doc.layer(1).g_count / 2;
  for (auto _ : state) {
    insert_point(middle, 60, 60);
    state.PauseTiming();
    delete_record(1, middle);  // keeps the layer at its size; not measured
    state.ResumeTiming();
  }
  state.counters["layer_records"] = doc.layer(1).g_count;
}

}  // namespace

void RegisterEditingBenchmarks(const BenchFile& file) {
  benchmark::RegisterBenchmark(("MoveMarked20/" + file.name).c_str(), MoveMarked, file)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(("TranslateAll/" + file.name).c_str(), TranslateAll, file)
      ->Unit(benchmark::kMillisecond);
  if (file.settings.reset_e) {
    benchmark::RegisterBenchmark("InsertPoint/layer_of_50000", InsertPoint, file)->Unit(benchmark::kMillisecond);
  }
}

}  // namespace korvexed::bench
