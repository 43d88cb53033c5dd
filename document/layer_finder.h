#pragma once
// Finding the layers a print was printed in, once the whole file is read:
// a lift of the nozzle, its travel and its return stay in their layer, and
// a spiral (vase) print is cut into one layer a turn.
#include <cstdint>

namespace korvexed {

// The loader reports every move it adds, in file order: the entry's
// position among all loaded entries, its height, and whether it extrudes
// in the plane (more E over a length in X/Y that is not negligible).
void NoteMoveHeight(uint32_t position, double z, bool extrudes_in_plane);
// Forgets what was noted (a new load).
void ClearMoveHeights();

// Cuts the document, loaded as one layer, into its printed layers, each
// with the height of its first move; keeps the own height of every move
// that differs from its layer's. Layers and entries beyond the limits are
// dropped, setting data_limit_hit.
void FindLayers();

}  // namespace korvexed
