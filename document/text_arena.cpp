#include "document/text_arena.h"

#include <algorithm>
#include <cstring>

namespace korvexed {

TextArena::TextArena() { clear(); }

uint32_t TextArena::add(std::string_view text) {
  if (text.empty()) return 0;
  // Runs of moves often carry the same comment: store it once.
  if (spans_.size() > 1 && spans_.back() == text) return static_cast<uint32_t>(spans_.size() - 1);
  if (text.size() > free_in_block_) {
    const size_t size = std::max(block_bytes, text.size());
    blocks_.push_back(std::make_unique<char[]>(size));
    next_ = blocks_.back().get();
    free_in_block_ = size;
  }
  std::memcpy(next_, text.data(), text.size());
  spans_.emplace_back(next_, text.size());
  next_ += text.size();
  free_in_block_ -= text.size();
  return static_cast<uint32_t>(spans_.size() - 1);
}

void TextArena::clear() {
  blocks_.clear();
  free_in_block_ = 0;
  next_ = nullptr;
  spans_.assign(1, std::string_view{});
}

}  // namespace korvexed
