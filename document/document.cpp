#include "document/document.h"

#include <algorithm>

#include "document/gcode_line.h"
#include "document/layer_finder.h"
#include "platform/platform.h"

namespace korvexed {

Document doc;

void Document::ensure_g_capacity(layer_data& layer) {
  if (layer.g_count >= layer.g_capacity()) layer.g.set_capacity(layer.g_count + entry_chunk);
  if (layer.g_count < layer.g.room()) return;
  if (layer.g.end_of_room() == entry_pool.data() + entry_pool_used) {
    // The last stretch of the pool grows in place.
    entry_pool.reserve(++entry_pool_used);
    layer.g.widen(layer.g.room() + 1);
  } else {
    layer.g.move_to_own(layer.g_capacity());
  }
}

int32_t Document::new_coor_record() {
  if (coor_list_count >= coor_list.capacity()) coor_list.grow();
  return coor_list_count++;
}

uint32_t Document::add_comment(std::string_view text) {
  if (text.empty()) return 0;
  const uint32_t last = comment_list.size() - 1;
  return last > 0 && comment_list[last] == text ? last : comment_list.add(text);
}

void Document::fit_arc(const g_entry& entry, PlanePoint start) {
  arc_data& centre = arc(entry.index);
  const coor_data& end = coor(entry);
  Arc fitted{start, {end.x, end.y}, centre.i, centre.j, entry.kind == line_kind::g2};
  RefitArc(fitted, centre.sweep, start, {end.x, end.y});
  centre.i = fitted.i;
  centre.j = fitted.j;
  // An arc whose ends met has no sweep of its own: it keeps the one it had.
  if (fitted.i != 0 || fitted.j != 0) centre.sweep = fitted.sweep();
}

Arc Document::arc_from(PlanePoint from, const g_entry& entry) {
  const coor_data& m = coor(entry);
  const arc_data& centre = arc(entry.index);
  return {from, {m.x, m.y}, centre.i, centre.j, entry.kind == line_kind::g2};
}

double Document::plane_length_sq(PlanePoint from, const g_entry& entry) {
  if (is_arc(entry.kind)) return arc_from(from, entry).length_sq();
  const coor_data& m = coor(entry);
  return (from.x - m.x) * (from.x - m.x) + (from.y - m.y) * (from.y - m.y);
}

namespace {

layer_data& last_layer() { return doc.layer(doc.layer_count - 1); }

// The X, Y and F that the line gives become the last known values.
void take_fields(const MoveFields& fields) {
  coor_data& last = doc.last_coor;
  for (const auto& [key, value] : {std::pair{MoveFields::x, &last.x}, {MoveFields::y, &last.y}, {MoveFields::f, &last.f}})
    if (fields.given & (1u << key)) *value = fields.value[key];
}

coor_data& append_coordinate_entry(layer_data& layer, line_kind kind) {
  doc.ensure_g_capacity(layer);
  const int32_t index = doc.new_coor_record();
  // Records are filled in order: fetching the lines of those a little
  // ahead hides most of the wait for fresh memory.
  __builtin_prefetch(&doc.coor_list[index + 16], 1);
  layer.g[static_cast<size_t>(layer.g_count)] = {kind, index};
  ++layer.g_count;
  return doc.coor_list[index];
}

}  // namespace

void AddMoveRecord(line_kind kind, const MoveFields& fields, std::string_view comment) {
  layer_data* layer = &last_layer();
  const double e_before = doc.last_coor.e;
  const double prev_x = doc.last_coor.x, prev_y = doc.last_coor.y;
  const double z_before = doc.current_z;
  if (fields.has(MoveFields::z)) doc.current_z = fields.value[MoveFields::z];
  take_fields(fields);
  coor_data& c = append_coordinate_entry(*layer, kind);
  const coor_data& last = doc.last_coor;
  c.x = last.x;
  c.y = last.y;
  c.f = last.f;
  c.given = fields.given & (given_x | given_y | given_z | given_e | given_f);
  c.e_relative = doc.e_relative;
  c.comment = doc.add_comment(comment);
  // In relative extrusion the E word is the move's own extrusion; either
  // way e stays the running total.
  const double e_word = fields.value[MoveFields::e];
  const bool has_e = fields.given & given_e;
  c.e_delta = !has_e ? 0 : doc.e_relative ? e_word : e_word - e_before;
  c.e = has_e && !doc.e_relative ? e_word : e_before + c.e_delta;
  doc.last_coor.e = c.e;
  const g_entry& entry = layer->g[static_cast<size_t>(layer->g_count - 1)];
  if (is_arc(kind)) {
    const double i = fields.value[MoveFields::i], j = fields.value[MoveFields::j];
    doc.add_arc(entry.index, i, j, Arc{{prev_x, prev_y}, {c.x, c.y}, i, j, kind == line_kind::g2}.sweep());
  }
  const double plane_sq = doc.plane_length_sq({prev_x, prev_y}, entry);
  const double rise = doc.current_z - z_before;
  c.d_delta = plane_sq + rise * rise;
  c.no_extrude = c.d_delta <= negligible || c.e_delta <= 0;
  ++layer->coor_count;
  NoteMoveHeight(static_cast<uint32_t>(layer->g_count - 1), doc.current_z, c.e_delta > 0 && plane_sq > negligible);
}

void AddG92Record(const MoveFields& fields, std::string_view comment) {
  layer_data* layer = &last_layer();
  take_fields(fields);
  if (fields.given & given_e) doc.last_coor.e = fields.value[MoveFields::e];
  coor_data& c = append_coordinate_entry(*layer, line_kind::g92);
  c = coor_data{};
  c.x = fields.value[MoveFields::x];
  c.y = fields.value[MoveFields::y];
  c.e = fields.value[MoveFields::e];
  c.f = fields.value[MoveFields::f];
  c.no_extrude = true;
  c.comment = doc.add_comment(comment);
}

void AddTextRecord(std::string_view line) {
  layer_data* layer = &last_layer();
  doc.ensure_g_capacity(*layer);
  if (doc.text_list_count >= doc.text_list.capacity()) doc.text_list.grow(text_chunk);
  doc.text_list.add(line);
  layer->g[static_cast<size_t>(layer->g_count)] = {line_kind::text, doc.text_list_count};
  ++layer->g_count;
  ++doc.text_list_count;
}

void ResetDocument(bool loaded) {
  SetDocumentControls(loaded);
  if (loaded) return;
  doc.text_list_count = 0;
  doc.coor_list_count = 0;
  doc.layer_count = 0;
  doc.current_z = 0;
  doc.last_coor.x = doc.last_coor.y = doc.last_coor.e = doc.last_coor.f = 0;
  doc.e_relative = doc.g91_block = false;
  doc.arcs_in_plane = true;
  doc.arc_list.clear();
  doc.z_list.clear();
  ClearMoveHeights();
  doc.layer_tag_position = UINT32_MAX;
  doc.text_list.clear();
  doc.comment_list.clear();
  doc.comment_list.add("");
  doc.entry_pool_used = 0;
  // Layer 0 at the bed, holding G1 Z0: a move that states no field the
  // writer would write.
  if (doc.layer_capacity() < 1) doc.layer_list.resize(layer_chunk);
  layer_data& layer = doc.layer(0);
  doc.entry_pool.reserve(1);
  layer.g.place_at(doc.entry_pool.data());
  layer.z = layer.dz = 0;
  layer.g_count = layer.coor_count = 0;
  doc.layer_count = 1;
  AddMoveRecord(line_kind::g1, MoveFields{}, "");
  doc.layer_tagged = 0;
}

namespace {

void (*reset_listener)() = nullptr;

}  // namespace

void SetResetListener(void (*listener)()) { reset_listener = listener; }

void SetDocumentControls(bool enabled) {
  platform().set_document_controls(enabled);
  platform().set_export_enabled(doc.layer_tagged != 1);
  if (!enabled) {
    doc.current_layer = -1;
    if (reset_listener) reset_listener();
    for (const ListId id : {ListId::layer, ListId::data, ListId::select}) platform().list_reset(id);
  }
}

bool IsDocumentLoaded() { return platform().document_controls_enabled(); }

void ShowStatus(std::string_view text, int panel) { platform().show_status(text, panel); }

}  // namespace korvexed
