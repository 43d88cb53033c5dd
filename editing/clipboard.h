#pragma once
// G-code copied out of the current layer and pasted back into it, as
// plain text.
#include <cstdint>
#include <string>
#include <string_view>

namespace korvexed {

// The lines of the records that Delete Selected Data would act on: the
// marked vertices, and with `rows_allowed` the G92 and text rows on view,
// in file order, LF ended. A move states all of X, Y (I and J), E and F
// and its comment, its E being its own extrusion, and no Z: a path pastes
// at the height of the layer it goes into.
std::string SelectedDataText(bool rows_allowed);

// Reads `text` as the loader reads lines and inserts them before record r
// of the current layer; they stay in that layer. A move's E word is its
// extrusion, in the extrusion mode of the record it stands before; the
// move after the pasted lines starts from their end, and the E values
// after them follow. The number of lines inserted: 0 when there were none,
// or when the layer has no room for them (with the limit's message).
int32_t paste_gcode(int32_t r, std::string_view text);

}  // namespace korvexed
