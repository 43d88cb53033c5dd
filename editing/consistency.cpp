#include "editing/consistency.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "editing/korvexed_data.h"

namespace korvexed {

namespace {

// E is cumulative and every shift rounds once, so stored values drift from
// a fresh sum by a few units in the last place: equal within 1e-9 of their
// magnitude (at least 1).
bool tally(double stored, double expected) {
  return std::fabs(stored - expected) <= 1e-9 * std::max({1.0, std::fabs(stored), std::fabs(expected)});
}

std::string failure(int32_t layer, int32_t r, const char* field, double stored, double expected) {
  char text[160];
  std::snprintf(text, sizeof text, "layer %d record %d: %s %.17g, expected %.17g", layer, r, field, stored, expected);
  return text;
}

}  // namespace

std::string CheckConsistency() {
  for (int32_t l = 0; l < doc.layer_count; ++l) {
    const layer_data& ly = doc.layer(l);
    for (int32_t r = 0; r < ly.g_count; ++r) {
      if (!is_move(ly.g[static_cast<size_t>(r)].kind)) continue;
      int32_t p_layer = l;
      const coor_data p = get_state_before(p_layer, r - 1);
      const coor_data& m = doc.coor(l, r);
      const double e = p.e + m.e_delta;
      if (!tally(m.e, e)) return failure(l, r, "e", m.e, e);
      const double l2 = move_length_sq(p, height_before(l, r - 1), l, r);
      if (!tally(m.d_delta, l2)) return failure(l, r, "d_delta", m.d_delta, l2);
    }
  }
  return "";
}

}  // namespace korvexed
