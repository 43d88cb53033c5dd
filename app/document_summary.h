#pragma once
#include <cstdint>

#include "document/document.h"

namespace korvexed {

struct DocumentSummary {
  int32_t layers = 0;
  int64_t records = 0;  // entries of all layers
  int64_t moves = 0;    // G1 and G0 entries
  bool tagged = false;
  // The area the extruding moves cover, start points included.
  bool printed = false;
  double x_min = 0, x_max = 0, y_min = 0, y_max = 0;
};

DocumentSummary SummarizeDocument(const Document& document);

}  // namespace korvexed
