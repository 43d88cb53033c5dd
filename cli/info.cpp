#include "cli/info.h"

#include <string>

#include "document/document_summary.h"
#include "document/korvexed_general.h"

namespace korvexed::cli {

namespace {

void Line(std::FILE* out, const char* key, const std::string& value) {
  std::fprintf(out, "%s: %s\n", key, value.c_str());
}

// An extent bound, or "none" when the document holds no move.
std::string Bound(double value, const Extent& extent) { return extent.empty ? "none" : FormatNumber(value, true); }

}  // namespace

void WriteInfo(std::FILE* out) {
  const DocumentSummary s = SummarizeDocument(doc);
  Line(out, "file", doc.file_name);
  Line(out, "layers", std::to_string(s.layers));
  Line(out, "records", std::to_string(s.records));
  Line(out, "moves", std::to_string(s.moves));
  Line(out, "g92", std::to_string(s.g92));
  Line(out, "text", std::to_string(s.text));
  Line(out, "tagged", std::to_string(doc.layer_tagged));
  Line(out, "x-min", Bound(s.moved.x_min, s.moved));
  Line(out, "x-max", Bound(s.moved.x_max, s.moved));
  Line(out, "y-min", Bound(s.moved.y_min, s.moved));
  Line(out, "y-max", Bound(s.moved.y_max, s.moved));
  Line(out, "z-max", FormatNumber(s.z_max, true));
}

}  // namespace korvexed::cli
