#include "app/document_summary.h"

#include <algorithm>

namespace korvexed {

namespace {

void Include(DocumentSummary& s, double x, double y) {
  if (!s.printed) {
    s.printed = true;
    s.x_min = s.x_max = x;
    s.y_min = s.y_max = y;
    return;
  }
  s.x_min = std::min(s.x_min, x);
  s.x_max = std::max(s.x_max, x);
  s.y_min = std::min(s.y_min, y);
  s.y_max = std::max(s.y_max, y);
}

}  // namespace

DocumentSummary SummarizeDocument(const Document& document) {
  DocumentSummary s;
  s.layers = document.layer_count;
  s.tagged = document.layer_tagged == 1;
  double x = 0, y = 0;  // where the previous move ended
  for (int32_t l = 0; l < document.layer_count; ++l) {
    const layer_data& layer = document.layer_list[static_cast<size_t>(l)];
    s.records += layer.g_count;
    s.moves += layer.coor_count;
    for (int32_t i = 0; i < layer.g_count; ++i) {
      const g_entry& entry = layer.g[static_cast<size_t>(i)];
      if (!is_move(entry.kind)) continue;
      const coor_data& move = document.coor_list[entry.index];
      if (!move.no_extrude) {
        Include(s, x, y);
        Include(s, move.x, move.y);
      }
      x = move.x;
      y = move.y;
    }
  }
  return s;
}

}  // namespace korvexed
