// Undo and Redo on a large print: of Translate, of Delete Selected Layers
// and of a drag with every vertex of the largest layer marked; the first
// move of such a drag, which saves what it changes; and the history's
// memory after a hundred drags of 20 vertices.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <functional>

#include "bench/bench_registry.h"
#include "document/korvexed_file.h"
#include "editing/commands.h"
#include "editing/history.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"

namespace korvexed::bench {

namespace {

constexpr double mb = 1e6;

bool Open(const BenchFile& file) {
  if (!LoadGCode(file.path)) return false;
  FillLayerList(0);
  history.clear();
  return true;
}

// Makes `layer` current with its first `count` moves marked.
void Mark(int32_t layer, int32_t count) {
  ShowSingleLayer(layer);
  for (const int32_t r : lists.row_to_g) {
    if (count-- <= 0) break;
    lists.select_flag[static_cast<size_t>(r)] = 1;
  }
}

bool DragStep() {
  return history.run("Move", [] { return move_marked(0.1, 0.1, 0); });
}

// Runs `edit` once as a step; each iteration then undoes and redoes it,
// timing the undo or the redo.
void UndoRedo(benchmark::State& state, const BenchFile& file, const std::function<void()>& edit, bool time_undo) {
  if (!Open(file)) return state.SkipWithError("loading failed");
  edit();
  if (!history.can_undo()) return state.SkipWithError("the edit made no step");
  for (auto _ : state) {
    if (!time_undo) state.PauseTiming();
    history.undo();
    if (time_undo) state.PauseTiming();
    else state.ResumeTiming();
    history.redo();
    if (time_undo) state.ResumeTiming();
  }
  state.counters["step_MB"] = static_cast<double>(history.bytes()) / mb;
}

void Translate() { TranslateCommand(90, 1, -1); }

void DeleteMiddleLayer() {
  lists.layer_selected.assign(static_cast<size_t>(doc.layer_count), 0);
  lists.layer_selected[static_cast<size_t>(doc.layer_count / 2)] = 1;
  DeleteSelectedLayersCommand();
}

void DragAllOfLargestLayer() {
  Mark(LargestLayer(), INT32_MAX);
  DragStep();
}

// The first move of a drag saves what it changes (later moves of the same
// drag only find it saved): of 20 vertices of the middle layer, whose E
// changes reach on through half the print when it has no E reset, or of
// every vertex of the largest layer (`marked` -1).
void FirstDragStep(benchmark::State& state, const BenchFile& file, int32_t marked) {
  if (!Open(file)) return state.SkipWithError("loading failed");
  if (marked < 0) Mark(LargestLayer(), INT32_MAX);
  else Mark(doc.layer_count / 2, marked);
  for (auto _ : state) {
    DragStep();
    state.PauseTiming();
    history.undo();
    state.ResumeTiming();
  }
  state.counters["marked"] = std::count(lists.select_flag.begin(), lists.select_flag.end(), 1);
}

void HistoryAfter100Drags(benchmark::State& state, const BenchFile& file) {
  if (!Open(file)) return state.SkipWithError("loading failed");
  Mark(doc.layer_count / 2, 20);
  for (auto _ : state) {
    for (int i = 0; i < 100; ++i) DragStep();
  }
  state.counters["history_MB"] = static_cast<double>(history.bytes()) / mb;
  state.counters["document_MB"] = static_cast<double>(DocumentBytes()) / mb;
  state.counters["steps"] = static_cast<double>(history.size());
}

}  // namespace

void RegisterUndoBenchmarks(const BenchFile& file) {
  const struct {
    const char* name;
    void (*edit)();
  } steps[] = {{"Translate", Translate}, {"DeleteLayer", DeleteMiddleLayer}, {"DragAllMarked", DragAllOfLargestLayer}};
  for (const auto& step : steps) {
    for (const bool undo : {true, false}) {
      const std::string name = std::string(undo ? "Undo" : "Redo") + step.name + "/" + file.name;
      benchmark::RegisterBenchmark(name.c_str(), UndoRedo, file, step.edit, undo)
          ->Unit(benchmark::kMillisecond)
          ->Iterations(5);
    }
  }
  for (const int32_t marked : {20, -1}) {
    const std::string name = "FirstDragStep/" + std::string(marked < 0 ? "all" : "20") + "/" + file.name;
    benchmark::RegisterBenchmark(name.c_str(), FirstDragStep, file, marked)->Unit(benchmark::kMillisecond)->Iterations(10);
  }
  benchmark::RegisterBenchmark(("HistoryAfter100Drags/" + file.name).c_str(), HistoryAfter100Drags, file)
      ->Unit(benchmark::kMillisecond)
      ->Iterations(1);
}

}  // namespace korvexed::bench
