#pragma once
// The two halves of re-deriving a move whose squared length becomes l2.
#include <cmath>

#include "document/document.h"

namespace korvexed {

// Keeps the move's extrusion per millimetre; a degenerate move keeps its
// extrusion as it is.
inline void keep_extrusion_rate(coor_data& m, double l2) {
  if (!m.no_extrude) m.e_delta = m.e_delta * std::sqrt(l2 / m.d_delta);
}

// Stores the new length; a move once degenerate is never scaled again.
inline void set_move_length(coor_data& m, double l2) {
  m.d_delta = l2;
  if (l2 <= negligible) m.no_extrude = true;
}

// Gives move m, record r of `layer`, the E of the state before it plus its
// own extrusion and the new length, and carries the change of its E on.
void settle_move(coor_data& m, double e_before, double l2, int32_t layer, int32_t r);

}  // namespace korvexed
