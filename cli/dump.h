#pragma once
// The dump format: the loaded document, one line per layer and per entry,
// every number as printf's "%.17g" writes it.
#include <cstdio>

namespace korvexed::cli {

// Writes the dump of the document to `out`; false when writing failed.
bool WriteDump(std::FILE* out);

}  // namespace korvexed::cli
