#pragma once
// A print whose middle layer holds 50,000 moves, for the edits and the
// redraws of one large layer.
#include <string>

namespace korvexed::bench {

// Writes the print beside `beside` (a path in the build tree), loads it
// and removes the file again. Layer 1 is the large one: rows of 400 moves
// 0.1 mm apart, each row reached by a travel from the end of the last;
// with `arcs`, rows of 400 arcs, 1 mm apart and turning either way, as
// arc-fitting slicers write curves.
bool LoadLargeLayerPrint(const std::string& beside, bool arcs = false);

}  // namespace korvexed::bench
