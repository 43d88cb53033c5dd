// Picking vertices and segments of the current layer near the mouse, and
// marking vertices with a rubber band.
#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "platform/platform.h"
#include "view/world_view.h"

namespace korvexed {

namespace {

// Five pixels in world units, squared, so picking feels the same at every
// zoom.
double pick_radius_sq() {
  const double radius = 5 / view.view_scale;
  return radius * radius;
}

}  // namespace

int32_t pick_vertex(int32_t mx, int32_t my, bool marked_only) {
  double wx, wy;
  PixelToWorld(mx, my, wx, wy);
  return pick_vertex_world(wx, wy, marked_only);
}

int32_t pick_vertex_world(double wx, double wy, bool marked_only) {
  double best = pick_radius_sq();
  int32_t result = -1;
  for (const int32_t r : lists.row_to_g) {
    if (marked_only && !lists.select_flag[static_cast<size_t>(r)]) continue;
    const coor_data& c = doc.coor(doc.current_layer, r);
    const double d = dist2_sq(c.x, c.y, wx, wy);
    if (d < best) {
      best = d;
      result = r;
    }
  }
  return result;
}

int32_t pick_segment(int32_t mx, int32_t my, double& start_x, double& start_y) {
  double wx, wy;
  PixelToWorld(mx, my, wx, wy);
  return pick_segment_world(wx, wy, start_x, start_y);
}

int32_t pick_segment_world(double wx, double wy, double& start_x, double& start_y) {
  double best = pick_radius_sq();
  int32_t result = -1;
  int32_t p_layer = doc.current_layer;
  coor_data p = get_state_before(p_layer, -1);
  const layer_data& ly = doc.layer(doc.current_layer);
  for (int32_t i = 0; i < ly.g_count; ++i) {
    const g_entry& entry = ly.g[static_cast<size_t>(i)];
    if (!is_coordinate(entry.kind)) continue;
    const coor_data& c = doc.coor(entry);
    if (entry.kind == line_kind::g92) {
      if (c.x != no_value) p.x = c.x;
      if (c.y != no_value) p.y = c.y;
      continue;
    }
    if (lists.data_selected[static_cast<size_t>(i)]) {
      // An arc is picked along itself, not along its chord.
      const double d = is_arc(entry.kind) ? doc.arc_from({p.x, p.y}, entry).distance_sq({wx, wy})
                                          : seg_dist_sq(p.x, p.y, c.x, c.y, wx, wy);
      if (d < best) {
        best = d;
        result = i;
        start_x = p.x;
        start_y = p.y;
      }
    }
    p.x = c.x;
    p.y = c.y;
  }
  return result;
}

bool mark_in_rect(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  double wx1, wy1, wx2, wy2;
  PixelToWorld(x1, y1, wx1, wy1);
  PixelToWorld(x2, y2, wx2, wy2);
  return mark_in_rect_world(wx1, wy1, wx2, wy2);
}

bool mark_in_rect_world(double x1, double y1, double x2, double y2) {
  normalize_rect(x1, y1, x2, y2);
  const Modifiers keys = platform().key_state();
  for (const int32_t r : lists.row_to_g) {
    const coor_data& c = doc.coor(doc.current_layer, r);
    uint8_t& flag = lists.select_flag[static_cast<size_t>(r)];
    if (!point_in_rect(c.x, c.y, x1, y1, x2, y2)) {
      if (!keys.any()) flag = 0;  // a plain rectangle replaces the marking
    } else if (keys.ctrl) {
      flag = flag == 1 ? 0 : 1;
    } else {
      flag = keys.alt ? 0 : 1;
    }
  }
  return true;
}

}  // namespace korvexed
