#include "document/replace_file.h"

#include <fcntl.h>
#include <libgen.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "document/open_error.h"

namespace korvexed {

namespace {

mode_t default_file_mode() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

// A device or a pipe cannot be replaced.
int write_in_place(const std::string& path, const std::string& target, const FileWriter& write) {
  const int fd = ::open(target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
  if (fd < 0) {
    ShowOpenError(path, errno);
    return -1;
  }
  int error = write(fd);
  if (::close(fd) != 0 && !error) error = errno;
  return error;
}

// 0, the errno of a failed write, or -1 when the failure was reported as
// one of opening.
int replace(const std::string& path, const FileWriter& write) {
  // Write through a symbolic link into the file it names.
  std::string target = path;
  if (char* resolved = ::realpath(path.c_str(), nullptr)) {
    target = resolved;
    std::free(resolved);
  }
  struct stat existing {};
  const bool exists = ::stat(target.c_str(), &existing) == 0;
  if (exists && S_ISDIR(existing.st_mode)) {
    ShowOpenError(path, EISDIR);
    return -1;
  }
  if (exists && !S_ISREG(existing.st_mode)) return write_in_place(path, target, write);
  if (exists && ::access(target.c_str(), W_OK) != 0) {
    ShowOpenError(path, errno);
    return -1;
  }

  std::string dir_buf = target, name_buf = target;
  std::string temp = std::string(::dirname(dir_buf.data())) + "/." + ::basename(name_buf.data()) + ".korvexed-XXXXXX";
  const int fd = ::mkstemp(temp.data());
  if (fd < 0) {
    ShowOpenError(path, errno);
    return -1;
  }
  int error = ::fchmod(fd, exists ? (existing.st_mode & 07777) : default_file_mode()) == 0 ? 0 : errno;
  if (!error) error = write(fd);
  if (!error && ::fsync(fd) != 0) error = errno;
  if (::close(fd) != 0 && !error) error = errno;
  if (!error && ::rename(temp.c_str(), target.c_str()) != 0) error = errno;
  if (error) ::unlink(temp.c_str());
  return error;
}

}  // namespace

bool ReplaceFile(const std::string& path, const FileWriter& write, const std::function<void(int error)>& write_failed) {
  const int error = replace(path, write);
  if (error > 0) write_failed(error);
  return error == 0;
}

}  // namespace korvexed
