#pragma once
// Values that only some records have (an arc's centre, a move's own
// height), kept beside the pool rather than in every record: a table in
// the order of the record indices, which only grow.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "document/reserved_array.h"

namespace korvexed {

// T starts with `int32_t index`, the record it belongs to.
template <class T>
class RecordTable {
 public:
  // The row of a record with an index above every row's before.
  void add(const T& row) {
    rows_.reserve(count_ + 1);
    rows_[count_++] = row;
  }
  // The row of record `index`, or null. A layer is mostly walked in the
  // order of its records: the row after the one found last is the
  // likeliest.
  T* find(int32_t index) {
    T* const first = rows_.data();
    if (hint_ + 1 < count_ && first[hint_ + 1].index == index) return &first[++hint_];
    if (hint_ < count_ && first[hint_].index == index) return &first[hint_];
    // Between the row found last and the next: no row, and no search.
    if (hint_ + 1 < count_ && first[hint_].index < index && index < first[hint_ + 1].index) return nullptr;
    T* const at = std::lower_bound(first, first + count_, index, [](const T& row, int32_t i) { return row.index < i; });
    if (at == first + count_ || at->index != index) return nullptr;
    hint_ = static_cast<size_t>(at - first);
    return at;
  }
  size_t size() const { return count_; }
  void clear() { count_ = hint_ = 0; }
  // Drops the rows after the first `count`.
  void truncate(size_t count) {
    count_ = count;
    hint_ = 0;
  }

 private:
  ReservedArray<T> rows_;
  size_t count_ = 0;
  size_t hint_ = 0;  // the row found last
};

}  // namespace korvexed
