#pragma once
#include <string>
#include <vector>

namespace korvexed {

// The file to open at start: the arguments (program name excluded) joined
// by blanks, without enclosing double quotes; "" unless that names an
// existing file.
std::string CommandLineFile(const std::vector<std::string>& arguments);

}  // namespace korvexed
