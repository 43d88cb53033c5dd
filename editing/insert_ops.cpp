// Splitting a move of the current layer by new vertices, sharing its
// extrusion out so that the extrusion per millimetre stays as it was.
#include <cmath>

#include "editing/korvexed_data.h"
#include "editing/move_length.h"
#include "platform/platform.h"

namespace korvexed {

void insert_point(int32_t r, double x, double y) {
  const int32_t cur = doc.current_layer;
  if (doc.layer(cur).g_count >= max_data_count) {
    platform().message_box("Data count limit has been reached, cannot insert further data.", MsgIcon::exclamation,
                           MsgButtons::ok);
    return;
  }
  int32_t p_layer = cur;
  const coor_data p = get_state_before(p_layer, r - 1);
  check_d_delta(p, p_layer, cur, r);
  coor_data m = doc.coor(cur, r);
  coor_data q;
  q.x = x;
  q.y = y;
  q.f = m.f;
  q.e_relative = m.e_relative;
  const double a = dist3_sq(p.x, p.y, layer_z(p_layer), q.x, q.y, layer_z(cur));
  const double b = dist2_sq(q.x, q.y, m.x, m.y);
  // A degenerate move's extrusion is halved between the two pieces.
  q.no_extrude = m.no_extrude;
  if (m.no_extrude) {
    m.e_delta = m.e_delta / 2;
    q.e_delta = m.e_delta;
  } else {
    const double e = m.e_delta;
    const double d = m.d_delta;
    q.e_delta = std::sqrt(a / d) * e;
    m.e_delta = std::sqrt(b / d) * e;
  }
  q.e = p.e + q.e_delta;
  set_move_length(q, a);
  q.given = given_x | given_y | (q.no_extrude ? 0 : given_e);
  settle_move(m, q.e, b, cur, r);
  insert_record_before(cur, r);
  doc.coor(cur, r + 1) = m;
  doc.coor(cur, r) = q;
}

void insert_points_evenly(int32_t r, int32_t n) {
  int32_t p_layer = doc.current_layer;
  coor_data p = get_state_before(p_layer, r - 1);
  const coor_data& m = doc.coor(doc.current_layer, r);
  const double dx = (m.x - p.x) / (n + 1);
  const double dy = (m.y - p.y) / (n + 1);
  for (int32_t i = 0; i < n; ++i) {
    p.x += dx;
    p.y += dy;
    insert_point(r + i, p.x, p.y);
  }
}

}  // namespace korvexed
