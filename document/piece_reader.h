#pragma once
#include <string_view>
#include <system_error>
#include <vector>

namespace korvexed {

// Splits a file into its lines: a line ends at LF, CR LF or a bare CR, and
// empty lines are kept; what follows the last line end is a line only when
// it is not empty. Reads in blocks, so a file is never held whole in
// memory.
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
