#include "document/arc_geometry.h"

namespace korvexed {

namespace {

double dist_sq(PlanePoint a, PlanePoint b) { return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y); }

// An angle brought into [0, 2π).
double normalized(double angle) {
  angle = std::fmod(angle, full_turn);
  return angle < 0 ? angle + full_turn : angle;
}

// The centre at `h` from the middle of the chord, on the left of the way
// from start to end for a positive `side`.
void centre_beside_chord(PlanePoint start, PlanePoint end, double h, double side, double& i, double& j) {
  const double d = std::sqrt(dist_sq(start, end));
  const double left_x = -(end.y - start.y) / d, left_y = (end.x - start.x) / d;
  i = (end.x - start.x) / 2 + side * h * left_x;
  j = (end.y - start.y) / 2 + side * h * left_y;
}

}  // namespace

double Arc::sweep() const {
  if (dist_sq(start, end) <= arc_ends_meet) return full_turn;
  // The angle between the radii to the ends, from one arctangent.
  const double ux = -i, uy = -j;
  const double vx = end.x - start.x - i, vy = end.y - start.y - j;
  const double cross = ux * vy - uy * vx, dot = ux * vx + uy * vy;
  const double angle = std::atan2(clockwise ? -cross : cross, dot);
  return angle > 0 ? angle : angle + full_turn;
}

double Arc::length_sq() const {
  if (i == 0 && j == 0) return 0;
  const double length = radius() * sweep();
  return length * length;
}

PlanePoint Arc::at(double angle) const {
  const PlanePoint c = centre();
  const double a = std::atan2(-j, -i) + (clockwise ? -angle : angle);
  const double r = radius();
  return {c.x + r * std::cos(a), c.y + r * std::sin(a)};
}

double Arc::nearest_angle(PlanePoint p) const {
  const PlanePoint c = centre();
  const double from = std::atan2(-j, -i);
  const double to_p = std::atan2(p.y - c.y, p.x - c.x);
  const double offset = normalized(clockwise ? from - to_p : to_p - from);
  const double theta = sweep();
  if (offset <= theta) return offset;
  // Beyond the end: whichever end is nearer round the circle.
  return offset - theta < full_turn - offset ? theta : 0;
}

double Arc::distance_sq(PlanePoint p) const {
  const double angle = nearest_angle(p);
  if (angle == 0) return dist_sq(p, start);
  if (angle == sweep()) return dist_sq(p, end);
  return dist_sq(p, at(angle));
}

bool CentreFromRadius(PlanePoint start, PlanePoint end, double r, bool clockwise, double& i, double& j) {
  const double d_sq = dist_sq(start, end);
  if (r == 0 || d_sq <= arc_ends_meet) return false;
  const double h_sq = r * r - d_sq / 4;
  const double h = h_sq > 0 ? std::sqrt(h_sq) : 0;
  // The short way round has the centre on the left when counter-clockwise.
  const double side = (clockwise != (r < 0)) ? -1 : 1;
  centre_beside_chord(start, end, h, side, i, j);
  return true;
}

void RefitArc(Arc& arc, double old_sweep, PlanePoint start, PlanePoint end) {
  const double old_radius = arc.radius();
  arc.start = start;
  arc.end = end;
  const bool ends_meet = dist_sq(start, end) <= arc_ends_meet;
  if (old_sweep <= std::numbers::pi) {
    if (ends_meet) {
      arc.i = arc.j = 0;
      return;
    }
    // The same sweep over the new chord: the centre at cot(θ/2)/2 chord
    // lengths from its middle.
    const double h = std::sqrt(dist_sq(start, end)) / (2 * std::tan(old_sweep / 2));
    centre_beside_chord(start, end, h, arc.clockwise ? -1 : 1, arc.i, arc.j);
  } else if (!ends_meet) {
    CentreFromRadius(start, end, -old_radius, arc.clockwise, arc.i, arc.j);
  }
}

}  // namespace korvexed
