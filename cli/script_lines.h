#pragma once
// Splitting an edit script into command lines and words.
#include <string_view>
#include <vector>

namespace korvexed::cli {

struct ScriptLine {
  int number = 0;                       // 1-based line number in the script
  std::string_view text;                // the line without its line end
  std::vector<std::string_view> words;  // views into text
};

// The command lines of a script: lines end at LF or CR LF; blank lines and
// lines whose first non-blank character is '#' are left out.
std::vector<ScriptLine> SplitScript(std::string_view script);

// What follows the blank after word `n` of the line ("" when nothing does).
std::string_view TextAfterWord(const ScriptLine& line, size_t n);

}  // namespace korvexed::cli
