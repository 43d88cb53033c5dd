// Script commands that choose the layer, the rows on view and the marked
// vertices, as the window's lists and rubber band do.
#include <string>
#include <vector>

#include "cli/script_handlers.h"
#include "cli/words.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"

namespace korvexed::cli {

namespace {

size_t at(int32_t i) { return static_cast<size_t>(i); }

// The selection list's lines that show the listed records.
std::vector<uint8_t> LinesOf(const std::vector<int32_t>& records, int32_t record_count) {
  std::vector<int32_t> line_of(at(record_count), -1);
  for (size_t k = 0; k < lists.select_line.size(); ++k) line_of[at(lists.row_to_g[k])] = static_cast<int32_t>(k);
  std::vector<uint8_t> lines(lists.select_line.size(), 0);
  for (const int32_t r : records) {
    const int32_t k = line_of[at(r)];
    if (k < 0) throw ScriptError("record " + std::to_string(r) + " is not a move record (G0, G1, G2, G3) on view");
    lines[at(k)] = 1;
  }
  return lines;
}

Modifiers ParseModifiers(std::string_view text) {
  Modifiers keys;
  while (!text.empty()) {
    const size_t plus = text.find('+');
    const std::string_view key = text.substr(0, plus);
    text = plus == std::string_view::npos ? std::string_view() : text.substr(plus + 1);
    switch (KeywordIndex(key, {"shift", "ctrl", "alt"})) {
      case 0:
        keys.shift = true;
        break;
      case 1:
        keys.ctrl = true;
        break;
      case 2:
        keys.alt = true;
        break;
      default:
        throw ScriptError(Quoted(key) + " is not shift, ctrl or alt");
    }
    if (plus != std::string_view::npos && text.empty()) throw ScriptError("a key is missing after '+'");
  }
  return keys;
}

}  // namespace

void ScriptLayer(const ScriptArgs& args, ScriptState&) {
  args.expect(1, 1);
  ShowSingleLayer(args.index(0, doc.layer_count, "layer"));
}

void ScriptRows(const ScriptArgs& args, ScriptState&) {
  const layer_data& layer = CurrentLayer(args);
  // In the order of the data view commands' indices.
  const int view = args.size() > 0 ? KeywordIndex(args[0], {"none", "invert", "selected", "extruded", "all"}) : -1;
  if (view < 0) return SetDataRowsOnView(args.indices(0, layer.g_count, "row"));
  args.expect(1, 1);
  DataViewCommand(view);
}

void ScriptSelect(const ScriptArgs& args, ScriptState&) {
  const layer_data& layer = CurrentLayer(args);
  // In the order of the select commands' indices.
  const int command = args.size() > 0 ? KeywordIndex(args[0], {"none", "invert", "all"}) : -1;
  if (command < 0) {
    lists.select_line = LinesOf(args.indices(0, layer.g_count, "record"), layer.g_count);
    return ApplySelection(true);
  }
  args.expect(1, 1);
  SelectCommand(command);
}

void ScriptRect(const ScriptArgs& args, ScriptState& state) {
  CurrentLayer(args);
  args.expect(4, 5);
  const double x1 = args.number(0), y1 = args.number(1), x2 = args.number(2), y2 = args.number(3);
  // The keys are held for this rectangle's release only.
  state.platform.modifiers = args.size() == 5 ? ParseModifiers(args[4]) : Modifiers{};
  mark_in_rect_world(x1, y1, x2, y2);
  state.platform.modifiers = Modifiers{};
  ApplySelection(false);
}

}  // namespace korvexed::cli
