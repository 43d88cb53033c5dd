#pragma once
// Every change to the document, with its extrusion bookkeeping: for each
// move, e = e of the state before it + e_delta, and d_delta = squared
// distance from that state.
#include <cstdint>
#include <span>

#include "document/document.h"

namespace korvexed {

// Record-level operations.
// The machine state in force at record r of `layer`, walking backwards;
// `layer` becomes the layer where the walk ended.
coor_data get_state_before(int32_t& layer, int32_t r);
// The height the tool is at, at record r of `layer`: that of the last move
// there or before (0, the bed, before the first).
double height_before(int32_t layer, int32_t r);
// The height of move r of `layer`.
double move_z(int32_t layer, int32_t r);
// The first G1/G0 record at or after r (then in later layers); G92 records
// passed on the way update `state`. -1 (and `layer` = layer count) if none.
int32_t find_next_move(int32_t& layer, int32_t r, coor_data& state);
// Adds delta to e of every move from record r on, up to the first G92
// that gives E (a negligible delta is left alone).
void shift_e_after(int32_t layer, int32_t r, double delta);
// A G92 that gives E: the extrusion counts on from it, not from before.
bool restarts_e(const g_entry& entry);
// Opens a new move record at r (kind of the record it displaces).
void insert_record_before(int32_t layer, int32_t r);
// Puts `entry` at r of `layer`.
void insert_entry_before(int32_t layer, int32_t r, g_entry entry);
void delete_record(int32_t layer, int32_t r);
// Removes the records `rows` (ascending) of `layer` at once.
void delete_records(int32_t layer, std::span<const int32_t> rows);

// Re-derives move r of `layer` after one of its ends moved, from state p
// found in layer p_layer, and carries the change of its E on.
void rederive_move(const coor_data& p, double p_z, int32_t layer, int32_t r);
// The d_delta self-check of move r against state p; reports a mismatch
// and returns false, never blocks.
bool check_d_delta(const coor_data& p, double p_z, int32_t layer, int32_t r);

// The squared length of move r of `layer` from state p (found in layer
// p_layer): in the plane, along an arc for an arc, and in height.
double move_length_sq(const coor_data& p, double p_z, int32_t layer, int32_t r);
// The same after one of its ends moved: an arc's centre is fitted anew
// first, keeping its direction and its sweep (its radius when longer than
// half a turn).
double refit_length_sq(const coor_data& p, double p_z, int32_t layer, int32_t r);

double dist2_sq(double x1, double y1, double x2, double y2);
void normalize_rect(double& x1, double& y1, double& x2, double& y2);
bool point_in_rect(double px, double py, double x1, double y1, double x2, double y2);
double seg_dist_sq(double x1, double y1, double x2, double y2, double px, double py);

// Picking and marking in the current layer (pixels of the drawing bitmap,
// y up), and their world-coordinate cores.
int32_t pick_vertex(int32_t mx, int32_t my, bool marked_only);
int32_t pick_vertex_world(double wx, double wy, bool marked_only);
int32_t pick_segment(int32_t mx, int32_t my, double& start_x, double& start_y);
int32_t pick_segment_world(double wx, double wy, double& start_x, double& start_y);
bool mark_in_rect(int32_t x1, int32_t y1, int32_t x2, int32_t y2);
bool mark_in_rect_world(double x1, double y1, double x2, double y2);
bool move_marked(double dx, double dy, double de);

// Selection commands' data operations.
int32_t delete_marked_vertices();
int32_t delete_selected_rows();
int32_t delete_selected_layers();
int32_t change_feedrate(double old_f, double new_f);
// Multiplies the extrusion of the marked extruding moves by `factor` and
// carries the change of E on; how many it scaled.
int32_t scale_marked_extrusion(double factor);
int32_t set_marked_kind(line_kind kind);

// Point insertion into the current layer.
void insert_point(int32_t r, double x, double y);
void insert_points_evenly(int32_t r, int32_t n);

// Rotates every move about the origin (degrees, counter-clockwise) and
// offsets it.
void translate_all(double rotation, double ox, double oy);

// Replaces the line of text record r of the current layer.
void replace_text_record(int32_t r, const std::string& text);

}  // namespace korvexed
