#pragma once
// An arc drawn as chords that stray at most half a pixel from it.
#include <algorithm>
#include <cmath>

#include "document/arc_geometry.h"

namespace korvexed {

// Calls `chord_end` with the end of each chord of `arc` at `scale` pixels
// per millimetre, in order, the arc's own end last. The points between
// are turned one from the other, with no trigonometry per point.
template <typename ChordEnd>
void ForEachArcChord(const Arc& arc, double scale, ChordEnd&& chord_end) {
  constexpr double most_chords = 1 << 16;
  const double theta = arc.sweep();
  const double radius_px = arc.radius() * scale;
  // A chord of angle a strays r(1 - cos(a/2)) from its arc.
  const double step_limit = radius_px > 0.5 ? 2 * std::acos(1 - 0.5 / radius_px) : theta;
  const int chords = static_cast<int>(std::clamp(std::ceil(theta / step_limit), 1.0, most_chords));
  const double step = (arc.clockwise ? -theta : theta) / chords;
  const double c = std::cos(step), s = std::sin(step);
  const PlanePoint centre = arc.centre();
  double vx = -arc.i, vy = -arc.j;
  for (int k = 1; k < chords; ++k) {
    const double x = vx * c - vy * s;
    vy = vx * s + vy * c;
    vx = x;
    chord_end(PlanePoint{centre.x + vx, centre.y + vy});
  }
  chord_end(arc.end);
}

}  // namespace korvexed
