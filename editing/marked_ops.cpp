// Edits of the marked vertices of the current layer: moving them, and
// changing their feedrate or kind.
#include <cmath>
#include <vector>

#include "editing/e_shift.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "editing/move_length.h"

namespace korvexed {

bool move_marked(double dx, double dy, double de) {
  if (std::fabs(dx) <= negligible && std::fabs(dy) <= negligible && std::fabs(de) <= negligible) return false;
  const int32_t cur = doc.current_layer;
  const uint8_t moved_fields = given_x | given_y | (std::fabs(de) > negligible ? given_e : 0);
  // Changes of E that ran through to the end of the current layer go on
  // into the later layers in one walk, not one walk per vertex; nothing
  // here reads those layers before the walk, except a next move there.
  std::vector<double> onward;
  const auto carry_onward = [&] {
    if (onward.empty()) return;
    add_to_e_from(cur + 1, 0, onward);
    onward.clear();
  };
  for (const int32_t r : lists.row_to_g) {
    if (!lists.select_flag[static_cast<size_t>(r)]) continue;
    int32_t p_layer = cur;
    coor_data p = get_state_before(p_layer, r - 1);
    check_d_delta(p, p_layer, cur, r);
    doc.mark_given(doc.layer(cur).g[static_cast<size_t>(r)].index, moved_fields);
    coor_data& m = doc.coor(cur, r);
    m.x += dx;
    m.y += dy;
    double l2 = refit_length_sq(p, p_layer, cur, r);
    m.e_delta += de;  // a typed dE is scaled with the segment too
    keep_extrusion_rate(m, l2);
    m.e = p.e + m.e_delta;
    set_move_length(m, l2);

    // The moved vertex, with any G92 reset before the next move, starts it.
    p = m;
    int32_t n_layer = cur;
    const int32_t n = find_next_move(n_layer, r + 1, p);
    if (n < 0) continue;
    if (n_layer != cur) carry_onward();
    coor_data& next = doc.coor(n_layer, n);
    l2 = refit_length_sq(p, cur, n_layer, n);
    keep_extrusion_rate(next, l2);
    const double delta = (p.e + next.e_delta) - next.e;
    next.e += delta;
    set_move_length(next, l2);
    if (n_layer != cur) {
      shift_e_after(n_layer, n + 1, delta);
    } else if (std::fabs(delta) > negligible && add_to_e_in_layer(cur, n + 1, {&delta, 1})) {
      onward.push_back(delta);
    }
  }
  carry_onward();
  return true;
}

int32_t change_feedrate(double old_f, double new_f) {
  int32_t changed = 0;
  for (const int32_t r : lists.row_to_g) {
    if (!lists.select_flag[static_cast<size_t>(r)]) continue;
    const int32_t index = doc.layer(doc.current_layer).g[static_cast<size_t>(r)].index;
    coor_data& c = doc.coor_list[index];
    // An old feedrate of 0 or below stands for every one.
    if ((old_f <= 0 || c.f == old_f) && c.f != new_f) {
      c.f = new_f;
      doc.mark_given(index, given_f);
      ++changed;
    }
  }
  return changed;
}

int32_t set_marked_kind(line_kind kind) {
  int32_t changed = 0;
  layer_data& ly = doc.layer(doc.current_layer);
  for (const int32_t r : lists.row_to_g) {
    g_entry& entry = ly.g[static_cast<size_t>(r)];
    // Arcs stay arcs.
    if (lists.select_flag[static_cast<size_t>(r)] && entry.kind != kind && !is_arc(entry.kind)) {
      entry.kind = kind;
      ++changed;
    }
  }
  return changed;
}

}  // namespace korvexed
