// Edits of the marked vertices of the current layer: moving them, and
// changing their feedrate or kind.
#include <cmath>
#include <vector>

#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "editing/move_length.h"
#include "editing/step_record.h"

namespace korvexed {

namespace {

// The marked vertices on view, in file order.
std::vector<int32_t> marked_rows() {
  std::vector<int32_t> rows;
  for (const int32_t r : lists.row_to_g)
    if (lists.select_flag[static_cast<size_t>(r)]) rows.push_back(r);
  return rows;
}

// Moves vertex r of the current layer and re-derives its own move from p,
// the state before it, at height p_z.
void move_vertex(const coor_data& p, double p_z, int32_t r, double dx, double dy, double de) {
  const int32_t cur = doc.current_layer;
  check_d_delta(p, p_z, cur, r);
  const int32_t index = doc.layer(cur).g[static_cast<size_t>(r)].index;
  save_for_undo(&StepRecord::save_record, index);
  doc.mark_given(index,
                 given_x | given_y | (std::fabs(de) > negligible ? given_e : 0));
  coor_data& m = doc.coor(cur, r);
  m.x += dx;
  m.y += dy;
  const double l2 = refit_length_sq(p, p_z, cur, r);
  m.e_delta += de;  // a typed dE is scaled with the segment too
  keep_extrusion_rate(m, l2);
  m.e = p.e + m.e_delta;
  set_move_length(m, l2);
}

// Re-derives move n of the current layer from p, the state before it at
// height p_z, which moved; the change of its E, which the moves after it
// owe.
double rederive_next(const coor_data& p, double p_z, int32_t n) {
  const int32_t cur = doc.current_layer;
  save_for_undo(&StepRecord::save_record, doc.layer(cur).g[static_cast<size_t>(n)].index);
  coor_data& next = doc.coor(cur, n);
  const double l2 = refit_length_sq(p, p_z, cur, n);
  keep_extrusion_rate(next, l2);
  const double delta = (p.e + next.e_delta) - next.e;
  next.e += delta;
  set_move_length(next, l2);
  return std::fabs(delta) > negligible ? delta : 0;
}

// A line move that states no position of its own (a retraction, a lift,
// a change of feedrate) and stands where the vertex before it stood: it
// goes wherever that vertex goes.
bool follows(const g_entry& entry, PlanePoint vertex) {
  const coor_data& c = doc.coor(entry);
  return !is_arc(entry.kind) && !(c.given & (given_x | given_y)) && std::fabs(c.x - vertex.x) <= negligible &&
         std::fabs(c.y - vertex.y) <= negligible;
}

}  // namespace

bool move_marked(double dx, double dy, double de) {
  if (std::fabs(dx) <= negligible && std::fabs(dy) <= negligible && std::fabs(de) <= negligible) return false;
  const std::vector<int32_t> marked = marked_rows();
  if (marked.empty()) return true;
  const int32_t cur = doc.current_layer;
  const layer_data& ly = doc.layer(cur);
  // One walk from the first marked vertex to the end of the layer moves the
  // vertices, re-derives the move after each, and carries the changes of E
  // on: `owed` is the sum of the changes not yet added to the move at hand.
  // A move gets that sum at once instead of each change in turn, so its E
  // may differ from a vertex-by-vertex walk in the last bits of a double.
  double owed = 0;
  bool start_moved = false;  // the move before this one was moved
  PlanePoint moved_from{};   // where that move ended before
  size_t next_marked = 0;
  for (int32_t r = marked.front(); r < ly.g_count; ++r) {
    const g_entry& entry = ly.g[static_cast<size_t>(r)];
    if (restarts_e(entry)) owed = 0;
    if (!is_move(entry.kind)) continue;
    coor_data& c = doc.coor(entry);
    save_for_undo(&StepRecord::save_e, entry.index);
    c.e += owed;
    const bool marked_here = next_marked < marked.size() && marked[next_marked] == r;
    const bool follower = start_moved && !marked_here && follows(entry, moved_from);
    if (follower) {
      save_for_undo(&StepRecord::save_xy, entry.index);
      c.x += dx;
      c.y += dy;
    }
    if (start_moved || marked_here) {
      int32_t p_layer = cur;
      const coor_data p = get_state_before(p_layer, r - 1);  // the same for both steps
      const double p_z = height_before(cur, r - 1);
      if (start_moved) owed += rederive_next(p, p_z, r);
      if (marked_here) {
        moved_from = {c.x, c.y};
        move_vertex(p, p_z, r, dx, dy, de);
      }
    }
    if (!follower) start_moved = marked_here;
    next_marked += marked_here;
  }
  // The rest of the print owes what reached the end of the layer; a moved
  // last vertex re-derives the first move after the layer.
  shift_e_after(cur + 1, 0, owed);
  if (start_moved) {
    int32_t p_layer = cur;
    coor_data p = get_state_before(p_layer, ly.g_count - 1);
    int32_t n_layer = cur + 1;
    const int32_t n = find_next_move(n_layer, 0, p);
    if (n >= 0) rederive_move(p, height_before(cur, ly.g_count - 1), n_layer, n);
  }
  return true;
}

int32_t scale_marked_extrusion(double factor) {
  const std::vector<int32_t> marked = marked_rows();
  const layer_data& ly = doc.layer(doc.current_layer);
  // One walk to the end of the layer, as move_marked walks.
  double owed = 0;
  int32_t scaled = 0;
  size_t next_marked = 0;
  for (int32_t r = marked.empty() ? ly.g_count : marked.front(); r < ly.g_count; ++r) {
    const g_entry& entry = ly.g[static_cast<size_t>(r)];
    if (restarts_e(entry)) owed = 0;
    if (!is_move(entry.kind)) continue;
    const bool is_marked = next_marked < marked.size() && marked[next_marked] == r;
    next_marked += is_marked;
    coor_data& m = doc.coor(entry);
    if (!is_marked || m.no_extrude) {
      save_for_undo(&StepRecord::save_e, entry.index);
      m.e += owed;
      continue;
    }
    save_for_undo(&StepRecord::save_record, entry.index);
    const double scaled_delta = m.e_delta * factor;
    owed += scaled_delta - m.e_delta;
    m.e_delta = scaled_delta;
    m.e += owed;
    // No extrusion left: it draws and writes as a travel, as the loader reads one.
    m.no_extrude = scaled_delta <= 0;
    doc.mark_given(entry.index, given_e);
    ++scaled;
  }
  shift_e_after(doc.current_layer + 1, 0, owed);
  return scaled;
}

int32_t change_feedrate(double old_f, double new_f) {
  int32_t changed = 0;
  for (const int32_t r : lists.row_to_g) {
    if (!lists.select_flag[static_cast<size_t>(r)]) continue;
    const int32_t index = doc.layer(doc.current_layer).g[static_cast<size_t>(r)].index;
    coor_data& c = doc.coor_list[index];
    // An old feedrate of 0 or below stands for every one.
    if ((old_f <= 0 || c.f == old_f) && c.f != new_f) {
      save_for_undo(&StepRecord::save_record, index);
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
      save_for_undo(&StepRecord::save_entries, doc.current_layer);
      entry.kind = kind;
      ++changed;
    }
  }
  return changed;
}

}  // namespace korvexed
