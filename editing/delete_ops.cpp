// Deleting marked vertices, selected data rows and selected layers, with
// the re-derivation of the move that then starts elsewhere.
#include <algorithm>

#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "platform/platform.h"

namespace korvexed {

namespace {

// Re-derives the first move at or after record r of `layer` from state p,
// which the G92 records passed on the way update.
void rederive_next_move(coor_data p, int32_t p_layer, int32_t layer, int32_t r) {
  const int32_t n = find_next_move(layer, r, p);
  if (n >= 0) rederive_move(p, p_layer, layer, n);
}

}  // namespace

int32_t delete_marked_vertices() {
  const int32_t cur = doc.current_layer;
  int32_t deleted = 0;
  for (auto k = static_cast<int32_t>(lists.row_to_g.size()) - 1; k >= 0; --k) {
    const int32_t r = lists.row_to_g[static_cast<size_t>(k)];
    if (!lists.select_flag[static_cast<size_t>(r)]) continue;
    if (doc.layer(cur).coor_count < 2) {
      platform().message_box("Layer must contains at least 1 coor (G0/G1) data", MsgIcon::information, MsgButtons::ok);
      break;
    }
    int32_t p_layer = cur;
    const coor_data p = get_state_before(p_layer, r - 1);
    check_d_delta(p, p_layer, cur, r);
    // G92 resets between the vertex and the next move are gathered into the
    // deleted vertex, not into p.
    coor_data gathered = doc.coor(cur, r);
    int32_t n_layer = cur;
    const int32_t n = find_next_move(n_layer, r + 1, gathered);
    if (n >= 0) rederive_move(p, p_layer, n_layer, n);
    delete_record(cur, r);
    ++deleted;
  }
  return deleted;
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
      rederive_next_move(p, p_layer, cur, r + 1);
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
    const double thickness = doc.layer(i).dz;
    for (int32_t j = i + 1; j < doc.layer_count; ++j) doc.layer(j).z -= thickness;
    // The removed layer's slot, with its entries, goes behind the last layer.
    std::rotate(doc.layer_list.begin() + i, doc.layer_list.begin() + i + 1, doc.layer_list.begin() + doc.layer_count);
    --doc.layer_count;
    ++deleted;
    if (i < doc.layer_count) {
      int32_t p_layer = i;
      const coor_data p = get_state_before(p_layer, -1);
      rederive_next_move(p, p_layer, i, 0);
    }
  }
  if (refused) platform().message_box("Cannot remove all layer", MsgIcon::information, MsgButtons::ok);
  return deleted;
}

}  // namespace korvexed
