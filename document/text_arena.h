#pragma once
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace korvexed {

// Append-only store of short texts (the comments of coordinate records),
// addressed by a 32-bit id. Id 0 is always the empty text. Texts are packed
// into large blocks, so a million commented moves do not cost a million
// heap strings.
class TextArena {
 public:
  TextArena();
  uint32_t add(std::string_view text);
  std::string_view operator[](uint32_t id) const { return spans_[id]; }
  void clear();

 private:
  static constexpr size_t block_bytes = 1 << 20;
  std::vector<std::unique_ptr<char[]>> blocks_;
  size_t free_in_block_ = 0;
  char* next_ = nullptr;
  std::vector<std::string_view> spans_;
};

}  // namespace korvexed
