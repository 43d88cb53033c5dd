#include "cli/output.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "cli/dump.h"
#include "document/korvexed_file.h"
#include "platform/platform.h"

namespace korvexed::cli {

namespace {

bool IsStandardOutput(const std::string& path) { return path == "-"; }

void ErrorMessage(const std::string& text) { platform().message_box(text, MsgIcon::exclamation, MsgButtons::ok); }

bool DumpFailed(int error) {
  ErrorMessage(std::string("Error while writing the dump: ") + std::strerror(error));
  return false;
}

}  // namespace

bool WriteGCodeTo(const std::string& path, uint8_t mode) {
  if (!IsStandardOutput(path)) return SaveGCode(path, mode);
  // What was printed before must come first.
  std::fflush(stdout);
  return WriteGCode(STDOUT_FILENO, mode);
}

bool WriteDumpTo(const std::string& path) {
  if (IsStandardOutput(path)) return WriteDump(stdout) || DumpFailed(errno);
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) {
    const int error = errno;
    ErrorMessage("Unable to open " + path + "\r\nError " + std::to_string(error) + ": " + std::strerror(error));
    return false;
  }
  const bool dumped = WriteDump(file);
  const int dump_error = errno;
  const bool closed = std::fclose(file) == 0;
  return (dumped && closed) || DumpFailed(dumped ? errno : dump_error);
}

}  // namespace korvexed::cli
