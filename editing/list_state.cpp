#include "editing/list_state.h"

#include <algorithm>
#include <charconv>

#include "document/document.h"
#include "document/korvexed_file.h"
#include "editing/list_events.h"
#include "platform/platform.h"
#include "view/korvexed_graphic.h"

namespace korvexed {

ListState lists;

namespace {

// The lists forget the document they showed whenever it is emptied.
const bool listening = (SetResetListener([] { lists = ListState{}; }), true);

}  // namespace

namespace {

size_t at(int32_t i) { return static_cast<size_t>(i); }

// Z as the layer list shows it: 15 significant digits, written without an
// exponent and without trailing zeros.
std::string plain_number(double v) {
  char rounded[32];
  const char* rounded_end = std::to_chars(rounded, rounded + sizeof rounded, v, std::chars_format::general, 15).ptr;
  std::from_chars(rounded, rounded_end, v);
  char text[400];
  const char* end = std::to_chars(text, text + sizeof text, v, std::chars_format::fixed).ptr;
  return std::string(text, static_cast<size_t>(end - text));
}

// A row inserted before `row` moves a caret at or after it one line on.
void caret_after_insert(int32_t& caret, int32_t row) {
  if (caret >= row) ++caret;
}

// A removed caret line leaves no caret; one after removed lines moves up.
// `rows`: ascending.
void caret_after_remove(int32_t& caret, std::span<const int32_t> rows) {
  const auto below = std::lower_bound(rows.begin(), rows.end(), caret);
  if (below != rows.end() && *below == caret) caret = -1;
  else caret -= static_cast<int32_t>(below - rows.begin());
}

// Drops the lines `rows` (ascending) of a per-line vector.
void erase_lines(std::vector<uint8_t>& lines, std::span<const int32_t> rows) {
  size_t kept = 0, next = 0;
  for (size_t i = 0; i < lines.size(); ++i) {
    if (next < rows.size() && at(rows[next]) == i) {
      ++next;
      continue;
    }
    lines[kept++] = lines[i];
  }
  lines.resize(kept);
}

}  // namespace

int32_t CountSelected(const std::vector<uint8_t>& states) {
  return static_cast<int32_t>(std::count_if(states.begin(), states.end(), [](uint8_t s) { return s != 0; }));
}

int32_t FirstSelected(const std::vector<uint8_t>& states) {
  const auto line = std::find_if(states.begin(), states.end(), [](uint8_t s) { return s != 0; });
  return line == states.end() ? -1 : static_cast<int32_t>(line - states.begin());
}

std::string LayerLineText(int32_t layer) {
  std::string text = "L";
  text += std::to_string(layer);
  text += "> Z";
  std::string z = plain_number(doc.layer(layer).z);
  // The separator of the user's locale, as the data list writes it.
  if (doc.decimal_comma) std::replace(z.begin(), z.end(), '.', ',');
  return text + z;
}

std::string DataLineText(int32_t row) {
  return RecordText(doc.layer(doc.current_layer).g[at(row)], row, true, false, false);
}

std::string SelectLineText(int32_t line) { return DataLineText(lists.row_to_g[at(line)]); }

void FillLayerList(int32_t current) {
  if (lists.refresh_guard) return;
  platform().set_slider_range(SliderId::layer, std::max(doc.layer_count - 1, 0), true);
  lists.layer_selected.assign(at(doc.layer_count), 0);
  lists.layer_caret = -1;
  platform().list_refilled(ListId::layer);
  if (doc.layer_count > 0) ShowSingleLayer(current);
}

void ShowSingleLayer(int32_t layer) {
  // Sized here too: a caller may come straight from a load, before the
  // layer list was filled.
  lists.layer_selected.assign(at(doc.layer_count), 0);
  lists.layer_selected[at(layer)] = 1;
  lists.layer_caret = layer;
  platform().list_reset(ListId::layer);
  LayerClick();
}

ListView CaptureListView() {
  return {lists.layer_selected, lists.layer_caret, doc.current_layer,
          lists.data_selected,  lists.data_caret,  lists.select_flag};
}

void RestoreListView(const ListView& view) {
  lists.layer_selected = view.layer_selected;
  lists.layer_caret = view.layer_caret;
  platform().set_slider_range(SliderId::layer, std::max(doc.layer_count - 1, 0), true);
  platform().list_refilled(ListId::layer);
  if (view.current_layer < 0) {
    ClearCurrentLayer();
    RedrawView();
    return;
  }
  doc.current_layer = view.current_layer;
  lists.data_selected = view.data_selected;
  lists.data_caret = view.data_caret;
  lists.select_flag = view.select_flag;
  platform().list_refilled(ListId::data);
  platform().set_slider_value(SliderId::layer, view.current_layer);
  platform().set_list_button_enabled(ListId::data, !lists.data_selected.empty());
  RebuildSelectionList();
  platform().set_list_button_enabled(ListId::select, !lists.row_to_g.empty());
  RefreshListsAfterEdit();
  ShowStatus("Layer " + std::to_string(view.current_layer), 2);
}

void RefreshLayerCaptions() {
  platform().set_slider_range(SliderId::layer, std::max(doc.layer_count - 1, 0), true);
  platform().list_reset(ListId::layer);
}

void DataViewCommand(int index) {
  if (lists.refresh_guard || lists.data_selected.empty()) return;
  const layer_data& ly = doc.layer(doc.current_layer);
  for (size_t i = 0; i < lists.data_selected.size(); ++i) {
    uint8_t& on_view = lists.data_selected[i];
    const g_entry& entry = ly.g[i];
    switch (index) {
      case 0: on_view = 0; break;
      case 1: on_view = !on_view; break;
      case 2: on_view = lists.select_flag[i] != 0; break;
      case 3: on_view = is_move(entry.kind) && !doc.coor(entry).no_extrude; break;
      case 4: on_view = 1; break;
      default: return;
    }
  }
  platform().list_reset(ListId::data);
  RebuildSelectionList();
}

void SetDataRowsOnView(const std::vector<int32_t>& rows) {
  std::fill(lists.data_selected.begin(), lists.data_selected.end(), 0);
  for (const int32_t r : rows) lists.data_selected[at(r)] = 1;
  platform().list_reset(ListId::data);
  RebuildSelectionList();
}

void RebuildSelectionList() {
  if (lists.refresh_guard) return;
  lists.refresh_guard = true;
  lists.row_to_g.clear();
  lists.select_line.clear();
  lists.select_caret = -1;
  const layer_data& ly = doc.layer(doc.current_layer);
  for (int32_t i = 0; i < static_cast<int32_t>(lists.data_selected.size()); ++i) {
    if (!lists.data_selected[at(i)] || !is_move(ly.g[at(i)].kind)) continue;
    lists.row_to_g.push_back(i);
    lists.select_line.push_back(lists.select_flag[at(i)] != 0);
  }
  platform().list_refilled(ListId::select);
  lists.refresh_guard = false;
  RedrawView();
}

void ApplySelection(bool list_to_flags) {
  if (list_to_flags) {
    for (size_t k = 0; k < lists.row_to_g.size(); ++k)
      lists.select_flag[at(lists.row_to_g[k])] = lists.select_line[k] ? 1 : 0;
  } else {
    lists.refresh_guard = true;
    for (size_t k = 0; k < lists.row_to_g.size(); ++k)
      lists.select_line[k] = lists.select_flag[at(lists.row_to_g[k])] != 0;
    platform().list_reset(ListId::select);
    lists.refresh_guard = false;
  }
  SelectionStatus();
  RedrawView();
}

void SelectionStatus() {
  int32_t flags = 0;
  for (size_t i = 0; i < lists.data_selected.size(); ++i) flags += lists.data_selected[i] && lists.select_flag[i];
  const int32_t lines = CountSelected(lists.select_line);
  if (flags != lines) {
    const std::string counts = std::to_string(flags) + " vs " + std::to_string(lines);
    platform().message_box("for debug purpose: data vs gui selection count not tally (" + counts + ")",
                           MsgIcon::critical, MsgButtons::ok);
  }
  ShowStatus(std::to_string(lines) + (lines > 1 ? " vertices" : " vertex") + " selected", 1);
  if (lines == 1) {
    ShowStatus("Data " + std::to_string(lists.row_to_g[at(FirstSelected(lists.select_line))]), 3);
  } else {
    ShowStatus("Multi Data", 3);
  }
}

void SelectCommand(int index) {
  if (lists.refresh_guard || lists.select_line.empty()) return;
  for (uint8_t& line : lists.select_line) line = index == 0 ? 0 : index == 2 ? 1 : !line;
  platform().list_reset(ListId::select);
  ApplySelection(true);
}

void RefreshListsAfterEdit() {
  // Inserted and deleted records change the slider's reach.
  const auto records = static_cast<int32_t>(lists.data_selected.size());
  platform().set_slider_range(SliderId::data, std::max(records - 1, 0), records > 0);
  platform().list_reset(ListId::data);
  platform().list_reset(ListId::select);
  SelectionStatus();
}

void ListRowInserted(int32_t r) {
  // The new record is on view and marked, so it joins the selection list
  // just before the record it displaced.
  lists.data_selected.insert(lists.data_selected.begin() + r, 1);
  lists.select_flag.insert(lists.select_flag.begin() + r, 1);
  caret_after_insert(lists.data_caret, r);
  platform().list_row_inserted(ListId::data, r);

  auto& rows = lists.row_to_g;
  const auto k = static_cast<int32_t>(std::lower_bound(rows.begin(), rows.end(), r) - rows.begin());
  for (auto it = rows.begin() + k; it != rows.end(); ++it) ++*it;
  rows.insert(rows.begin() + k, r);
  lists.select_line.insert(lists.select_line.begin() + k, 1);
  caret_after_insert(lists.select_caret, k);
  platform().list_row_inserted(ListId::select, k);
}

void ListRowsRemoved(std::span<const int32_t> removed) {
  if (removed.empty()) return;
  erase_lines(lists.data_selected, removed);
  erase_lines(lists.select_flag, removed);
  caret_after_remove(lists.data_caret, removed);
  platform().list_rows_removed(ListId::data, removed);

  // The selection list is in record order: the lines of removed records go,
  // the others are renumbered, in one pass.
  std::vector<int32_t> gone;
  size_t kept = 0;
  for (size_t k = 0; k < lists.row_to_g.size(); ++k) {
    const int32_t r = lists.row_to_g[k];
    const auto below = std::lower_bound(removed.begin(), removed.end(), r);
    if (below != removed.end() && *below == r) {
      gone.push_back(static_cast<int32_t>(k));
      continue;
    }
    lists.row_to_g[kept] = r - static_cast<int32_t>(below - removed.begin());
    lists.select_line[kept] = lists.select_line[k];
    ++kept;
  }
  lists.row_to_g.resize(kept);
  lists.select_line.resize(kept);
  if (gone.empty()) return;
  caret_after_remove(lists.select_caret, gone);
  platform().list_rows_removed(ListId::select, gone);
}

void LayerRowRemoved(int32_t layer) {
  lists.layer_selected.erase(lists.layer_selected.begin() + layer);
  caret_after_remove(lists.layer_caret, {&layer, 1});
  platform().list_rows_removed(ListId::layer, {&layer, 1});
}

void EmptyLists() {
  ClearCurrentLayer();
  lists.layer_selected.clear();
  platform().list_refilled(ListId::layer);
  platform().set_slider_range(SliderId::layer, 0, false);
  platform().set_slider_value(SliderId::layer, 0);
  ShowStatus("", 2);
  ShowStatus("", 3);
}

void ClearCurrentLayer() {
  doc.current_layer = -1;
  lists.layer_caret = -1;
  lists.data_selected.clear();
  lists.data_caret = -1;
  lists.row_to_g.clear();
  lists.select_line.clear();
  lists.select_caret = -1;
  lists.select_flag.clear();
  platform().list_reset(ListId::layer);
  platform().list_refilled(ListId::data);
  platform().list_refilled(ListId::select);
  platform().set_list_button_enabled(ListId::data, false);
  platform().set_list_button_enabled(ListId::select, false);
  platform().set_slider_range(SliderId::data, 0, false);
}

}  // namespace korvexed
