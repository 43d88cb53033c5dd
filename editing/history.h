#pragma once
// The history of the edits. Every command that changes the document is one
// step; Undo puts the document, the current layer, the rows on view and the
// marks back as they were before it, and Redo runs the step's edit again on
// exactly that, which gives exactly the document the step gave.
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editing/list_state.h"
#include "editing/step_record.h"

namespace korvexed {

class History {
 public:
  // Older steps than these are dropped, and so are the oldest whenever the
  // history would take more memory than the document itself (see
  // HistoryTooBig).
  static constexpr size_t max_steps = 100;

  // An edit; true when it changed the document.
  using Edit = std::function<bool()>;

  // Runs `edit` as the step `name` ("Move", "Delete Selected Data"); its
  // result. A step under way (a drag) ends first.
  bool run(std::string name, Edit edit);
  // A step made of several edits in turn (the moves of a drag): begin with
  // the edit that does them all again (it may gather them as they come),
  // the edits, then end. A step that changed nothing is no step.
  void begin(std::string name, Edit redo);
  bool recording() const { return pending_ != nullptr; }
  void end(bool changed = true);

  bool can_undo() const { return !done_.empty(); }
  bool can_redo() const { return !undone_.empty(); }
  // The names of the steps Undo and Redo would take.
  const std::string& undo_name() const { return done_.back().name; }
  const std::string& redo_name() const { return undone_.back().name; }
  // Each does nothing when there is no step to take, or while a step is
  // being recorded (during a drag).
  void undo();
  void redo();

  // After a load or a failed one: no steps; the document is clean unless
  // it is still `modified`.
  void clear();
  // After a save: the document as it is now is clean.
  void saved();
  size_t bytes() const;
  size_t size() const { return done_.size(); }

 private:
  struct Step {
    std::string name;
    Edit edit;
    ListView view;  // before the step
    std::unique_ptr<StepRecord> record;  // null once undone
    uint64_t before = 0, after = 0;  // the document states around it
  };
  void push(Step step);
  // `modified`, and the Undo and Redo items, follow the history.
  void changed();

  std::deque<Step> done_;
  std::vector<Step> undone_;
  std::unique_ptr<Step> pending_;
  // Every document state the history reached has a number of its own.
  uint64_t state_ = 0, clean_ = 0, last_state_ = 0;
};

extern History history;

// The memory of the document: its records, entries, texts and side tables.
size_t DocumentBytes();
// Whether a history of `steps` steps taking `bytes` is too big for a
// document of `document_bytes`. A small file may still keep its hundred
// steps: the views they bring back alone can outweigh it.
bool HistoryTooBig(size_t steps, size_t bytes, size_t document_bytes);

}  // namespace korvexed
