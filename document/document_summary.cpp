#include "document/document_summary.h"

#include <algorithm>

namespace korvexed {

void Extent::add(double x, double y) {
  if (empty) {
    empty = false;
    x_min = x_max = x;
    y_min = y_max = y;
    return;
  }
  x_min = std::min(x_min, x);
  x_max = std::max(x_max, x);
  y_min = std::min(y_min, y);
  y_max = std::max(y_max, y);
}

DocumentSummary SummarizeDocument(const Document& document) {
  DocumentSummary s;
  s.layers = document.layer_count;
  s.tagged = document.layer_tagged == 1;
  double x = 0, y = 0;  // where the previous move ended
  for (int32_t l = 0; l < document.layer_count; ++l) {
    const layer_data& layer = document.layer_list[static_cast<size_t>(l)];
    s.records += layer.g_count;
    s.moves += layer.coor_count;
    s.z_max = std::max(s.z_max, layer.z);
    for (int32_t i = 0; i < layer.g_count; ++i) {
      const g_entry& entry = layer.g[static_cast<size_t>(i)];
      s.g92 += entry.kind == line_kind::g92;
      s.text += entry.kind == line_kind::text;
      if (!is_move(entry.kind)) continue;
      const coor_data& move = document.coor_list[entry.index];
      if (l > 0 || i > 0) s.moved.add(move.x, move.y);
      if (!move.no_extrude) {
        s.printed.add(x, y);
        s.printed.add(move.x, move.y);
      }
      x = move.x;
      y = move.y;
    }
  }
  return s;
}

}  // namespace korvexed
