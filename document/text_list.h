#pragma once
#include <cstdint>
#include <string_view>

#include "document/text_arena.h"

namespace korvexed {

// The document's whole text lines, addressed by index, with a capacity
// that grows by blocks of `text_chunk` lines. A line reads as a
// string_view and is replaced by assigning a text to it.
class TextList {
 public:
  class Line {
   public:
    Line(TextArena& arena, uint32_t id) : arena_(arena), id_(id) {}
    operator std::string_view() const { return arena_[id_]; }
    Line& operator=(std::string_view text) {
      arena_.replace(id_, text);
      return *this;
    }
    friend bool operator==(const Line& line, std::string_view text) { return std::string_view(line) == text; }

   private:
    TextArena& arena_;
    uint32_t id_;
  };

  Line operator[](int32_t i) { return {lines_, static_cast<uint32_t>(i)}; }
  std::string_view operator[](int32_t i) const { return lines_[static_cast<uint32_t>(i)]; }

  int32_t capacity() const { return capacity_; }
  void grow(int32_t block) { capacity_ += block; }
  // A new line at the end; its index is the count of lines before it.
  void add(std::string_view text) { lines_.add(text); }
  void add(std::string_view head, char joint, std::string_view tail) { lines_.add(head, joint, tail); }
  void clear() { lines_.clear(); }
  size_t bytes() const { return lines_.bytes(); }

 private:
  TextArena lines_;
  int32_t capacity_ = 0;
};

}  // namespace korvexed
