#include "document/text_arena.h"

#include <cstring>

namespace korvexed {

char* TextArena::append(size_t bytes) {
  bytes_.reserve(used_ + bytes);
  char* start = bytes_.data() + used_;
  used_ += bytes;
  return start;
}

uint32_t TextArena::new_id(std::string_view stored) {
  spans_.reserve(count_ + size_t{1});
  spans_[count_] = stored;
  return count_++;
}

std::string_view TextArena::store(std::string_view text) {
  char* start = append(text.size());
  if (!text.empty()) std::memcpy(start, text.data(), text.size());
  return {start, text.size()};
}

uint32_t TextArena::add(std::string_view text) { return new_id(store(text)); }

uint32_t TextArena::add(std::string_view head, char joint, std::string_view tail) {
  char* start = append(head.size() + 1 + tail.size());
  if (!head.empty()) std::memcpy(start, head.data(), head.size());
  start[head.size()] = joint;
  if (!tail.empty()) std::memcpy(start + head.size() + 1, tail.data(), tail.size());
  return new_id({start, head.size() + 1 + tail.size()});
}

void TextArena::replace(uint32_t id, std::string_view text) { spans_[id] = store(text); }

}  // namespace korvexed
