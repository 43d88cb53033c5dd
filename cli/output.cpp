#include "cli/output.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

#include "cli/dump.h"
#include "document/korvexed_file.h"
#include "document/replace_file.h"
#include "platform/platform.h"

namespace korvexed::cli {

namespace {

bool IsStandardOutput(const std::string& path) { return path == "-"; }

bool WriteFailed(const char* what, int error) {
  platform().message_box(std::string("Error while writing ") + what + ": " + std::strerror(error), MsgIcon::exclamation,
                         MsgButtons::ok);
  return false;
}

// Writes through `write` to standard output, or to the path as a whole:
// a failed write leaves no partial file behind.
bool WriteThrough(const std::string& path, const char* what, const std::function<bool(std::FILE*)>& write) {
  if (IsStandardOutput(path)) return (write(stdout) && std::fflush(stdout) == 0) || WriteFailed(what, errno);
  const auto write_stream = [&write](int fd) {
    std::FILE* file = ::fdopen(::dup(fd), "wb");
    if (!file) return errno;
    int error = write(file) ? 0 : (errno ? errno : EIO);
    if (std::fclose(file) != 0 && !error) error = errno;
    return error;
  };
  return ReplaceFile(path, write_stream, [what](int error) { WriteFailed(what, error); });
}

}  // namespace

bool WriteGCodeTo(const std::string& path, uint8_t mode) {
  if (!IsStandardOutput(path)) return SaveGCode(path, mode);
  // What was printed before must come first.
  std::fflush(stdout);
  return WriteGCode(STDOUT_FILENO, mode);
}

bool WriteDumpTo(const std::string& path) { return WriteThrough(path, "the dump", WriteDump); }

bool WriteBytesTo(const std::string& path, const std::string& bytes, const char* what) {
  return WriteThrough(path, what, [&bytes](std::FILE* out) {
    return std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
  });
}

}  // namespace korvexed::cli
