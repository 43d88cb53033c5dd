#pragma once
#include <cstdint>
#include <memory>
#include <vector>

namespace korvexed {

// An array that grows by whole blocks of `Block` elements. Growing never
// moves what is already stored, so a pool of millions of records costs one
// allocation per block instead of a copy of everything at each step.
template <class T, int32_t Block>
class BlockPool {
 public:
  static constexpr int32_t block_size = Block;

  T& operator[](int32_t i) { return blocks_[i / Block][i % Block]; }
  const T& operator[](int32_t i) const { return blocks_[i / Block][i % Block]; }

  int32_t capacity() const { return static_cast<int32_t>(blocks_.size()) * Block; }
  void grow() { blocks_.push_back(std::make_unique<T[]>(Block)); }

 private:
  std::vector<std::unique_ptr<T[]>> blocks_;
};

}  // namespace korvexed
