#pragma once
#include <string>

#include "document/document.h"

namespace korvexed {

// The head word of a coordinate record ("G1", "G0", "G2", "G3", "G92").
std::string_view CoordinateHead(line_kind kind);
// Appends " X.. Y.. E.. F.." for the values of `c` that are given, with an
// arc's " I.. J.." after Y.
void AppendFields(std::string& out, const coor_data& c, bool to_period, const arc_data* centre = nullptr);

}  // namespace korvexed
