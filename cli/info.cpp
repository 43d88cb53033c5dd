#include "cli/info.h"

#include <algorithm>
#include <limits>
#include <string>

#include "document/document.h"
#include "document/korvexed_general.h"

namespace korvexed::cli {

namespace {

struct Extent {
  double xmin = std::numeric_limits<double>::infinity();
  double xmax = -std::numeric_limits<double>::infinity();
  double ymin = xmin, ymax = xmax;
  bool empty() const { return xmin > xmax; }
  void add(const coor_data& c) {
    xmin = std::min(xmin, c.x);
    xmax = std::max(xmax, c.x);
    ymin = std::min(ymin, c.y);
    ymax = std::max(ymax, c.y);
  }
};

struct Counts {
  int64_t records = 0, moves = 0, g92 = 0, text = 0;
  Extent extent;
  double z_max = 0;
};

Counts CountDocument() {
  Counts counts;
  for (int32_t i = 0; i < doc.layer_count; ++i) {
    const layer_data& layer = doc.layer(i);
    counts.records += layer.g_count;
    counts.moves += layer.coor_count;
    counts.z_max = std::max(counts.z_max, layer.z);
    // Entry 0 of layer 0 is the G1 Z0 that every document starts with; it
    // is not part of the file, so it does not widen the extent.
    for (int32_t j = i == 0 ? 1 : 0; j < layer.g_count; ++j) {
      const g_entry& entry = layer.g[static_cast<size_t>(j)];
      if (is_move(entry.kind)) counts.extent.add(doc.coor(entry));
      counts.g92 += entry.kind == line_kind::g92;
      counts.text += entry.kind == line_kind::text;
    }
  }
  return counts;
}

void Line(std::FILE* out, const char* key, const std::string& value) {
  std::fprintf(out, "%s: %s\n", key, value.c_str());
}

// An extent bound, or "none" when the document holds no move.
std::string Bound(double value, const Extent& extent) { return extent.empty() ? "none" : FormatNumber(value, true); }

}  // namespace

void WriteInfo(std::FILE* out) {
  const Counts counts = CountDocument();
  Line(out, "file", doc.file_name);
  Line(out, "layers", std::to_string(doc.layer_count));
  Line(out, "records", std::to_string(counts.records));
  Line(out, "moves", std::to_string(counts.moves));
  Line(out, "g92", std::to_string(counts.g92));
  Line(out, "text", std::to_string(counts.text));
  Line(out, "tagged", std::to_string(doc.layer_tagged));
  Line(out, "x-min", Bound(counts.extent.xmin, counts.extent));
  Line(out, "x-max", Bound(counts.extent.xmax, counts.extent));
  Line(out, "y-min", Bound(counts.extent.ymin, counts.extent));
  Line(out, "y-max", Bound(counts.extent.ymax, counts.extent));
  Line(out, "z-max", FormatNumber(counts.z_max, true));
}

}  // namespace korvexed::cli
