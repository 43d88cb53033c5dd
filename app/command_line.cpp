#include "app/command_line.h"

#include <filesystem>
#include <system_error>

namespace korvexed {

std::string CommandLineFile(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) {
    if (!line.empty()) line += ' ';
    line += argument;
  }
  if (!line.empty() && line.front() == '"') line = line.size() < 2 ? std::string() : line.substr(1, line.size() - 2);
  std::error_code error;
  return std::filesystem::is_regular_file(line, error) ? line : std::string();
}

}  // namespace korvexed
