#pragma once
#include <cstdint>

#include "document/reserved_array.h"

namespace korvexed {

// An array whose capacity grows by whole blocks of `Block` elements. Its
// storage never moves, so a pool of millions of records is never copied.
template <class T, int32_t Block>
class BlockPool {
 public:
  T& operator[](int32_t i) { return items_[static_cast<size_t>(i)]; }
  const T& operator[](int32_t i) const { return items_[static_cast<size_t>(i)]; }

  int32_t capacity() const { return capacity_; }
  void grow() {
    items_.reserve(static_cast<size_t>(capacity_) + Block);
    capacity_ += Block;
  }

 private:
  ReservedArray<T> items_;
  int32_t capacity_ = 0;
};

}  // namespace korvexed
