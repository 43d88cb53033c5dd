#pragma once
// What a loaded document holds, counted in one walk: for the CLI's info and
// the editor's summary.
#include <cstdint>

#include "document/document.h"

namespace korvexed {

// An X/Y bounding box.
struct Extent {
  bool empty = true;
  double x_min = 0, x_max = 0, y_min = 0, y_max = 0;
};

struct DocumentSummary {
  int32_t layers = 0;
  int64_t records = 0;  // entries of all layers
  int64_t moves = 0;    // G1 and G0 entries
  int64_t g92 = 0;
  int64_t text = 0;
  bool tagged = false;
  double z_max = 0;
  // Every move's end point, but the G1 Z0 that every document starts with
  // (it is not part of the file).
  Extent moved;
};

DocumentSummary SummarizeDocument(const Document& document);

}  // namespace korvexed
