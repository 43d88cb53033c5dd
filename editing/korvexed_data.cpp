#include "editing/korvexed_data.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "editing/list_state.h"
#include "editing/move_length.h"
#include "editing/step_record.h"
#include "platform/platform.h"

namespace korvexed {

namespace {

// One step of the backward walk of get_state_before; true when it ends
// the walk. A G92 met first (later in the file) wins over older values.
bool take_state(coor_data& s, const g_entry& entry) {
  if (!is_coordinate(entry.kind)) return false;
  const coor_data& c = doc.coor(entry);
  if (s.x == no_value) s.x = c.x;
  if (s.y == no_value) s.y = c.y;
  if (s.e == no_value) s.e = c.e;
  if (s.f == no_value) s.f = c.f;
  if (entry.kind == line_kind::g92) return s.x != no_value && s.y != no_value && s.e != no_value && s.f != no_value;
  s.e_delta = c.e_delta;
  s.d_delta = c.d_delta;
  return true;
}

coor_data zero_missing(coor_data s) {
  for (double* v : {&s.x, &s.y, &s.e, &s.f})
    if (*v == no_value) *v = 0;
  return s;
}

}  // namespace

coor_data get_state_before(int32_t& layer, int32_t r) {
  coor_data s;
  s.x = s.y = s.e = s.f = no_value;
  const int32_t start = layer;
  for (int32_t l = start; l >= 0; --l) {
    layer = l;
    const layer_data& ly = doc.layer(l);
    for (int32_t i = l == start ? r : ly.g_count - 1; i >= 0; --i)
      if (take_state(s, ly.g[static_cast<size_t>(i)])) return zero_missing(s);
  }
  return zero_missing(s);
}

double height_before(int32_t layer, int32_t r) {
  for (; layer >= 0; --layer, r = INT32_MAX) {
    const layer_data& ly = doc.layer(layer);
    for (int32_t i = std::min(r, ly.g_count - 1); i >= 0; --i)
      if (is_move(ly.g[static_cast<size_t>(i)].kind)) return doc.move_z(ly.g[static_cast<size_t>(i)], ly);
  }
  return 0;
}

double move_z(int32_t layer, int32_t r) {
  const layer_data& ly = doc.layer(layer);
  return doc.move_z(ly.g[static_cast<size_t>(r)], ly);
}

int32_t find_next_move(int32_t& layer, int32_t r, coor_data& state) {
  for (int32_t l = layer; l < doc.layer_count; ++l, r = 0) {
    const layer_data& ly = doc.layer(l);
    for (int32_t i = r; i < ly.g_count; ++i) {
      const g_entry& entry = ly.g[static_cast<size_t>(i)];
      if (is_move(entry.kind)) {
        layer = l;
        return i;
      }
      if (entry.kind == line_kind::g92) {
        // A position reset between the edit and the next move counts.
        const coor_data& c = doc.coor(entry);
        if (c.x != no_value) state.x = c.x;
        if (c.y != no_value) state.y = c.y;
        if (c.e != no_value) state.e = c.e;
        if (c.f != no_value) state.f = c.f;
      }
    }
  }
  layer = doc.layer_count;
  return -1;
}

void shift_e_after(int32_t layer, int32_t r, double delta) {
  if (std::fabs(delta) <= negligible) return;
  for (; layer < doc.layer_count; ++layer, r = 0) {
    const layer_data& ly = doc.layer(layer);
    for (int32_t i = r; i < ly.g_count; ++i) {
      const g_entry& entry = ly.g[static_cast<size_t>(i)];
      if (is_move(entry.kind)) {
        save_for_undo(&StepRecord::save_e, entry.index);
        doc.coor(entry).e += delta;
      } else if (restarts_e(entry)) {
        return;
      }
    }
  }
}

bool restarts_e(const g_entry& entry) { return entry.kind == line_kind::g92 && doc.coor(entry).e != no_value; }

void insert_entry_before(int32_t layer, int32_t r, g_entry entry) {
  save_for_undo(&StepRecord::save_entries, layer);
  layer_data& ly = doc.layer(layer);
  doc.ensure_g_capacity(ly);
  const auto at = ly.g.begin() + r;
  std::copy_backward(at, ly.g.begin() + ly.g_count, ly.g.begin() + ly.g_count + 1);
  *at = entry;
  ++ly.g_count;
  if (is_move(entry.kind)) ++ly.coor_count;
  if (layer == doc.current_layer) ListRowInserted(r);
}

void insert_record_before(int32_t layer, int32_t r) {
  // The new record keeps the kind of the record it displaces.
  insert_entry_before(layer, r, {doc.layer(layer).g[static_cast<size_t>(r)].kind, doc.new_coor_record()});
}

void delete_record(int32_t layer, int32_t r) { delete_records(layer, {&r, 1}); }

void delete_records(int32_t layer, std::span<const int32_t> rows) {
  save_for_undo(&StepRecord::save_entries, layer);
  layer_data& ly = doc.layer(layer);
  // The entries that stay close up in one pass.
  int32_t kept = 0;
  size_t next = 0;
  for (int32_t i = 0; i < ly.g_count; ++i) {
    const g_entry entry = ly.g[static_cast<size_t>(i)];
    if (next < rows.size() && rows[next] == i) {
      ++next;
      if (is_move(entry.kind)) --ly.coor_count;
      continue;
    }
    ly.g[static_cast<size_t>(kept++)] = entry;
  }
  ly.g_count = kept;
  if (layer == doc.current_layer) ListRowsRemoved(rows);
}

void rederive_move(const coor_data& p, double p_z, int32_t layer, int32_t r) {
  save_for_undo(&StepRecord::save_record, doc.layer(layer).g[static_cast<size_t>(r)].index);
  coor_data& m = doc.coor(layer, r);
  const double l2 = refit_length_sq(p, p_z, layer, r);
  keep_extrusion_rate(m, l2);
  settle_move(m, p.e, l2, layer, r);
}

void settle_move(coor_data& m, double e_before, double l2, int32_t layer, int32_t r) {
  const double e = e_before + m.e_delta;
  const double delta = e - m.e;
  m.e = e;
  set_move_length(m, l2);
  shift_e_after(layer, r + 1, delta);
}

bool check_d_delta(const coor_data& p, double p_z, int32_t layer, int32_t r) {
  const coor_data& m = doc.coor(layer, r);
  const double l2 = move_length_sq(p, p_z, layer, r);
  if (std::fabs(l2 - m.d_delta) < negligible) return true;
  platform().message_box("for debug purpose: d_delta is not tally at layer_list(" + std::to_string(layer) + ").g(" +
                             std::to_string(r) + ") please report to the developer",
                         MsgIcon::critical, MsgButtons::ok);
  return false;
}

double move_length_sq(const coor_data& p, double p_z, int32_t layer, int32_t r) {
  const double rise = move_z(layer, r) - p_z;
  return doc.plane_length_sq({p.x, p.y}, doc.layer(layer).g[static_cast<size_t>(r)]) + rise * rise;
}

double refit_length_sq(const coor_data& p, double p_z, int32_t layer, int32_t r) {
  const g_entry& entry = doc.layer(layer).g[static_cast<size_t>(r)];
  if (is_arc(entry.kind)) {
    save_for_undo(&StepRecord::save_arc, entry.index);
    doc.fit_arc(entry, {p.x, p.y});
  }
  return move_length_sq(p, p_z, layer, r);
}

double dist2_sq(double x1, double y1, double x2, double y2) {
  return (x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1);
}

void normalize_rect(double& x1, double& y1, double& x2, double& y2) {
  if (x1 > x2) std::swap(x1, x2);
  if (y1 > y2) std::swap(y1, y2);
}

bool point_in_rect(double px, double py, double x1, double y1, double x2, double y2) {
  return x1 <= px && px <= x2 && y1 <= py && py <= y2;
}

double seg_dist_sq(double x1, double y1, double x2, double y2, double px, double py) {
  const double s = (x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1);
  if (s <= negligible) return dist2_sq(x1, y1, px, py);
  const double t = std::clamp(((px - x1) * (x2 - x1) + (py - y1) * (y2 - y1)) / s, 0.0, 1.0);
  return dist2_sq(x1 + t * (x2 - x1), y1 + t * (y2 - y1), px, py);
}

void replace_text_record(int32_t r, const std::string& text) {
  const int32_t index = doc.layer(doc.current_layer).g[static_cast<size_t>(r)].index;
  save_for_undo(&StepRecord::save_text, index);
  doc.text_list[index] = text;
}

}  // namespace korvexed
