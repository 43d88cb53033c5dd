#include "editing/history.h"

#include <utility>

namespace korvexed {

History history;

size_t DocumentBytes() {
  size_t bytes = static_cast<size_t>(doc.coor_list_count) * sizeof(coor_data) + doc.comment_list.bytes() +
                 doc.text_list.bytes() + doc.arc_list.size() * sizeof(arc_data) +
                 doc.z_list.size() * sizeof(height_data);
  for (int32_t l = 0; l < doc.layer_count; ++l) bytes += static_cast<size_t>(doc.layer(l).g_count) * sizeof(g_entry);
  return bytes;
}

bool History::run(std::string name, Edit edit) {
  begin(std::move(name));
  const bool changed = edit();
  end(std::move(edit), changed);
  return changed;
}

void History::begin(std::string name) {
  pending_ = std::make_unique<Step>(Step{std::move(name), {}, CaptureListView(), std::make_unique<StepRecord>(), state_, 0});
  recorded_step = pending_->record.get();
}

void History::end(Edit redo, bool changed) {
  if (!pending_) return;
  recorded_step = nullptr;
  Step step = std::move(*pending_);
  pending_.reset();
  // A step that changed nothing is no step.
  if (!step.record->finish() || !changed) return;
  step.edit = std::move(redo);
  step.after = ++last_state_;
  undone_.clear();
  push(std::move(step));
}

void History::push(Step step) {
  state_ = step.after;
  done_.push_back(std::move(step));
  while (done_.size() > max_steps || (done_.size() > 1 && bytes() > DocumentBytes())) done_.pop_front();
  set_modified();
}

void History::undo() {
  if (done_.empty()) return;
  Step step = std::move(done_.back());
  done_.pop_back();
  step.record->undo();
  step.record.reset();
  RestoreListView(step.view);
  state_ = step.before;
  undone_.push_back(std::move(step));
  set_modified();
}

void History::redo() {
  if (undone_.empty()) return;
  Step step = std::move(undone_.back());
  undone_.pop_back();
  // The edit runs again on what it saw the first time.
  RestoreListView(step.view);
  step.record = std::make_unique<StepRecord>();
  recorded_step = step.record.get();
  step.edit();
  recorded_step = nullptr;
  step.record->finish();
  push(std::move(step));
}

void History::clear() {
  if (pending_) end({}, false);
  done_.clear();
  undone_.clear();
  // A document left unsaved by a failed load stays so.
  state_ = ++last_state_;
  clean_ = doc.modified ? 0 : state_;
}

void History::saved() {
  clean_ = state_;
  doc.modified = false;
}

size_t History::bytes() const {
  size_t total = 0;
  for (const Step& step : done_) total += step.record->bytes() + step.view.bytes();
  for (const Step& step : undone_) total += step.view.bytes();
  return total;
}

}  // namespace korvexed
