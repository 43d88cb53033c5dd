#include "app/command_line.h"

#include <filesystem>
#include <system_error>

namespace korvexed {

StartupCommand ReadCommandLine(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) {
    if (!line.empty()) line += ' ';
    line += argument;
  }
  StartupCommand command;
  command.file = line;
  if (!line.empty() && line.front() == '"') command.file = line.size() < 2 ? std::string() : line.substr(1, line.size() - 2);
  std::error_code error;
  if (!std::filesystem::is_regular_file(command.file, error)) {
    command.debug = line.find("DEBUG") != std::string::npos;
    command.file.clear();
  }
  return command;
}

}  // namespace korvexed
