#include "editing/step_record.h"

#include <algorithm>

namespace korvexed {

StepRecord* recorded_step = nullptr;

namespace {

// Which values of each record the step being recorded has saved, indexed
// by record. Kept between steps, each step clearing what it set.
std::vector<uint8_t>& record_states() {
  static std::vector<uint8_t> states;
  return states;
}

// Calls f(index, k) for every index of `runs`, k counting from 0.
template <class F>
void for_each_index(const IndexRuns& runs, F f) {
  size_t k = 0;
  for (const IndexRuns::Run& run : runs.runs)
    for (int32_t i = 0; i < run.count; ++i) f(run.first + i, k++);
}

template <class T>
size_t vector_bytes(const std::vector<T>& v) {
  return v.capacity() * sizeof(T);
}

template <class Row>
void save_row(RecordTable<Row>& table, std::vector<Row>& old, std::unordered_set<int32_t>& saved, int32_t index) {
  if (saved.insert(index).second) old.push_back(*table.find(index));
}

template <class Row>
void restore_rows(RecordTable<Row>& table, size_t count, const std::vector<Row>& old) {
  table.truncate(count);
  for (const Row& row : old) *table.find(row.index) = row;
}

}  // namespace

void IndexRuns::add(int32_t index) {
  if (!runs.empty() && runs.back().first + runs.back().count == index) {
    ++runs.back().count;
  } else {
    runs.push_back({index, 1});
  }
}

StepRecord::StepRecord() : record_count_(doc.coor_list_count) {
  arcs_.count = doc.arc_list.size();
  heights_.count = doc.z_list.size();
  std::vector<uint8_t>& states = record_states();
  if (states.size() < static_cast<size_t>(record_count_)) states.resize(static_cast<size_t>(record_count_));
  states_ = states.data();
}

void StepRecord::save_whole(int32_t index) {
  uint8_t& s = state(index);
  records_.push_back({index, s, doc.coor_list[index]});
  s |= saved_all;
}

void StepRecord::save_xy(int32_t index) {
  if (index >= record_count_ || (state(index) & (saved_all | saved_xy))) return;
  xy_runs_.add(index);
  const coor_data& c = doc.coor_list[index];
  xy_values_.push_back(c.x);
  xy_values_.push_back(c.y);
  state(index) |= saved_xy;
}

void StepRecord::save_entries(int32_t layer) {
  if (!entries_saved_.insert(layer).second) return;
  const layer_data& ly = doc.layer(layer);
  entries_.push_back({layer, ly.g_count, ly.coor_count, {ly.g.begin(), ly.g.begin() + ly.g_count}});
}

// Rows of records made by this step are new: the table just loses them.
void StepRecord::save_arc(int32_t index) {
  if (index < record_count_) save_row(doc.arc_list, arcs_.old, arcs_.saved, index);
}

void StepRecord::save_height(int32_t index) {
  if (index < record_count_) save_row(doc.z_list, heights_.old, heights_.saved, index);
}

void StepRecord::save_text(int32_t index) { texts_.push_back({index, std::string(doc.text_list[index])}); }

void StepRecord::save_layer_z(int32_t layer) {
  const layer_data& ly = doc.layer(layer);
  layer_changes_.push_back({layer, false, ly.z, ly.dz});
}

void StepRecord::layer_removed(int32_t layer) { layer_changes_.push_back({layer, true, 0, 0}); }

bool StepRecord::finish() {
  for (const WholeRecord& r : records_) state(r.index) = 0;
  for_each_index(xy_runs_, [&](int32_t index, size_t) { state(index) = 0; });
  for (const auto [index, old] : e_old_) {
    state(index) = 0;
    const double now = doc.coor_list[index].e;
    if (!e_shifts_.empty()) {
      EShift& last = e_shifts_.back();
      if (last.first + last.count == index && now - last.delta == old) {
        ++last.count;
        continue;
      }
    }
    const double delta = now - old;
    if (now - delta == old) e_shifts_.push_back({index, 1, delta});
    else e_kept_.push_back({index, old});
  }
  e_old_ = {};
  records_.shrink_to_fit();
  xy_values_.shrink_to_fit();
  e_kept_.shrink_to_fit();
  xy_runs_.runs.shrink_to_fit();
  e_shifts_.shrink_to_fit();
  entries_saved_ = {};
  arcs_.saved = {};
  heights_.saved = {};
  return !records_.empty() || !xy_runs_.runs.empty() || !e_shifts_.empty() || !e_kept_.empty() ||
         !entries_.empty() || !layer_changes_.empty() || !texts_.empty() || !arcs_.old.empty() ||
         !heights_.old.empty() || doc.coor_list_count != record_count_ || doc.arc_list.size() != arcs_.count ||
         doc.z_list.size() != heights_.count;
}

void StepRecord::undo() {
  // The partial saves first: the E shifts are taken off the values the
  // step left, and a whole record saved after a partial save keeps the
  // older value the partial save holds.
  for (const EShift& shift : e_shifts_)
    for (int32_t i = 0; i < shift.count; ++i) doc.coor_list[shift.first + i].e -= shift.delta;
  for (const EValue& kept : e_kept_) doc.coor_list[kept.index].e = kept.e;
  for_each_index(xy_runs_, [&](int32_t index, size_t k) {
    coor_data& c = doc.coor_list[index];
    c.x = xy_values_[2 * k];
    c.y = xy_values_[2 * k + 1];
  });
  for (const WholeRecord& r : records_) {
    coor_data& c = doc.coor_list[r.index];
    const coor_data now = c;
    c = r.old;
    if (r.kept & saved_e) c.e = now.e;
    if (r.kept & saved_xy) c.x = now.x, c.y = now.y;
  }
  for (auto t = texts_.rbegin(); t != texts_.rend(); ++t) doc.text_list[t->index] = t->text;
  restore_rows(doc.arc_list, arcs_.count, arcs_.old);
  restore_rows(doc.z_list, heights_.count, heights_.old);
  restore_layers();
  doc.coor_list_count = record_count_;
}

void StepRecord::restore_layers() {
  // An edit only ever shrinks a layer's entries in place or grows their
  // storage: the old entries fit where they were.
  for (const LayerEntries& saved : entries_) {
    layer_data& ly = doc.layer(saved.layer);
    std::copy(saved.entries.begin(), saved.entries.end(), ly.g.begin());
    ly.g_count = saved.g_count;
    ly.coor_count = saved.coor_count;
  }
  auto& list = doc.layer_list;
  for (auto change = layer_changes_.rbegin(); change != layer_changes_.rend(); ++change) {
    if (change->removed) {
      // The removed layer's slot comes back from behind the last layer.
      std::rotate(list.begin() + change->layer, list.begin() + doc.layer_count, list.begin() + doc.layer_count + 1);
      ++doc.layer_count;
    } else {
      layer_data& ly = doc.layer(change->layer);
      ly.z = change->z;
      ly.dz = change->dz;
    }
  }
}

size_t StepRecord::bytes() const {
  size_t total = vector_bytes(records_) + xy_runs_.bytes() + vector_bytes(xy_values_) + vector_bytes(e_shifts_) +
                 vector_bytes(e_kept_) + vector_bytes(entries_) + vector_bytes(layer_changes_) +
                 vector_bytes(texts_) + vector_bytes(arcs_.old) + vector_bytes(heights_.old);
  for (const LayerEntries& saved : entries_) total += vector_bytes(saved.entries);
  for (const TextLine& line : texts_) total += line.text.capacity();
  return total;
}

}  // namespace korvexed
