// Splitting a move of the current layer by new vertices, sharing its
// extrusion out so that the extrusion per millimetre stays as it was. An
// arc splits into arcs round the same centre, in the same direction.
#include <cmath>
#include <vector>

#include "editing/korvexed_data.h"
#include "editing/move_length.h"
#include "editing/step_record.h"
#include "platform/platform.h"

namespace korvexed {

namespace {

// Where a new vertex splits a move, at which height, and the squared
// lengths of the two pieces.
struct Split {
  PlanePoint at;
  double z;
  double first_sq, second_sq;
  double angle = 0;  // on an arc: the first piece's sweep
};

// The new vertex climbs with its share of the move: of its length in the
// plane on a line, of its angle on an arc.
void climb(Split& split, double first_plane_sq, double second_plane_sq, double share, double p_z, double m_z) {
  split.z = p_z + share * (m_z - p_z);
  split.first_sq = first_plane_sq + (split.z - p_z) * (split.z - p_z);
  split.second_sq = second_plane_sq + (m_z - split.z) * (m_z - split.z);
}

Split split_line(const coor_data& p, double p_z, const coor_data& m, double m_z, double x, double y) {
  Split split{{x, y}, 0, 0, 0};
  const double first = dist2_sq(p.x, p.y, x, y), second = dist2_sq(x, y, m.x, m.y);
  const double whole = std::sqrt(first) + std::sqrt(second);
  climb(split, first, second, whole > 0 ? std::sqrt(first) / whole : 0, p_z, m_z);
  return split;
}

Split split_arc(const Arc& arc, double p_z, double m_z, double angle) {
  Split split{arc.at(angle), 0, 0, 0, angle};
  const double first = arc.radius() * angle, second = arc.radius() * (arc.sweep() - angle);
  climb(split, first * first, second * second, angle / arc.sweep(), p_z, m_z);
  return split;
}

// The whole arc that record r of the current layer ends.
Arc arc_ending(int32_t r) {
  int32_t p_layer = doc.current_layer;
  const coor_data p = get_state_before(p_layer, r - 1);
  return doc.arc_from({p.x, p.y}, doc.layer(doc.current_layer).g[static_cast<size_t>(r)]);
}

}  // namespace

void insert_point(int32_t r, double x, double y) {
  const int32_t cur = doc.current_layer;
  if (doc.layer(cur).g_count >= max_data_count) {
    platform().message_box("Data count limit has been reached, cannot insert further data.", MsgIcon::exclamation,
                           MsgButtons::ok);
    return;
  }
  int32_t p_layer = cur;
  const coor_data p = get_state_before(p_layer, r - 1);
  const double p_z = height_before(cur, r - 1), m_z = move_z(cur, r);
  check_d_delta(p, p_z, cur, r);
  const g_entry entry = doc.layer(cur).g[static_cast<size_t>(r)];
  save_for_undo(&StepRecord::save_record, entry.index);
  coor_data m = doc.coor(entry);
  const bool arc = is_arc(entry.kind);
  const Arc whole = arc ? doc.arc_from({p.x, p.y}, entry) : Arc{};
  const Split split =
      arc ? split_arc(whole, p_z, m_z, whole.nearest_angle({x, y})) : split_line(p, p_z, m, m_z, x, y);
  coor_data q;
  q.x = split.at.x;
  q.y = split.at.y;
  q.f = m.f;
  q.e_relative = m.e_relative;
  const double a = split.first_sq;
  const double b = split.second_sq;
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
  const int32_t q_index = doc.layer(cur).g[static_cast<size_t>(r)].index;
  if (split.z != doc.layer(cur).z) doc.z_list.add({q_index, split.z});
  if (arc) {
    // Both pieces turn round the arc's centre.
    const PlanePoint centre = whole.centre();
    doc.add_arc(q_index, centre.x - p.x, centre.y - p.y, split.angle);
    save_for_undo(&StepRecord::save_arc, entry.index);
    arc_data& rest = doc.arc(entry.index);
    rest.i = centre.x - q.x;
    rest.j = centre.y - q.y;
    rest.sweep = whole.sweep() - split.angle;
  }
}

void insert_points_evenly(int32_t r, int32_t n) {
  // The points are placed on the whole move first: each insertion
  // shortens it.
  std::vector<PlanePoint> points;
  if (is_arc(doc.layer(doc.current_layer).g[static_cast<size_t>(r)].kind)) {
    const Arc arc = arc_ending(r);
    for (int32_t i = 1; i <= n; ++i) points.push_back(arc.at(arc.sweep() * i / (n + 1)));
  } else {
    int32_t p_layer = doc.current_layer;
    const coor_data p = get_state_before(p_layer, r - 1);
    const coor_data& m = doc.coor(doc.current_layer, r);
    for (int32_t i = 1; i <= n; ++i)
      points.push_back({p.x + (m.x - p.x) * i / (n + 1), p.y + (m.y - p.y) * i / (n + 1)});
  }
  for (int32_t i = 0; i < n; ++i) insert_point(r + i, points[static_cast<size_t>(i)].x, points[static_cast<size_t>(i)].y);
}

}  // namespace korvexed
