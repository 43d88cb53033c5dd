#pragma once
// Carrying changes of E forward, several at once: each record still gets
// the deltas added one by one in their order, so the sums are exactly
// those of one walk per delta.
#include <cstdint>
#include <span>

namespace korvexed {

// Adds the deltas to e of the moves of `layer` from record r on; false when
// a G92 that gives E ended the walk inside the layer.
bool add_to_e_in_layer(int32_t layer, int32_t r, std::span<const double> deltas);
// The same, on through the later layers up to the first G92 that gives E.
void add_to_e_from(int32_t layer, int32_t r, std::span<const double> deltas);

}  // namespace korvexed
