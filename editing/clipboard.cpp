#include "editing/clipboard.h"

#include <vector>

#include "document/gcode_line.h"
#include "document/korvexed_file.h"
#include "document/korvexed_general.h"
#include "document/record_text.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "platform/platform.h"

namespace korvexed {

namespace {

// A move as copied: every field, its own extrusion as E, no Z.
std::string copied_move(const g_entry& entry) {
  coor_data shown = doc.coor(entry);
  shown.e = shown.e_delta;
  shown.e_relative = false;
  std::string line(CoordinateHead(entry.kind));
  AppendFields(line, shown, true, is_arc(entry.kind) ? &doc.arc(entry.index) : nullptr);
  if (const std::string_view comment = doc.comment(shown); !comment.empty()) line.append(" ;").append(comment);
  return line;
}

// The lines of `text`, at LF, CR LF or CR; no line after the last end.
std::vector<std::string_view> split_lines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const size_t end = text.find_first_of("\r\n");
    lines.push_back(text.substr(0, end));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
  }
  return lines;
}

// The extrusion mode of the move at or after record r of `layer`, else of
// the last one before it.
bool relative_at(int32_t layer, int32_t r) {
  coor_data ignored;
  int32_t n_layer = layer;
  const int32_t n = find_next_move(n_layer, r, ignored);
  if (n >= 0) return doc.coor(n_layer, n).e_relative;
  for (int32_t i = r - 1; i >= 0; --i)
    if (is_move(doc.layer(layer).g[static_cast<size_t>(i)].kind)) return doc.coor(layer, i).e_relative;
  return false;
}

// Where the tool is while the lines go in.
struct Tool {
  coor_data at;
  double z;
  bool relative;
};

// A pasted G0/G1 or arc: the fields it states, the rest from where the
// tool is; its E word its extrusion.
g_entry new_move(line_kind kind, const ReadLine& line, Tool& tool) {
  const MoveFields& f = line.fields;
  const int32_t index = doc.new_coor_record();
  coor_data& c = doc.coor_list[index];
  c = coor_data{};
  c.x = f.has(MoveFields::x) ? f.value[MoveFields::x] : tool.at.x;
  c.y = f.has(MoveFields::y) ? f.value[MoveFields::y] : tool.at.y;
  c.f = f.has(MoveFields::f) ? f.value[MoveFields::f] : tool.at.f;
  c.e_delta = f.has(MoveFields::e) ? f.value[MoveFields::e] : 0;
  c.e = tool.at.e + c.e_delta;
  c.e_relative = tool.relative;
  c.given = f.given & (given_x | given_y | given_z | given_e | given_f);
  c.comment = doc.add_comment(line.comment);
  const g_entry entry{kind, index};
  if (is_arc(kind)) {
    const double i = f.value[MoveFields::i], j = f.value[MoveFields::j];
    doc.add_arc(index, i, j, Arc{{tool.at.x, tool.at.y}, {c.x, c.y}, i, j, kind == line_kind::g2}.sweep());
  }
  const double z = f.has(MoveFields::z) ? f.value[MoveFields::z] : tool.z;
  if (z != doc.layer(doc.current_layer).z) doc.z_list.add({index, z});
  const double rise = z - tool.z;
  c.d_delta = doc.plane_length_sq({tool.at.x, tool.at.y}, entry) + rise * rise;
  c.no_extrude = c.d_delta <= negligible || c.e_delta <= 0;
  tool.at.x = c.x, tool.at.y = c.y, tool.at.e = c.e, tool.at.f = c.f;
  tool.z = z;
  return entry;
}

g_entry new_reset(const MoveFields& f, std::string_view comment, Tool& tool) {
  const int32_t index = doc.new_coor_record();
  coor_data& c = doc.coor_list[index];
  c = coor_data{};
  c.x = f.value[MoveFields::x], c.y = f.value[MoveFields::y], c.e = f.value[MoveFields::e], c.f = f.value[MoveFields::f];
  c.no_extrude = true;
  c.comment = doc.add_comment(comment);
  for (const auto& [given, into] : {std::pair{c.x, &tool.at.x}, {c.y, &tool.at.y}, {c.e, &tool.at.e}, {c.f, &tool.at.f}})
    if (given != no_value) *into = given;
  return {line_kind::g92, index};
}

g_entry new_text(std::string_view line) {
  if (doc.text_list_count >= doc.text_list.capacity()) doc.text_list.grow(text_chunk);
  doc.text_list.add(line);
  return {line_kind::text, doc.text_list_count++};
}

}  // namespace

std::string SelectedDataText(bool rows_allowed) {
  const layer_data& ly = doc.layer(doc.current_layer);
  std::string text;
  for (int32_t r = 0; r < ly.g_count; ++r) {
    const g_entry& entry = ly.g[static_cast<size_t>(r)];
    const auto row = static_cast<size_t>(r);
    const bool on_view = row < lists.data_selected.size() && lists.data_selected[row];
    if (is_move(entry.kind)) {
      if (on_view && row < lists.select_flag.size() && lists.select_flag[row]) text += copied_move(entry) + "\n";
    } else if (rows_allowed && on_view) {
      text += RecordText(entry, 0, false, true, false) + "\n";
    }
  }
  return text;
}

int32_t paste_gcode(int32_t r, std::string_view text) {
  const int32_t cur = doc.current_layer;
  const std::vector<std::string_view> lines = split_lines(text);
  if (lines.empty()) return 0;
  if (doc.layer(cur).g_count + static_cast<int64_t>(lines.size()) > max_data_count) {
    platform().message_box("Data count limit has been reached, cannot insert further data.", MsgIcon::exclamation,
                           MsgButtons::ok);
    return 0;
  }
  int32_t p_layer = cur;
  Tool tool{get_state_before(p_layer, r - 1), height_before(cur, r - 1), relative_at(cur, r)};
  std::string scratch;
  for (size_t k = 0; k < lines.size(); ++k) {
    std::string_view code = lines[k];
    const std::string_view comment = SplitComment(code);
    ReadLine line = ReadMoveLine(ReadCommandWord(code), code, comment, scratch);
    if (line.read == LineRead::move && is_arc(line.kind) &&
        !FindArcCentre(line.kind, {tool.at.x, tool.at.y}, line.fields))
      line.read = LineRead::text;
    const g_entry entry = line.read != LineRead::move      ? new_text(lines[k])
                          : line.kind == line_kind::g92 ? new_reset(line.fields, line.comment, tool)
                                                         : new_move(line.kind, line, tool);
    insert_entry_before(cur, r + static_cast<int32_t>(k), entry);
  }
  // The move after the lines now starts where they end.
  int32_t n_layer = cur;
  const int32_t n = find_next_move(n_layer, r + static_cast<int32_t>(lines.size()), tool.at);
  if (n >= 0) rederive_move(tool.at, tool.z, n_layer, n);
  return static_cast<int32_t>(lines.size());
}

}  // namespace korvexed
