#pragma once
// Writing a whole file so that a failure never leaves a partial one: the
// bytes go to a temporary file beside the target, which is synced and
// renamed over it only when complete.
#include <functional>
#include <string>

namespace korvexed {

// Writes to an open descriptor; returns 0 or the errno of a failed write.
using FileWriter = std::function<int(int fd)>;

// Writes `path` through `write`. A path that cannot be opened is reported
// by ShowOpenError, a failed write by `write_failed` with its errno; both
// leave an existing file as it was. A device or a pipe is written in place.
bool ReplaceFile(const std::string& path, const FileWriter& write, const std::function<void(int error)>& write_failed);

}  // namespace korvexed
