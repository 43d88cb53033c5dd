#pragma once
// What one step of the history needs to take an edit back: the old values
// of everything the edit changed, saved by the edit itself just before each
// change (only the first change of a value in a step is saved). Redo does
// not need them: it runs the edit again on the same document, which gives
// the same result to the last bit.
#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "document/document.h"

namespace korvexed {

// Record indices packed as runs of consecutive ones: Translate saves every
// move, and the moves of a file are mostly consecutive records.
struct IndexRuns {
  struct Run {
    int32_t first, count;
  };
  std::vector<Run> runs;
  void add(int32_t index);
  size_t bytes() const { return runs.capacity() * sizeof(Run); }
};

class StepRecord {
 public:
  // Starts a step on the document as it is now.
  StepRecord();

  // The edits call these before they change the document.
  void save_record(int32_t index) {
    if (index < record_count_ && !(state(index) & saved_all)) save_whole(index);
  }
  void save_e(int32_t index) {
    if (index < record_count_ && !(state(index) & (saved_all | saved_e))) save_e_value(index);
  }
  void save_xy(int32_t index);
  void save_entries(int32_t layer);
  void save_arc(int32_t index);
  void save_height(int32_t index);
  void save_text(int32_t index);
  void save_layer_z(int32_t layer);
  // Layer `layer` was taken out: its slot went behind the last layer.
  void layer_removed(int32_t layer);

  // The edit is over: packs what was saved. False when it changed nothing.
  bool finish();
  // Puts the document back as it was when the step started.
  void undo();
  size_t bytes() const;

 private:
  enum : uint8_t { saved_all = 1, saved_e = 2, saved_xy = 4 };
  // Called for every record an edit walks over: kept inline.
  uint8_t& state(int32_t index) { return states_[index]; }
  void save_whole(int32_t index);
  void restore_layers();

  // A whole record; `kept` names the fields whose older values a partial
  // save holds.
  struct WholeRecord {
    int32_t index;
    uint8_t kept;
    coor_data old;
  };
  // E of the records of `runs` went up by `delta`, exactly: e - delta gives
  // the old value back to the last bit. E values that differ in binary
  // exponent get different deltas; the few that no delta gives back exactly
  // are kept as they were.
  struct EShift {
    int32_t first, count;
    double delta;
  };
  struct EValue {
    int32_t index;
    double e;
  };
  // E is saved for each record an E shift walks over: often every record
  // after the edit. Made inline, with room for all of them at the first.
  void save_e_value(int32_t index) {
    if (e_old_.empty()) e_old_.reserve(static_cast<size_t>(record_count_ - index));
    e_old_.push_back({index, doc.coor_list[index].e});
    state(index) |= saved_e;
  }
  struct LayerEntries {
    int32_t layer, g_count, coor_count;
    std::vector<g_entry> entries;
  };
  struct TextLine {
    int32_t index;
    std::string text;
  };
  // The layer list's changes in the order they were made.
  struct LayerChange {
    int32_t layer;
    bool removed;  // else its z and dz were changed from these
    double z, dz;
  };
  template <class Row>
  struct TableRows {
    size_t count = 0;  // rows of the table before the step; later ones are new
    std::vector<Row> old;
    std::unordered_set<int32_t> saved;
  };

  int32_t record_count_;  // records made by the step come after these
  uint8_t* states_;       // record_states(), which no step resizes
  std::vector<WholeRecord> records_;
  IndexRuns xy_runs_;
  std::vector<double> xy_values_;
  std::vector<EValue> e_old_;  // while the edit runs
  std::vector<EShift> e_shifts_;
  std::vector<EValue> e_kept_;
  std::vector<LayerEntries> entries_;
  std::unordered_set<int32_t> entries_saved_;
  std::vector<LayerChange> layer_changes_;
  std::vector<TextLine> texts_;
  TableRows<arc_data> arcs_;
  TableRows<height_data> heights_;
};

// The step being recorded, or null when the edits run outside the history.
extern StepRecord* recorded_step;

// The edits call this before they change the document, naming what the
// step being recorded (if any) must save: save_for_undo(&StepRecord::save_e, index).
template <class... Params, class... Args>
void save_for_undo(void (StepRecord::*save)(Params...), Args... args) {
  if (recorded_step) (recorded_step->*save)(args...);
}

}  // namespace korvexed
