#pragma once
// The tool path of one layer in the picture.
#include <cstdint>

namespace korvexed {

// Draws layer `layer`: the current layer in full colour and only its rows
// on view in the data list, another layer at half brightness and whole.
// Extrusion and travel (when shown) with their arrows (when shown), a dot
// on every vertex, a square at the start and one at the end.
void DrawLayer(int32_t layer, bool current);
// A square around every marked vertex of the current layer.
void DrawSelectionSquares();

}  // namespace korvexed
