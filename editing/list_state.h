#pragma once
// The state behind the main window's three lists, owned by the logic so
// that the editor, the CLI and the tests share it. The window's list
// controls are views of it (Platform::list_* tell them what changed).
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace korvexed {

struct ListState {
  // Layer list: line i stands for layer i; selected = layer on view.
  std::vector<uint8_t> layer_selected;
  int32_t layer_caret = -1;

  // Data list: row i stands for entry i of the current layer;
  // selected = record on view.
  std::vector<uint8_t> data_selected;
  int32_t data_caret = -1;

  // Selection list: line k shows record row_to_g[k] of the current layer
  // (a G1/G0 record on view); select_line[k] is the line's selected state.
  std::vector<int32_t> row_to_g;
  std::vector<uint8_t> select_line;
  int32_t select_caret = -1;

  // One flag per entry of the current layer: nonzero = marked vertex.
  std::vector<uint8_t> select_flag;

  // Set while the logic rebuilds the lists, so that their own click
  // handlers do nothing.
  bool refresh_guard = false;
};

extern ListState lists;

// How many of the lines are selected, and the first of them (-1 for none).
int32_t CountSelected(const std::vector<uint8_t>& states);
int32_t FirstSelected(const std::vector<uint8_t>& states);

// "L12> Z3.6": the layer list's line for layer i.
std::string LayerLineText(int32_t layer);
// "D12> G1 X3 Y4": the numbered text of row r of the current layer, and of
// line k of the selection list.
std::string DataLineText(int32_t row);
std::string SelectLineText(int32_t line);

// What is on view and marked, as Undo brings it back.
struct ListView {
  std::vector<uint8_t> layer_selected;
  int32_t layer_caret = -1;
  int32_t current_layer = -1;
  std::vector<uint8_t> data_selected;
  int32_t data_caret = -1;
  std::vector<uint8_t> select_flag;

  size_t bytes() const { return layer_selected.capacity() + data_selected.capacity() + select_flag.capacity(); }
};
ListView CaptureListView();
// Shows the layer list anew (its layers may have changed), then `view`.
void RestoreListView(const ListView& view);

// After a load: every layer listed, `current` alone on view and current as
// a click on its line makes it.
void FillLayerList(int32_t current);
// Makes `layer` current as a click on its line with no other layer on view:
// every data row on view, no vertex marked.
void ShowSingleLayer(int32_t layer);
// Re-reads the Z captions of the layer list and the slider's range (after
// layers were removed).
void RefreshLayerCaptions();

// Data view commands: 0 None, 1 Invert, 2 Selected, 3 Extruded, 4 All.
void DataViewCommand(int index);
// Puts exactly these rows of the current layer on view.
void SetDataRowsOnView(const std::vector<int32_t>& rows);

// Rebuilds the selection list from the rows on view and the flags, and
// redraws.
void RebuildSelectionList();
// Copies line states into flags (list_to_flags) or flags into line states;
// then writes the selection status and redraws.
void ApplySelection(bool list_to_flags);
// "3 vertices selected" in panel 1, "Data N" or "Multi Data" in panel 3.
// Marks of rows taken off view are kept but not counted: they have no line.
void SelectionStatus();
// Select commands: 0 None, 1 Invert, 2 All.
void SelectCommand(int index);

// Tells the window that every record text of the current layer may have
// changed (after an edit): the lists, the data slider's range and the
// selection status follow.
void RefreshListsAfterEdit();

// Keep the lists in step with one record of the current layer inserted at
// row r (on view and marked), with the records at `rows` (ascending, as
// numbered before) removed, and with one layer removed.
void ListRowInserted(int32_t r);
void ListRowsRemoved(std::span<const int32_t> rows);
void LayerRowRemoved(int32_t layer);
// No layer current: the data and selection lists empty, their buttons and
// the data slider disabled.
void ClearCurrentLayer();
// No document: every list empty, both sliders at their start and disabled,
// and no layer or record named in the status bar.
void EmptyLists();

}  // namespace korvexed
