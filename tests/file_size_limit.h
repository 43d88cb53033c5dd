#pragma once
// While one lives, this process may not write a file beyond `bytes`: the
// write fails with "File too large" instead of the signal ending the test.
#include <sys/resource.h>

#include <csignal>

namespace korvexed::testing {

class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &old_);
    rlimit small = old_;
    small.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &old_); }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit old_{};
};

}  // namespace korvexed::testing
