#pragma once
// Arcs in the plane (G2 clockwise, G3 counter-clockwise): a start S, an
// end T and a centre C = S + (i, j), swept in the arc's direction.
#include <cmath>
#include <numbers>

namespace korvexed {

inline constexpr double full_turn = 2 * std::numbers::pi;

struct PlanePoint {
  double x, y;
};

struct Arc {
  PlanePoint start, end;
  double i, j;  // the centre's offset from the start
  bool clockwise;

  PlanePoint centre() const { return {start.x + i, start.y + j}; }
  double radius() const { return std::hypot(i, j); }
  // The angle from S to T around C in the arc's direction, in (0, 2π]; a
  // full turn when they meet.
  double sweep() const;
  // The squared length along the arc, (r·θ)²; 0 for an arc without centre.
  double length_sq() const;
  // The point at `angle` from the start, in the arc's direction.
  PlanePoint at(double angle) const;
  // The angle from the start of the point of the arc nearest p.
  double nearest_angle(PlanePoint p) const;
  // Squared distance from p to the arc itself.
  double distance_sq(PlanePoint p) const;
};

// Squared distance below which two points of an arc meet.
inline constexpr double arc_ends_meet = 1e-10;

// The centre offset that an R word gives (R > 0 the arc of at most half a
// turn, R < 0 the longer one); false when it gives none (R of 0, or ends
// that meet). A chord longer than 2|R| gives the half circle over it.
bool CentreFromRadius(PlanePoint start, PlanePoint end, double r, bool clockwise, double& i, double& j);

// The centre offset of an arc whose ends moved to `start` and `end`, its
// direction kept: an arc of at most half a turn keeps its sweep, a longer
// one its radius (and stays a full circle when its ends meet). A short
// arc whose ends meet has no centre: (0, 0).
void RefitArc(Arc& arc, double old_sweep, PlanePoint start, PlanePoint end);

}  // namespace korvexed
