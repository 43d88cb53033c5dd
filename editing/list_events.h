#pragma once
// What the layer, data and selection lists, their sliders and their menus
// do when the user works them. The window's controls only report these.
#include <array>
#include <cstdint>

namespace korvexed {

// The caret line of the layer list becomes the current layer, its records
// all on view and none marked. A click that deselected the current line
// keeps a layer current: the nearest selected one below, else above, else
// the line itself again.
void LayerClick();
// The caret row of the data list: the selection list follows the rows on
// view, and the status shows the row.
void DataClick();
// The selection list's lines become the marks.
void SelectionListClick();

// The sliders moved to `value`. Without range scroll only the layer or row
// under the slider stays on view; with it, each one passed over is added.
void LayerSliderChange(int32_t value, bool range_scroll);
void DataSliderChange(int32_t value, bool range_scroll);

// Layer view commands: 0 Single, 1 Invert, 2 All.
void LayerViewCommand(int index);

// The items of the view menus that make a difference now.
std::array<bool, 3> LayerViewItemsEnabled();
std::array<bool, 5> DataViewItemsEnabled();
std::array<bool, 3> SelectItemsEnabled();

// A right click on the layer list opens the layer editing menu only when it
// leaves a layer behind.
bool LayerMenuAllowed();
// A right click on the data list puts every listed vertex in the marks and
// opens the menu of the marked data; on the selection list it opens that
// menu for the marks as they are. Nothing happens with no line selected.
void DataListRightClick();
void SelectListRightClick();
// Opens the menu of the marked data with Edit Selected Data and Change
// Feedrate enabled as given.
void MarkedDataMenu(bool edit, bool feedrate);

}  // namespace korvexed
