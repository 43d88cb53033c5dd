#pragma once
// The tool path of one layer in the picture.
#include <cstdint>

#include "document/document.h"
#include "view/bitmap.h"

namespace korvexed {

// Draws layer `layer`: the current layer in full colour and only its rows
// on view in the data list, another layer at half brightness and whole.
// Extrusion and travel (when shown) with their arrows (when shown), a dot
// on every vertex, a square at the start and one at the end.
void DrawLayer(int32_t layer, bool current);
// The line or arc of move entry `entry` from `from`, over the picture in
// `colour`, with its arrow when arrows are shown.
void DrawMoveOver(PlanePoint from, const g_entry& entry, Rgb colour);
// A square around every marked vertex of the current layer.
void DrawSelectionSquares();

}  // namespace korvexed
