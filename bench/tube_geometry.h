#pragma once
// The paths of one layer of a ribbed tube: perimeter loops around the
// outline and the round hole, and infill lines between them.
#include <vector>

namespace korvexed::bench {

struct Point {
  double x = 0, y = 0;
};

// One straight infill line, printed from a to b.
struct Segment {
  Point a, b;
};

using Loop = std::vector<Point>;  // closed: the last point joins the first

class TubeSection {
 public:
  // The cross section of a tube `size` mm wide, centred on `center`, at
  // height z; `phase` turns its ribs.
  TubeSection(double size, Point center, double z, double phase);

  // The outline moved inwards by `inset` mm.
  Loop outline(double inset) const;
  // The hole's edge moved outwards (into the material) by `outset` mm.
  Loop hole(double outset) const;

  // Parallel lines at `angle` radians, `spacing` mm apart, filling the
  // material between outline(border) and hole(border), in zig-zag order:
  // each line starts at the end nearest to where the previous one ended.
  std::vector<Segment> infill(double border, double angle, double spacing) const;

  double hole_radius() const { return hole_radius_; }

 private:
  double radius_at(double angle) const;

  Point center_;
  double radius_;       // mean radius of the outline
  double hole_radius_;
  double phase_;
  int outline_points_;
  int hole_points_;
};

}  // namespace korvexed::bench
