#pragma once
#include <string_view>
#include <system_error>
#include <vector>

namespace korvexed {

// Splits a file into the pieces the loader reads: a line ends at CR, CR LF
// or the end of the file, and an empty line is dropped; inside a line every
// LF ends a piece (an empty piece before an LF is kept), and what follows
// the last LF is a piece only when it is not empty. Reads in blocks, so a
// file is never held whole in memory.
class PieceReader {
 public:
  explicit PieceReader(int fd);
  // The next piece, valid until the next call; false at the end of the
  // file. Throws std::system_error when reading fails.
  bool next(std::string_view& piece);

 private:
  bool fill();  // false at the end of the file

  int fd_;
  std::vector<char> buffer_;
  size_t begin_ = 0, end_ = 0;
  bool eof_ = false;
  bool skip_lf_ = false;  // the last line ended with CR: an LF next is part of it
};

}  // namespace korvexed
