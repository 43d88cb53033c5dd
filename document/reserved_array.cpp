#include "document/reserved_array.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <new>

namespace korvexed {

namespace {

// Address space only: no memory is committed to it until it is mapped.
constexpr size_t wanted_reservation = size_t{1} << 38;
constexpr size_t smallest_reservation = size_t{1} << 30;
// A step is an eighth of what is held, within these bounds: a pool holds
// at most 8 MB unused. Small pages, not huge ones: on virtual machines that
// hand free memory back to their host, a fresh huge page costs more than
// its 512 small pages faulted in by one call.
constexpr size_t smallest_step = size_t{1} << 20;
constexpr size_t largest_step = size_t{8} << 20;

size_t page_size() {
  static const size_t size = static_cast<size_t>(::sysconf(_SC_PAGESIZE));
  return size;
}

}  // namespace

ReservedBytes::~ReservedBytes() {
  if (base_) ::munmap(base_, reserved_);
}

void ReservedBytes::commit(size_t bytes) {
  if (bytes <= committed_) return;
  for (size_t size = wanted_reservation; !base_ && size >= smallest_reservation; size /= 2) {
    void* p = ::mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (p == MAP_FAILED) continue;
    base_ = static_cast<char*>(p);
    reserved_ = size;
  }
  if (!base_ || bytes > reserved_) throw std::bad_alloc();
  const size_t step = std::clamp(committed_ / 8, smallest_step, largest_step);
  size_t target = std::max(bytes, committed_ + step);
  target = std::min((target + page_size() - 1) / page_size() * page_size(), reserved_);
  // MAP_POPULATE faults the whole step in at once.
  void* p = ::mmap(base_ + committed_, target - committed_, PROT_READ | PROT_WRITE,
                   MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED | MAP_POPULATE, -1, 0);
  if (p == MAP_FAILED) throw std::bad_alloc();
  committed_ = target;
}

}  // namespace korvexed
