#pragma once
// A short human-readable summary of the loaded document.
#include <cstdio>

namespace korvexed::cli {

// "key: value" lines: file, layers, records, moves, g92, text, tagged,
// the X/Y extent of the moves and the top Z.
void WriteInfo(std::FILE* out);

}  // namespace korvexed::cli
