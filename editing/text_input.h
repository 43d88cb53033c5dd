#pragma once
// fmTextInput: edits one record of the current layer, as coordinates when
// it is a move or G92 line, as its text otherwise.
#include <cstdint>

namespace korvexed {

// True when OK changed the document (then it is marked modified and the
// lists are told). OK without a change counts as Cancel. The coordinate
// offsets, feedrate and kind apply to every marked vertex.
bool TextInput(int32_t r);

}  // namespace korvexed
