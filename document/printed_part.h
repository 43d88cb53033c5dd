#pragma once
// Where the printed part lies, apart from what the first layers print
// around it (purge and prime lines, skirts, brims), and the layer where
// the part starts.
#include <cstdint>
#include <limits>

#include "document/arc_geometry.h"

namespace korvexed {

// A rectangle in the plane, empty until it holds a point.
struct PlaneExtent {
  double min_x = std::numeric_limits<double>::infinity(), min_y = min_x;
  double max_x = -min_x, max_y = -min_x;

  bool empty() const { return !(min_x <= max_x); }
  bool contains(PlanePoint p) const { return p.x >= min_x && p.x <= max_x && p.y >= min_y && p.y <= max_y; }
  void add(PlanePoint p);
  // The whole arc, with the points where it turns back on an axis.
  void add_arc(const Arc& arc);
};

// Both ends of every extruding move (arcs whole) of the layers after the
// first two that extrude; of every extruding move when no later layer
// extrudes; empty when nothing extrudes.
PlaneExtent PartExtent();

// The first layer with an extruding move whose ends both lie in `part`,
// else the first layer with an extruding move, else layer 0.
int32_t FirstPrintedLayer(const PlaneExtent& part);

}  // namespace korvexed
