#include "document/layer_finder.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "document/document.h"

namespace korvexed {

namespace {

// Moves in a row at one height; each run after the first begins with a
// change of Z.
struct HeightRun {
  uint32_t position;       // of its first move
  double z;
  bool starts_in_plane;    // its first move extrudes in the plane: a spiral move
  bool extrudes_in_plane;  // some move of it does
};

std::vector<HeightRun> runs;

struct LayerStart {
  uint32_t position;
  double z;
};

// The layer height a spiral counts its turns by when the layer before it
// gives none.
constexpr double spiral_pitch = 0.2;

std::vector<LayerStart> layer_starts() {
  std::vector<LayerStart> starts{{0, 0}};
  const bool any_in_plane = std::any_of(runs.begin(), runs.end(), [](const HeightRun& r) { return r.extrudes_in_plane; });
  if (!any_in_plane) {
    // A plotter, or a file without extrusion: every change of Z.
    for (size_t k = 1; k < runs.size(); ++k) starts.push_back({runs[k].position, runs[k].z});
    return starts;
  }
  // The height of the next move that extrudes in the plane, from the start
  // of each run on.
  std::vector<double> next_in_plane(runs.size() + 1, NAN);
  for (size_t k = runs.size(); k-- > 0;) next_in_plane[k] = runs[k].extrudes_in_plane ? runs[k].z : next_in_plane[k + 1];

  double layer_z = 0, layer_dz = 0;
  const auto start = [&](const HeightRun& run) {
    starts.push_back({run.position, run.z});
    layer_dz = run.z - layer_z;
    layer_z = run.z;
  };
  bool spiral = false;
  double base = 0, pitch = 0;
  int turns = 0;
  for (size_t k = 1; k < runs.size(); ++k) {
    const HeightRun& run = runs[k];
    if (run.starts_in_plane) {
      if (!spiral) {
        spiral = true;
        base = layer_z;
        pitch = layer_dz > 1e-6 ? layer_dz : spiral_pitch;
        turns = 1;
        start(run);
      } else if (run.z > base + turns * pitch + 1e-6) {
        ++turns;
        start(run);
      }
    } else if (run.z != layer_z && next_in_plane[k] == run.z) {
      // A layer begins where the nozzle goes to the height it then prints
      // at; lifts and travel heights stay in the layer they interrupt.
      spiral = false;
      start(run);
    }
  }
  return starts;
}

// The own heights of the moves of run k that differ from their layer's.
void keep_heights(size_t k, const layer_data& layer, uint32_t layer_start) {
  const uint32_t end = k + 1 < runs.size() ? runs[k + 1].position : UINT32_MAX;
  const uint32_t last = std::min<uint32_t>(end, layer_start + static_cast<uint32_t>(layer.g_count));
  for (uint32_t p = runs[k].position; p < last; ++p) {
    const g_entry& entry = layer.g[p - layer_start];
    if (is_move(entry.kind)) doc.z_list.add({entry.index, runs[k].z});
  }
}

}  // namespace

void NoteMoveHeight(uint32_t position, double z, bool extrudes_in_plane) {
  if (runs.empty() || runs.back().z != z) {
    runs.push_back({position, z, extrudes_in_plane, extrudes_in_plane});
  } else {
    runs.back().extrudes_in_plane |= extrudes_in_plane;
  }
}

void ClearMoveHeights() { runs.clear(); }

void FindLayers() {
  const std::vector<LayerStart> starts = layer_starts();
  layer_data& all = doc.layer(0);
  g_entry* const base = all.g.begin();
  const auto total = static_cast<uint32_t>(all.g_count);
  const size_t layers = std::min<size_t>(starts.size(), max_data_count);
  if (layers < starts.size()) doc.data_limit_hit = true;
  if (doc.layer_capacity() < static_cast<int32_t>(layers))
    doc.layer_list.resize((layers + layer_chunk - 1) / layer_chunk * layer_chunk);

  double z_before = 0;
  for (size_t L = 0; L < layers; ++L) {
    const uint32_t begin = starts[L].position;
    const uint32_t end = L + 1 < starts.size() ? starts[L + 1].position : total;
    int32_t count = static_cast<int32_t>(end - begin);
    if (count > max_data_count) {
      count = max_data_count;
      doc.data_limit_hit = true;
    }
    layer_data& layer = doc.layer(static_cast<int32_t>(L));
    layer.g.place_at(base + begin);
    layer.g.widen(count);
    layer.g.set_capacity((count + entry_chunk - 1) / entry_chunk * entry_chunk);
    layer.g_count = count;
    layer.coor_count = static_cast<int32_t>(
        std::count_if(layer.g.begin(), layer.g.begin() + count, [](const g_entry& e) { return is_move(e.kind); }));
    layer.z = starts[L].z;
    layer.dz = L == 0 ? 0 : layer.z - z_before;
    z_before = layer.z;
  }
  doc.layer_count = static_cast<int32_t>(layers);

  doc.z_list.clear();
  size_t L = 0;
  for (size_t k = 0; k < runs.size(); ++k) {
    while (L + 1 < layers && starts[L + 1].position <= runs[k].position) ++L;
    if (L + 1 == layers && L + 1 < starts.size() && runs[k].position >= starts[L + 1].position) break;
    const layer_data& layer = doc.layer(static_cast<int32_t>(L));
    if (runs[k].z != layer.z) keep_heights(k, layer, starts[L].position);
  }
  runs.clear();
  runs.shrink_to_fit();
}

}  // namespace korvexed
