#include "document/document_summary.h"

#include <algorithm>
#include <limits>

namespace korvexed {

DocumentSummary SummarizeDocument(const Document& document) {
  DocumentSummary s;
  s.layers = document.layer_count;
  s.tagged = document.layer_tagged == 1;
  // Bounds start beyond every coordinate, so the first move sets them
  // without a test per move.
  constexpr double far = std::numeric_limits<double>::infinity();
  double x_min = far, x_max = -far, y_min = far, y_max = -far;
  for (int32_t l = 0; l < document.layer_count; ++l) {
    const layer_data& layer = document.layer_list[static_cast<size_t>(l)];
    s.records += layer.g_count;
    s.moves += layer.coor_count;
    s.z_max = std::max(s.z_max, layer.z);
    for (int32_t i = 0; i < layer.g_count; ++i) {
      const g_entry& entry = layer.g[static_cast<size_t>(i)];
      s.g92 += entry.kind == line_kind::g92;
      s.text += entry.kind == line_kind::text;
      // The G1 Z0 that every document starts with is not part of the file.
      if (!is_move(entry.kind) || (l == 0 && i == 0)) continue;
      const coor_data& move = document.coor_list[entry.index];
      x_min = std::min(x_min, move.x);
      x_max = std::max(x_max, move.x);
      y_min = std::min(y_min, move.y);
      y_max = std::max(y_max, move.y);
    }
  }
  if (x_min <= x_max) s.moved = {false, x_min, x_max, y_min, y_max};
  return s;
}

}  // namespace korvexed
