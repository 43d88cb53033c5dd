#include "editing/history.h"

#include <algorithm>
#include <utility>

#include "platform/platform.h"

namespace korvexed {

History history;

size_t DocumentBytes() {
  size_t bytes = static_cast<size_t>(doc.coor_list_count) * sizeof(coor_data) + doc.comment_list.bytes() +
                 doc.text_list.bytes() + doc.arc_list.size() * sizeof(arc_data) +
                 doc.z_list.size() * sizeof(height_data);
  for (int32_t l = 0; l < doc.layer_count; ++l) bytes += static_cast<size_t>(doc.layer(l).g_count) * sizeof(g_entry);
  return bytes;
}

bool HistoryTooBig(size_t steps, size_t bytes, size_t document_bytes) {
  constexpr size_t small_file_allowance = size_t{64} << 20;
  return steps > History::max_steps || bytes > std::max(document_bytes, small_file_allowance);
}

bool History::run(std::string name, Edit edit) {
  end();
  begin(std::move(name), edit);
  const bool changed = edit();
  end(changed);
  return changed;
}

void History::begin(std::string name, Edit redo) {
  pending_ = std::make_unique<Step>(
      Step{std::move(name), std::move(redo), CaptureListView(), std::make_unique<StepRecord>(), state_, 0});
  recorded_step = pending_->record.get();
}

void History::end(bool changed) {
  if (!pending_) return;
  recorded_step = nullptr;
  Step step = std::move(*pending_);
  pending_.reset();
  if (!step.record->finish() || !changed) return;
  step.after = ++last_state_;
  undone_.clear();
  push(std::move(step));
}

void History::push(Step step) {
  state_ = step.after;
  done_.push_back(std::move(step));
  // The newest step always stays.
  while (done_.size() > 1 && HistoryTooBig(done_.size(), bytes(), DocumentBytes())) done_.pop_front();
  changed();
}

void History::changed() {
  doc.modified = state_ != clean_;
  platform().show_history(can_undo() ? undo_name() : "", can_redo() ? redo_name() : "");
}

void History::undo() {
  if (done_.empty() || recording()) return;
  Step step = std::move(done_.back());
  done_.pop_back();
  step.record->undo();
  step.record.reset();
  RestoreListView(step.view);
  state_ = step.before;
  undone_.push_back(std::move(step));
  changed();
}

void History::redo() {
  if (undone_.empty() || recording()) return;
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
  end(false);
  done_.clear();
  undone_.clear();
  // A document left unsaved by a failed load stays so.
  state_ = ++last_state_;
  clean_ = doc.modified ? 0 : state_;
  changed();
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
