#include "editing/list_events.h"

#include <algorithm>
#include <string>
#include <vector>

#include "document/document.h"
#include "editing/list_state.h"
#include "platform/platform.h"
#include "view/korvexed_graphic.h"

namespace korvexed {

namespace {

size_t at(int32_t i) { return static_cast<size_t>(i); }

// Items of the marked data's menu that the lists enable.
constexpr int edit_item = 2, feedrate_item = 3;

// The layer to make current after a click deselected `line`: the nearest
// selected line below it, else above it, else `line` itself when no line
// is left selected.
int32_t LayerKeptCurrent(int32_t line) {
  const auto& selected = lists.layer_selected;
  for (int32_t i = line - 1; i >= 0; --i)
    if (selected[at(i)]) return i;
  for (auto i = at(line) + 1; i < selected.size(); ++i)
    if (selected[i]) return static_cast<int32_t>(i);
  return line;
}

// A slider moved from `from` to `to`, by a drag, a click on its track, the
// wheel or a jump: every line it passed over up to `to` is selected (the
// one it left is not). True when one was not before.
bool SelectPassedOver(std::vector<uint8_t>& selected, int32_t from, int32_t to) {
  const int32_t step = to > from ? 1 : -1;
  bool added = false;
  for (int32_t i = from == to ? to : from + step; i != to + step; i += step) {
    added |= !selected[at(i)];
    selected[at(i)] = 1;
  }
  return added;
}

// Makes `line` selected and the caret, as a click on it would.
void PickLayerLine(int32_t line) {
  lists.layer_selected[at(line)] = 1;
  lists.layer_caret = line;
  platform().list_reset(ListId::layer);
  LayerClick();
}

}  // namespace

void LayerClick() {
  if (lists.refresh_guard) return;
  const int32_t line = lists.layer_caret;
  doc.current_layer = line;
  if (line < 0) return;
  if (!lists.layer_selected[at(line)]) return PickLayerLine(LayerKeptCurrent(line));

  lists.refresh_guard = true;
  const int32_t records = doc.layer(line).g_count;
  lists.data_selected.assign(at(records), 1);
  lists.data_caret = records > 0 ? 0 : -1;
  lists.select_flag.assign(at(records), 0);
  platform().list_refilled(ListId::data);
  platform().set_slider_range(SliderId::data, std::max(records - 1, 0), records > 0);
  platform().set_slider_value(SliderId::layer, line);
  lists.refresh_guard = false;
  platform().set_list_button_enabled(ListId::data, records > 0);
  if (records > 0) {
    DataClick();
  } else {
    // No row to click: the selection list and the picture still follow.
    RebuildSelectionList();
    platform().set_list_button_enabled(ListId::select, false);
  }
  ShowStatus("Layer " + std::to_string(line), 2);
  ShowStatus(LayerLineText(line), 1);
}

void DataClick() {
  if (lists.refresh_guard || lists.data_caret < 0) return;
  const BusyPointer busy;
  RebuildSelectionList();
  platform().set_list_button_enabled(ListId::select, !lists.row_to_g.empty());
  platform().set_slider_value(SliderId::data, lists.data_caret);
  ShowStatus("Data " + std::to_string(lists.data_caret), 3);
  ShowStatus(DataLineText(lists.data_caret), 1);
}

void SelectionListClick() {
  if (lists.refresh_guard) return;
  ApplySelection(true);
  if (lists.select_caret < 0) return;
  ShowStatus("Data " + std::to_string(lists.row_to_g[at(lists.select_caret)]), 3);
  ShowStatus(SelectLineText(lists.select_caret), 1);
}

void LayerSliderChange(int32_t value, bool range_scroll) {
  if (lists.refresh_guard || value < 0 || at(value) >= lists.layer_selected.size()) return;
  if (!range_scroll) {
    std::fill(lists.layer_selected.begin(), lists.layer_selected.end(), 0);
    lists.layer_caret = -1;
  } else if (doc.current_layer >= 0) {
    SelectPassedOver(lists.layer_selected, doc.current_layer, value);
  }
  platform().list_reset(ListId::layer);
  if (doc.current_layer != value) PickLayerLine(value);
}

void DataSliderChange(int32_t value, bool range_scroll) {
  if (lists.refresh_guard || value < 0 || at(value) >= lists.data_selected.size()) return;
  if (!range_scroll) {
    std::fill(lists.data_selected.begin(), lists.data_selected.end(), 0);
    lists.data_caret = -1;
  }
  // The slider stood at the caret row before it moved.
  const int32_t from = lists.data_caret >= 0 ? lists.data_caret : value;
  if (!SelectPassedOver(lists.data_selected, from, value)) return;
  lists.data_caret = value;
  platform().list_reset(ListId::data);
  DataClick();
}

void LayerViewCommand(int index) {
  const BusyPointer busy;
  auto& selected = lists.layer_selected;
  if (lists.refresh_guard || selected.empty() || index < 0 || index > 2) return;
  if (index == 1) {
    for (uint8_t& line : selected) line = !line;
    if (CountSelected(selected) == 0) lists.layer_caret = 0;
    platform().list_reset(ListId::layer);
    return LayerClick();
  }
  // Single or All around the current layer; with none, layer 1 (or the
  // only one) becomes current.
  const bool had_current = doc.current_layer >= 0;
  if (!had_current) doc.current_layer = doc.layer_count > 1 ? 1 : 0;
  const int32_t current = doc.current_layer;
  const uint8_t others = index == 2;
  for (size_t i = 0; i < selected.size(); ++i)
    if (i != at(current)) selected[i] = others;
  // A layer that was not current has no rows listed yet.
  if (!had_current) return PickLayerLine(current);
  // The caret may have wandered off with Ctrl and the arrow keys: it comes
  // back without a layer click, so the rows on view and the marks stay.
  lists.layer_caret = current;
  selected[at(current)] = 1;
  platform().list_reset(ListId::layer);
  RedrawView();
}

std::array<bool, 3> LayerViewItemsEnabled() {
  const int32_t selected = CountSelected(lists.layer_selected);
  return {selected >= 2, true, selected < static_cast<int32_t>(lists.layer_selected.size())};
}

std::array<bool, 5> DataViewItemsEnabled() {
  const int32_t selected = CountSelected(lists.data_selected);
  return {selected > 0, true, CountSelected(lists.select_line) > 0, true,
          selected < static_cast<int32_t>(lists.data_selected.size())};
}

std::array<bool, 3> SelectItemsEnabled() {
  const int32_t selected = CountSelected(lists.select_line);
  return {selected > 0, true, selected < static_cast<int32_t>(lists.select_line.size())};
}

bool LayerMenuAllowed() { return CountSelected(lists.layer_selected) > 0 && lists.layer_selected.size() >= 2; }

void DataListRightClick() {
  if (CountSelected(lists.data_selected) == 0) return;
  const bool listed = !lists.row_to_g.empty();
  std::fill(lists.select_line.begin(), lists.select_line.end(), 1);
  platform().list_reset(ListId::select);
  SelectionListClick();
  // Without a vertex, Edit Selected Data edits the caret row (a text line).
  MarkedDataMenu(listed || lists.data_caret >= 0, listed);
}

void SelectListRightClick() {
  if (CountSelected(lists.select_line) == 0) return;
  MarkedDataMenu(true, doc.layer(doc.current_layer).coor_count >= 2);
}

void MarkedDataMenu(bool edit, bool feedrate) {
  platform().set_menu_item_enabled(PopupMenu::select_edit, edit_item, edit);
  platform().set_menu_item_enabled(PopupMenu::select_edit, feedrate_item, feedrate);
  platform().popup_menu(PopupMenu::select_edit);
  // The items' shortcuts work on whatever is marked later on.
  platform().set_menu_item_enabled(PopupMenu::select_edit, edit_item, true);
  platform().set_menu_item_enabled(PopupMenu::select_edit, feedrate_item, true);
}

}  // namespace korvexed
