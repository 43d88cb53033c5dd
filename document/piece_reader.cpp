#include "document/piece_reader.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace korvexed {

namespace {

constexpr size_t block_bytes = 1 << 20;

const char* find_line_end(const char* p, const char* end) {
#ifdef __SSE2__
  const __m128i cr = _mm_set1_epi8('\r');
  const __m128i lf = _mm_set1_epi8('\n');
  for (; end - p >= 16; p += 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const int hits = _mm_movemask_epi8(_mm_or_si128(_mm_cmpeq_epi8(bytes, cr), _mm_cmpeq_epi8(bytes, lf)));
    if (hits) return p + __builtin_ctz(static_cast<unsigned>(hits));
  }
#endif
  for (; p < end; ++p) {
    if (*p == '\r' || *p == '\n') return p;
  }
  return end;
}

}  // namespace

PieceReader::PieceReader(int fd) : fd_(fd), buffer_(block_bytes) {}

bool PieceReader::fill() {
  if (eof_) return false;
  // Keep the unfinished piece at the front; grow only for a piece longer
  // than the buffer.
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
  }
  if (end_ == buffer_.size()) buffer_.resize(buffer_.size() * 2);
  for (;;) {
    const ssize_t got = ::read(fd_, buffer_.data() + end_, buffer_.size() - end_);
    if (got > 0) {
      end_ += static_cast<size_t>(got);
      return true;
    }
    if (got == 0) {
      eof_ = true;
      return false;
    }
    if (errno != EINTR) throw std::system_error(errno, std::generic_category());
  }
}

bool PieceReader::next(std::string_view& piece) {
  for (;;) {
    if (skip_lf_) {
      if (begin_ == end_ && fill()) continue;
      if (begin_ < end_ && buffer_[begin_] == '\n') ++begin_;
      skip_lf_ = false;
    }
    const char* start = buffer_.data() + begin_;
    const char* stop = buffer_.data() + end_;
    const char* eol = find_line_end(start, stop);
    if (eol != stop) {
      piece = std::string_view(start, static_cast<size_t>(eol - start));
      begin_ = static_cast<size_t>(eol - buffer_.data()) + 1;
      skip_lf_ = *eol == '\r';
      return true;
    }
    if (fill()) continue;
    if (begin_ == end_) return false;
    piece = std::string_view(buffer_.data() + begin_, end_ - begin_);
    begin_ = end_;
    return true;
  }
}

}  // namespace korvexed
