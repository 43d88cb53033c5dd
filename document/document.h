#pragma once
// The one document held in memory: layers of entries pointing into shared
// pools of coordinate records and text lines.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "document/arc_geometry.h"
#include "document/block_pool.h"
#include "document/entry_array.h"
#include "document/record_table.h"
#include "document/reserved_array.h"
#include "document/text_arena.h"
#include "document/text_list.h"

namespace korvexed {

inline bool is_arc(line_kind k) { return k == line_kind::g2 || k == line_kind::g3; }
// A move ends at a vertex: G0/G1 lines and arcs.
inline bool is_move(line_kind k) { return k == line_kind::g1 || k == line_kind::g0 || is_arc(k); }
inline bool is_coordinate(line_kind k) { return is_move(k) || k == line_kind::g92; }

// A field that a G92 line does not name; tested by exact equality.
inline constexpr double no_value = -3e300;
// Offsets, deltas and squared lengths at or below this count as nothing.
inline constexpr double negligible = 1e-10;
// Limit on layers and on entries per layer.
inline constexpr int32_t max_data_count = 100000;

inline constexpr int32_t layer_chunk = 1000;
inline constexpr int32_t entry_chunk = 1000;
inline constexpr int32_t coor_chunk = 10000;
inline constexpr int32_t text_chunk = 10000;

// The fields a move's line states, or an edit set on purpose.
enum field_bit : uint8_t { given_x = 1, given_y = 2, given_z = 4, given_e = 8, given_f = 16 };

struct coor_data {
  double x = 0, y = 0, e = 0, f = 0;
  double e_delta = 0;  // E advanced by this move
  double d_delta = 0;  // squared length of this move from the state before it
  bool no_extrude = false;
  bool e_relative = false;  // read in relative extrusion: its E word is e_delta
  uint8_t given = 0;        // field_bit set
  uint32_t comment = 0;     // id in Document::comment_list; 0 = no comment
};
// Millions of records: the flags live in what would be padding.
static_assert(sizeof(coor_data) == 56);

// The move G1 Z0 that every document starts with and no file holds: the
// first record of the pool.
inline constexpr int32_t reset_record = 0;
inline bool is_reset_line(const g_entry& entry) { return entry.index == reset_record && entry.kind != line_kind::text; }

// The centre of an arc record, as its offset from the arc's start. Only
// arcs pay for it: the table is kept in the order of the record indices,
// which only grow.
struct arc_data {
  int32_t index;
  double i, j;
  double sweep;  // the angle it turns, kept by edits that move its ends
};

// The height of a move that differs from its layer's: a lift, its travel,
// a turn of a spiral.
struct height_data {
  int32_t index;
  double z;
};

struct layer_data {
  double z = 0;
  EntryArray g;
  int32_t g_count = 0;
  double dz = 0;
  int32_t coor_count = 0;  // entries of kind g1 or g0

  int32_t g_capacity() const { return g.capacity(); }
};

struct Document {
  std::vector<layer_data> layer_list;  // allocated length is layer_capacity()
  int32_t layer_count = 0;

  BlockPool<coor_data, coor_chunk> coor_list;
  int32_t coor_list_count = 0;

  TextList text_list;
  int32_t text_list_count = 0;

  RecordTable<arc_data> arc_list;
  RecordTable<height_data> z_list;

  // The comments of coordinate records; id 0 is the empty comment.
  TextArena comment_list;
  // The layers' entries while a file is read, each layer packed behind the
  // one before it.
  ReservedArray<g_entry> entry_pool;
  size_t entry_pool_used = 0;

  std::string file_name;
  bool modified = false;
  int32_t current_layer = -1;
  int32_t layer_tagged = 0;
  bool decimal_comma = false;

  // Loader and writer working state.
  double current_z = 0;  // the Z in force, the height of the last move
  uint32_t layer_tag_position = UINT32_MAX;  // the first line with ";LAYER:" behind its ";"
  coor_data last_coor;
  bool data_limit_hit = false;
  bool e_relative = false;  // M83 in force
  bool g91_block = false;   // G91 in force: lines are kept as text
  bool arcs_in_plane = true;  // G17, not G18 or G19: arcs are in X and Y

  int32_t layer_capacity() const { return static_cast<int32_t>(layer_list.size()); }

  layer_data& layer(int32_t i) { return layer_list[static_cast<size_t>(i)]; }
  coor_data& coor(const g_entry& e) { return coor_list[e.index]; }
  coor_data& coor(int32_t layer_index, int32_t entry) { return coor_list[layer(layer_index).g[static_cast<size_t>(entry)].index]; }
  std::string_view comment(const coor_data& c) const { return c.comment ? comment_list[c.comment] : std::string_view{}; }

  // Room for one more entry in `layer` (grows g by entry_chunk).
  void ensure_g_capacity(layer_data& layer);
  // Index of a fresh record at the end of the pool (grows by coor_chunk).
  int32_t new_coor_record();
  // The id of a record's comment; a run of moves with the same comment
  // shares one copy.
  uint32_t add_comment(std::string_view text);
  // The centre of arc record `index`, which must be one.
  arc_data& arc(int32_t index) { return *arc_list.find(index); }
  // The centre of a new arc record (of an index above every arc's before).
  void add_arc(int32_t index, double i, double j, double sweep) { arc_list.add({index, i, j, sweep}); }
  // Fits the centre of arc entry `entry` anew after its start moved to
  // `start` or its end moved: a short arc keeps its sweep, a long one its
  // radius.
  void fit_arc(const g_entry& entry, PlanePoint start);
  // The height of move entry `entry` of `layer`: its own where it has one,
  // else its layer's.
  double move_z(const g_entry& entry, const layer_data& layer) {
    const height_data* own = z_list.find(entry.index);
    return own ? own->z : layer.z;
  }
  // The arc that move entry `entry` draws from `from`.
  Arc arc_from(PlanePoint from, const g_entry& entry);
  // The squared length in the plane of move entry `entry` from `from`
  // (along the arc for an arc).
  double plane_length_sq(PlanePoint from, const g_entry& entry);

  // An edit set these fields of record `index` on purpose (never those of
  // the reset line, which no file states).
  void mark_given(int32_t index, uint8_t fields) {
    if (index != reset_record) coor_list[index].given |= fields;
  }
};

// The process-wide document.
extern Document doc;

struct MoveFields;

// Filling the model from G-code lines, whose fields have been read. The
// whole file goes into one layer, which FindLayers then cuts.
void AddMoveRecord(line_kind kind, const MoveFields& fields, std::string_view comment);
void AddG92Record(const MoveFields& fields, std::string_view comment);
// A line kept exactly as it was read.
void AddTextRecord(std::string_view line);

// Empties the document when `loaded` is false (one layer holding G1 Z0);
// in both cases enables or disables the controls that need a document.
void ResetDocument(bool loaded);
void SetDocumentControls(bool enabled);
// Who keeps state about the document's layers and records (the lists) is
// told when the document is emptied or its controls disabled.
void SetResetListener(void (*listener)());
bool IsDocumentLoaded();
void ShowStatus(std::string_view text, int panel);

}  // namespace korvexed
