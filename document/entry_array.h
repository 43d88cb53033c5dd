#pragma once
#include <algorithm>
#include <cstdint>
#include <memory>

namespace korvexed {

// g2 and g3 are arcs, clockwise and counter-clockwise.
enum class line_kind : uint8_t { text = 0, layer_change = 1, g1 = 2, g0 = 3, g92 = 4, g2 = 5, g3 = 6 };

struct g_entry {
  line_kind kind = line_kind::text;
  int32_t index = 0;  // into coor_list for g1/g0/g92, into text_list for text
};

// A layer's entries. Its capacity grows by blocks of entries; its storage
// is a stretch of the document's shared entry pool, packed behind the
// layer before it while a file is read, or an array of its own once an
// edit outgrows that stretch.
class EntryArray {
 public:
  g_entry& operator[](size_t i) { return data_[i]; }
  const g_entry& operator[](size_t i) const { return data_[i]; }
  g_entry* begin() { return data_; }
  const g_entry* begin() const { return data_; }

  int32_t capacity() const { return capacity_; }
  void set_capacity(int32_t capacity) { capacity_ = capacity; }

  // Entries that the storage holds now, and where it ends.
  int32_t room() const { return room_; }
  const g_entry* end_of_room() const { return data_ + room_; }

  // An empty stretch of the pool at `start`.
  void place_at(g_entry* start) {
    own_.reset();
    data_ = start;
    room_ = 0;
  }
  // The stretch grew in place.
  void widen(int32_t room) { room_ = room; }
  // Moves the entries into an array of its own of `room` entries.
  void move_to_own(int32_t room) {
    auto fresh = std::make_unique_for_overwrite<g_entry[]>(static_cast<size_t>(room));
    std::copy(data_, data_ + room_, fresh.get());
    own_ = std::move(fresh);
    data_ = own_.get();
    room_ = room;
  }

 private:
  g_entry* data_ = nullptr;
  int32_t capacity_ = 0;
  int32_t room_ = 0;
  std::unique_ptr<g_entry[]> own_;
};

}  // namespace korvexed
