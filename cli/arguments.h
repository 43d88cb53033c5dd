#pragma once
// The command line of korvexed-cli, read into one structure.
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvexed::cli {

enum class Command { help, version, info, dump, convert, translate, render, edit };

struct Arguments {
  Command command = Command::help;
  std::string file;
  std::string script;  // edit: a path, or "-" for standard input
  std::string out;     // -o; "-" is standard output, "" when not given
  bool tagged = false;
  bool accept_partial = false;
  bool decimal_comma = false;
  double rotate = 0, dx = 0, dy = 0;
  // render: the current layer (none: the first printed one), the other
  // layers on view (ranges A-B, both ends included; checked against the
  // file once it is read), the size.
  std::optional<int32_t> layer;
  std::vector<std::pair<int32_t, int32_t>> with;
  int32_t width = 800, height = 800;
  bool travel = true, arrows = true;
};

// A wrong command line; what() says what is wrong.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The words after the program name. Throws UsageError.
Arguments ParseArguments(const std::vector<std::string_view>& words);

}  // namespace korvexed::cli
