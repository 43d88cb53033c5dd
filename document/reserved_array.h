#pragma once
// Storage that only grows, in address space reserved once: it never moves
// what it holds, and its memory is mapped in large steps that are each
// faulted in by one system call instead of one page at a time.
#include <cstddef>
#include <type_traits>

namespace korvexed {

class ReservedBytes {
 public:
  ReservedBytes() = default;
  ReservedBytes(const ReservedBytes&) = delete;
  ReservedBytes& operator=(const ReservedBytes&) = delete;
  ~ReservedBytes();

  char* data() const { return base_; }
  size_t committed() const { return committed_; }
  // Makes at least the first `bytes` usable (fresh memory reads as zeros).
  // Throws std::bad_alloc when the system refuses.
  void commit(size_t bytes);

 private:
  char* base_ = nullptr;
  size_t reserved_ = 0;
  size_t committed_ = 0;
};

// An array of plain records over ReservedBytes. Fresh elements are zero
// bytes, which is the default value of every record the document keeps.
template <class T>
class ReservedArray {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

 public:
  T* data() { return reinterpret_cast<T*>(bytes_.data()); }
  const T* data() const { return reinterpret_cast<const T*>(bytes_.data()); }
  T& operator[](size_t i) { return data()[i]; }
  const T& operator[](size_t i) const { return data()[i]; }

  // Elements usable now.
  size_t room() const { return bytes_.committed() / sizeof(T); }
  void reserve(size_t count) {
    if (count > room()) bytes_.commit(count * sizeof(T));
  }

 private:
  ReservedBytes bytes_;
};

}  // namespace korvexed
