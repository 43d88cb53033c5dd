#pragma once
// The arguments of one edit-script line, read with their checks.
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "cli/script_lines.h"

namespace korvexed::cli {

// A wrong script line; what() is the reason.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The words after the command word. Every reader throws ScriptError.
class ScriptArgs {
 public:
  explicit ScriptArgs(const ScriptLine& line) : line_(line) {}

  std::string_view command() const { return line_.words[0]; }
  size_t size() const { return line_.words.size() - 1; }
  std::string_view operator[](size_t i) const { return line_.words[i + 1]; }
  // The raw text after the blank that follows argument i, blanks kept.
  std::string_view rest(size_t i) const { return TextAfterWord(line_, i + 1); }

  // Between min and max arguments.
  void expect(size_t min, size_t max) const;
  double number(size_t i) const;
  // An index below `count`; `what` names it in messages ("layer", "row").
  int32_t index(size_t i, int32_t count, std::string_view what) const;
  // The arguments from `first` on: at least one index or range A-B.
  std::vector<int32_t> indices(size_t first, int32_t count, std::string_view what) const;

 private:
  const ScriptLine& line_;
};

}  // namespace korvexed::cli
