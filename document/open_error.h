#pragma once
#include <string>

namespace korvexed {

// "Unable to open <path>", with the system's error number and text: the
// message of a file that could not be opened, for reading or for writing.
void ShowOpenError(const std::string& path, int error);

}  // namespace korvexed
