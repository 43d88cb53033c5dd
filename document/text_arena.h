#pragma once
#include <cstdint>
#include <string_view>

#include "document/reserved_array.h"

namespace korvexed {

// Append-only store of texts addressed by a 32-bit id, all packed into one
// reserved byte array: a million lines do not cost a million heap strings,
// and the texts never move.
class TextArena {
 public:
  uint32_t add(std::string_view text);
  // The text head, joint and tail, stored as one.
  uint32_t add(std::string_view head, char joint, std::string_view tail);
  // The text of `id` becomes `text`; the old bytes stay unused until clear.
  void replace(uint32_t id, std::string_view text);

  std::string_view operator[](uint32_t id) const { return spans_[id]; }
  uint32_t size() const { return count_; }
  size_t bytes() const { return used_ + count_ * sizeof(std::string_view); }
  void clear() { count_ = 0, used_ = 0; }

 private:
  // Room for `bytes` more bytes; their start.
  char* append(size_t bytes);
  std::string_view store(std::string_view text);
  uint32_t new_id(std::string_view stored);

  ReservedArray<char> bytes_;
  size_t used_ = 0;
  ReservedArray<std::string_view> spans_;
  uint32_t count_ = 0;
};

}  // namespace korvexed
