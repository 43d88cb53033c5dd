#include "document/reserved_array.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <new>

namespace korvexed {

namespace {

// Address space only: no memory is committed to it until it is mapped.
constexpr size_t wanted_reservation = size_t{1} << 38;
constexpr size_t smallest_reservation = size_t{1} << 30;
// Steps are whole huge pages, so that the kernel can back them with huge
// pages: one zeroed 2 MB page instead of 512 faults, and far fewer TLB
// misses while millions of records are written and read.
constexpr size_t huge_page = size_t{2} << 20;
// A step is an eighth of what is held, within these bounds: a pool holds
// at most 8 MB unused, and with huge pages a step costs the same whether
// it is large or small.
constexpr size_t smallest_step = huge_page;
constexpr size_t largest_step = size_t{8} << 20;

size_t round_up(size_t n, size_t to) { return (n + to - 1) / to * to; }

}  // namespace

ReservedBytes::~ReservedBytes() {
  if (base_) ::munmap(base_, reserved_);
}

void ReservedBytes::reserve() {
  for (size_t size = wanted_reservation; size >= smallest_reservation; size /= 2) {
    void* p = ::mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (p == MAP_FAILED) continue;
    // Start on a huge page boundary; the space before it goes back.
    const uintptr_t start = reinterpret_cast<uintptr_t>(p);
    const size_t skip = round_up(start, huge_page) - start;
    if (skip) ::munmap(p, skip);
    base_ = static_cast<char*>(p) + skip;
    reserved_ = size - skip;
    return;
  }
  throw std::bad_alloc();
}

void ReservedBytes::commit(size_t bytes) {
  if (bytes <= committed_) return;
  if (!base_) reserve();
  if (bytes > reserved_) throw std::bad_alloc();
  const size_t step = std::clamp(committed_ / 8, smallest_step, largest_step);
  const size_t target = std::min(round_up(std::max(bytes, committed_ + step), huge_page), reserved_);
  char* const start = base_ + committed_;
  const size_t length = target - committed_;
  if (::mmap(start, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) == MAP_FAILED)
    throw std::bad_alloc();
  // Huge pages are a hint: without them the step is made of small pages.
  ::madvise(start, length, MADV_HUGEPAGE);
  // The whole step is faulted in by one call, not page by page; a kernel
  // older than 5.14 does it as the mapping is made again.
  if (::madvise(start, length, MADV_POPULATE_WRITE) != 0 &&
      ::mmap(start, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED | MAP_POPULATE, -1, 0) ==
          MAP_FAILED)
    throw std::bad_alloc();
  committed_ = target;
}

}  // namespace korvexed
