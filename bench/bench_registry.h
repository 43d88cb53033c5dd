#pragma once
#include "bench/bench_prints.h"

namespace korvexed::bench {

// Load, save and peak memory of one print.
void RegisterFileBenchmarks(const BenchFile& file);
// Vertex moves and whole-print turns on one print, and point insertion
// into a large layer.
void RegisterEditingBenchmarks(const BenchFile& file);
// Undo and Redo of the heavy steps, and the history's memory.
void RegisterUndoBenchmarks(const BenchFile& file);
// The full redraw of one large layer, and of every layer of one print.
void RegisterRenderBenchmarks(const BenchFile& file);

}  // namespace korvexed::bench
