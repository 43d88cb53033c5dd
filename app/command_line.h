#pragma once
#include <string>
#include <vector>

namespace korvexed {

// What the command line asks of start-up.
struct StartupCommand {
  // The file to open: the arguments joined by blanks, without enclosing
  // double quotes; "" unless that names an existing file.
  std::string file;
  // "DEBUG" anywhere in a command line that names no file shows the
  // unfinished commands and leaves the wheel alone.
  bool debug = false;
};

StartupCommand ReadCommandLine(const std::vector<std::string>& arguments);

}  // namespace korvexed
