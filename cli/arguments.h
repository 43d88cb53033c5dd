#pragma once
// The command line of korvexed-cli, read into one structure.
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvexed::cli {

enum class Command { help, version, info, dump, convert, translate, edit };

struct Arguments {
  Command command = Command::help;
  std::string file;
  std::string script;  // edit: a path, or "-" for standard input
  std::string out;     // -o; "-" is standard output, "" when not given
  bool tagged = false;
  bool accept_partial = false;
  bool decimal_comma = false;
  double rotate = 0, dx = 0, dy = 0;
};

// A wrong command line; what() says what is wrong.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The words after the program name. Throws UsageError.
Arguments ParseArguments(const std::vector<std::string_view>& words);

}  // namespace korvexed::cli
