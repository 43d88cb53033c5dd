#include "document/printed_part.h"

#include <algorithm>
#include <cmath>

#include "document/document.h"

namespace korvexed {

namespace {

// Calls visit(layer, from, entry, record) for every extruding move in file
// order, `from` being where the nozzle stood before it, until visit
// returns true.
template <typename Visit>
void WalkExtrudingMoves(Visit&& visit) {
  PlanePoint at{0, 0};
  for (int32_t l = 0; l < doc.layer_count; ++l) {
    const layer_data& ly = doc.layer(l);
    for (int32_t j = 0; j < ly.g_count; ++j) {
      const g_entry& entry = ly.g[static_cast<size_t>(j)];
      if (entry.kind == line_kind::g92) {
        const coor_data& reset = doc.coor(entry);
        if (reset.x != no_value) at.x = reset.x;
        if (reset.y != no_value) at.y = reset.y;
        continue;
      }
      if (!is_move(entry.kind)) continue;
      const coor_data& record = doc.coor(entry);
      if (!record.no_extrude && visit(l, at, entry, record)) return;
      at = {record.x, record.y};
    }
  }
}

}  // namespace

void PlaneExtent::add(PlanePoint p) {
  min_x = std::min(min_x, p.x);
  max_x = std::max(max_x, p.x);
  min_y = std::min(min_y, p.y);
  max_y = std::max(max_y, p.y);
}

void PlaneExtent::add_arc(const Arc& arc) {
  add(arc.start);
  add(arc.end);
  const PlanePoint c = arc.centre();
  const double r = arc.radius(), sweep = arc.sweep(), start = std::atan2(-arc.j, -arc.i);
  // East, north, west and south of the centre, where they lie on the arc.
  constexpr PlanePoint axes[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  for (int k = 0; k < 4; ++k) {
    const double axis = k * (full_turn / 4);
    double turn = std::fmod(arc.clockwise ? start - axis : axis - start, full_turn);
    if (turn < 0) turn += full_turn;
    if (turn <= sweep) add({c.x + r * axes[k].x, c.y + r * axes[k].y});
  }
}

PlaneExtent PartExtent() {
  PlaneExtent first_two, later;
  int32_t extruding_layers = 0, last_layer = -1;
  WalkExtrudingMoves([&](int32_t layer, PlanePoint from, const g_entry& entry, const coor_data& record) {
    if (layer != last_layer) {
      ++extruding_layers;
      last_layer = layer;
    }
    PlaneExtent& extent = extruding_layers > 2 ? later : first_two;
    if (is_arc(entry.kind)) {
      extent.add_arc(doc.arc_from(from, entry));
    } else {
      extent.add(from);
      extent.add({record.x, record.y});
    }
    return false;
  });
  return later.empty() ? first_two : later;
}

int32_t FirstPrintedLayer(const PlaneExtent& part) {
  int32_t first_extruding = -1, first_inside = -1;
  WalkExtrudingMoves([&](int32_t layer, PlanePoint from, const g_entry&, const coor_data& record) {
    if (first_extruding < 0) first_extruding = layer;
    if (!part.contains(from) || !part.contains({record.x, record.y})) return false;
    first_inside = layer;
    return true;
  });
  return first_inside >= 0 ? first_inside : std::max(first_extruding, 0);
}

}  // namespace korvexed
