#include "cli/output.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

#include "cli/dump.h"
#include "document/korvexed_file.h"
#include "platform/platform.h"

namespace korvexed::cli {

namespace {

bool IsStandardOutput(const std::string& path) { return path == "-"; }

void ErrorMessage(const std::string& text) { platform().message_box(text, MsgIcon::exclamation, MsgButtons::ok); }

bool WriteFailed(const char* what, int error) {
  ErrorMessage(std::string("Error while writing ") + what + ": " + std::strerror(error));
  return false;
}

// Writes through `write` to the path or standard output.
bool WriteThrough(const std::string& path, const char* what, const std::function<bool(std::FILE*)>& write) {
  if (IsStandardOutput(path)) return (write(stdout) && std::fflush(stdout) == 0) || WriteFailed(what, errno);
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) {
    const int error = errno;
    ErrorMessage("Unable to open " + path + "\r\nError " + std::to_string(error) + ": " + std::strerror(error));
    return false;
  }
  const bool written = write(file);
  const int write_error = errno;
  const bool closed = std::fclose(file) == 0;
  return (written && closed) || WriteFailed(what, written ? errno : write_error);
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
