#include "bench/tube_geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace korvexed::bench {
namespace {

constexpr int rib_count = 10;
constexpr double rib_depth = 0.04;  // of the radius
// Facet length of the model the paths are sliced from, as an STL export
// of a smooth surface would give.
constexpr double facet_length = 0.45;

int points_for(double radius) {
  return std::max(24, static_cast<int>(2 * std::numbers::pi * radius / facet_length));
}

Point rotated(Point p, Point c, double cos_a, double sin_a) {
  const double dx = p.x - c.x;
  const double dy = p.y - c.y;
  return {c.x + dx * cos_a - dy * sin_a, c.y + dx * sin_a + dy * cos_a};
}

double distance2(Point a, Point b) {
  return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

// The pieces of the horizontal line at height y that lie inside the loops
// (even-odd rule), as x intervals from left to right.
std::vector<std::pair<double, double>> scan(const std::vector<Loop>& loops, double y) {
  std::vector<double> xs;
  for (const Loop& loop : loops) {
    for (size_t i = 0; i < loop.size(); ++i) {
      const Point p = loop[i];
      const Point q = loop[(i + 1) % loop.size()];
      // Half-open on y, so a vertex on the line is crossed once.
      if ((p.y <= y && y < q.y) || (q.y <= y && y < p.y)) {
        xs.push_back(p.x + (y - p.y) / (q.y - p.y) * (q.x - p.x));
      }
    }
  }
  std::sort(xs.begin(), xs.end());
  std::vector<std::pair<double, double>> pieces;
  for (size_t i = 0; i + 1 < xs.size(); i += 2) pieces.emplace_back(xs[i], xs[i + 1]);
  return pieces;
}

}  // namespace

TubeSection::TubeSection(double size, Point center, double z, double phase)
    : center_(center),
      radius_(size / 2 / (1 + rib_depth)),
      hole_radius_(size * 0.2),
      // A slow twist, so that no two layers are alike.
      phase_(phase + z * 0.05),
      outline_points_(points_for(radius_)),
      hole_points_(points_for(hole_radius_)) {}

double TubeSection::radius_at(double angle) const {
  return radius_ * (1 + rib_depth * std::sin(rib_count * angle + phase_));
}

Loop TubeSection::outline(double inset) const {
  Loop loop(outline_points_);
  for (int i = 0; i < outline_points_; ++i) {
    const double a = 2 * std::numbers::pi * i / outline_points_;
    const double r = radius_at(a) - inset;
    loop[i] = {center_.x + r * std::cos(a), center_.y + r * std::sin(a)};
  }
  return loop;
}

Loop TubeSection::hole(double outset) const {
  // Clockwise, as slicers run around holes.
  Loop loop(hole_points_);
  const double r = hole_radius_ + outset;
  for (int i = 0; i < hole_points_; ++i) {
    const double a = -2 * std::numbers::pi * i / hole_points_;
    loop[i] = {center_.x + r * std::cos(a), center_.y + r * std::sin(a)};
  }
  return loop;
}

std::vector<Segment> TubeSection::infill(double border, double angle, double spacing) const {
  // Turn the region so that the lines run along x, cut, and turn back.
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  std::vector<Loop> loops{outline(border), hole(border)};
  double y_min = std::numeric_limits<double>::max();
  double y_max = std::numeric_limits<double>::lowest();
  for (Loop& loop : loops) {
    for (Point& p : loop) {
      p = rotated(p, center_, c, -s);
      y_min = std::min(y_min, p.y);
      y_max = std::max(y_max, p.y);
    }
  }
  std::vector<Segment> lines;
  for (double y = y_min + spacing / 2; y < y_max; y += spacing) {
    for (const auto& [x0, x1] : scan(loops, y)) {
      if (x1 - x0 > spacing / 2) {
        lines.push_back({rotated({x0, y}, center_, c, s), rotated({x1, y}, center_, c, s)});
      }
    }
  }

  // Nearest next line first, each started from its nearer end.
  std::vector<Segment> ordered;
  ordered.reserve(lines.size());
  std::vector<bool> done(lines.size(), false);
  Point at = lines.empty() ? center_ : lines.front().a;
  for (size_t n = 0; n < lines.size(); ++n) {
    size_t best = 0;
    bool flip = false;
    double best_d = std::numeric_limits<double>::max();
    for (size_t i = 0; i < lines.size(); ++i) {
      if (done[i]) continue;
      const double da = distance2(at, lines[i].a);
      const double db = distance2(at, lines[i].b);
      if (std::min(da, db) < best_d) {
        best_d = std::min(da, db);
        best = i;
        flip = db < da;
      }
    }
    done[best] = true;
    const Segment& line = lines[best];
    ordered.push_back(flip ? Segment{line.b, line.a} : line);
    at = ordered.back().b;
  }
  return ordered;
}

}  // namespace korvexed::bench
