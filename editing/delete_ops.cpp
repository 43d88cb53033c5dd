// Deleting marked vertices, selected data rows and selected layers, with
// the re-derivation of the move that then starts elsewhere.
#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "editing/move_length.h"
#include "editing/step_record.h"
#include "platform/platform.h"

namespace korvexed {

namespace {

// Re-derives the first move at or after record r of `layer` from state p,
// which the G92 records passed on the way update.
void rederive_next_move(coor_data p, double p_z, int32_t layer, int32_t r) {
  const int32_t n = find_next_move(layer, r, p);
  if (n >= 0) rederive_move(p, p_z, layer, n);
}

// Re-derives move n of `layer` after the vertices `run` (in file order,
// nothing but other records between them and n) are deleted, as deleting
// them one by one from the last would: each deletion measures the move anew
// from the state before the vertex deleted. Returns the change of its E.
double rederive_after_run(std::span<const int32_t> run, int32_t layer, int32_t n) {
  const int32_t cur = doc.current_layer;
  save_for_undo(&StepRecord::save_record, doc.layer(layer).g[static_cast<size_t>(n)].index);
  coor_data& m = doc.coor(layer, n);
  coor_data p;
  for (auto it = run.rbegin(); it != run.rend(); ++it) {
    int32_t p_layer = cur;
    p = get_state_before(p_layer, *it - 1);
    const double l2 = refit_length_sq(p, height_before(cur, *it - 1), layer, n);
    keep_extrusion_rate(m, l2);
    set_move_length(m, l2);
  }
  const double e = p.e + m.e_delta;
  const double delta = e - m.e;
  m.e = e;
  return std::fabs(delta) > negligible ? delta : 0;
}

// Lowers what stood on layer i by its thickness: its height over the
// nearest layer before it that lies lower (or the bed). Only the later
// layers that stand above it come down, up to the first that does not: a
// prime line printed high, or a second object printed after the first,
// leaves what follows where it is. Returns the first later layer left
// where it was.
int32_t take_out_thickness(int32_t i) {
  const double z = doc.layer(i).z;
  double below = 0;
  for (int32_t k = i - 1; k >= 0; --k) {
    if (doc.layer(k).z < z) {
      below = doc.layer(k).z;
      break;
    }
  }
  const double thickness = z - below;
  int32_t j = i + 1;
  for (; j < doc.layer_count && doc.layer(j).z > z; ++j) {
    save_for_undo(&StepRecord::save_layer_z, j);
    layer_data& layer = doc.layer(j);
    layer.z -= thickness;
    // Its lifts and other heights of their own come down with it.
    for (int32_t r = 0; r < layer.g_count; ++r) {
      const g_entry& entry = layer.g[static_cast<size_t>(r)];
      if (!is_move(entry.kind)) continue;
      if (height_data* own = doc.z_list.find(entry.index)) {
        save_for_undo(&StepRecord::save_height, entry.index);
        own->z -= thickness;
      }
    }
  }
  return j;
}

// Re-derives the first move of layer i from what now comes before it.
void rederive_layer_start(int32_t i) {
  int32_t p_layer = i;
  const coor_data p = get_state_before(p_layer, -1);
  rederive_next_move(p, height_before(i, -1), i, 0);
}

}  // namespace

int32_t delete_marked_vertices() {
  const int32_t cur = doc.current_layer;
  const layer_data& ly = doc.layer(cur);
  std::vector<int32_t> marked;
  for (const int32_t r : lists.row_to_g)
    if (lists.select_flag[static_cast<size_t>(r)]) marked.push_back(r);
  // The layer keeps at least one move: the first marked vertices stay.
  const auto allowed = static_cast<size_t>(std::max(ly.coor_count - 1, 0));
  const bool refused = marked.size() > allowed;
  if (refused) marked.erase(marked.begin(), marked.end() - static_cast<std::ptrdiff_t>(allowed));

  // One walk from the first deleted vertex to the end of the layer: the
  // move after each run of deleted vertices is re-derived, and the changes
  // of E are carried on as one sum (`owed`), so an E may differ from
  // deleting vertex by vertex in the last bits of a double.
  double owed = 0;
  size_t run_begin = 0, next_marked = 0;
  for (int32_t r = marked.empty() ? ly.g_count : marked.front(); r < ly.g_count; ++r) {
    const g_entry& entry = ly.g[static_cast<size_t>(r)];
    if (restarts_e(entry)) owed = 0;
    if (!is_move(entry.kind)) continue;
    save_for_undo(&StepRecord::save_e, entry.index);
    doc.coor(entry).e += owed;
    if (next_marked < marked.size() && marked[next_marked] == r) {
      int32_t p_layer = cur;
      const coor_data p = get_state_before(p_layer, r - 1);
      check_d_delta(p, height_before(cur, r - 1), cur, r);
      ++next_marked;
      continue;
    }
    if (run_begin < next_marked) owed += rederive_after_run({&marked[run_begin], next_marked - run_begin}, cur, r);
    run_begin = next_marked;
  }
  shift_e_after(cur + 1, 0, owed);
  if (run_begin < next_marked) {
    // The run reaches the end of the layer: the first move after it follows.
    coor_data gathered;
    int32_t n_layer = cur + 1;
    const int32_t n = find_next_move(n_layer, 0, gathered);
    if (n >= 0) shift_e_after(n_layer, n + 1, rederive_after_run({&marked[run_begin], next_marked - run_begin}, n_layer, n));
  }
  delete_records(cur, marked);
  if (refused) platform().message_box("Layer must contains at least 1 coor (G0/G1) data", MsgIcon::information, MsgButtons::ok);
  return static_cast<int32_t>(marked.size());
}

int32_t delete_selected_rows() {
  const int32_t cur = doc.current_layer;
  int32_t deleted = 0;
  for (auto r = static_cast<int32_t>(lists.data_selected.size()) - 1; r >= 0; --r) {
    if (!lists.data_selected[static_cast<size_t>(r)]) continue;
    const line_kind kind = doc.layer(cur).g[static_cast<size_t>(r)].kind;
    if (kind == line_kind::g92) {
      // Without this reset the next move carries on from the state before it.
      int32_t p_layer = cur;
      const coor_data p = get_state_before(p_layer, r - 1);
      rederive_next_move(p, height_before(cur, r - 1), cur, r + 1);
    } else if (kind != line_kind::text) {
      continue;  // moves go only through the vertex list
    }
    delete_record(cur, r);
    ++deleted;
  }
  return deleted;
}

int32_t delete_selected_layers() {
  int32_t deleted = 0;
  bool refused = false;
  for (auto i = static_cast<int32_t>(lists.layer_selected.size()) - 1; i >= 0; --i) {
    if (!lists.layer_selected[static_cast<size_t>(i)]) continue;
    if (doc.layer_count < 2) {
      refused = true;
      break;
    }
    LayerRowRemoved(i);
    const int32_t left_alone = take_out_thickness(i) - 1;  // once layer i is gone
    // The removed layer's slot, with its entries, goes behind the last layer.
    std::rotate(doc.layer_list.begin() + i, doc.layer_list.begin() + i + 1, doc.layer_list.begin() + doc.layer_count);
    --doc.layer_count;
    save_for_undo(&StepRecord::layer_removed, i);
    ++deleted;
    // The moves that now follow the removed layer, and the lowered ones,
    // climb from elsewhere.
    if (i < doc.layer_count) rederive_layer_start(i);
    if (left_alone > i && left_alone < doc.layer_count) rederive_layer_start(left_alone);
  }
  if (refused) platform().message_box("Cannot remove all layer", MsgIcon::information, MsgButtons::ok);
  return deleted;
}

}  // namespace korvexed
