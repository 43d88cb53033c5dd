#include "cli/script_lines.h"

namespace korvexed::cli {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::vector<std::string_view> Words(std::string_view text) {
  std::vector<std::string_view> words;
  size_t i = 0;
  while (true) {
    while (i < text.size() && IsBlank(text[i])) ++i;
    if (i == text.size()) return words;
    const size_t start = i;
    while (i < text.size() && !IsBlank(text[i])) ++i;
    words.push_back(text.substr(start, i - start));
  }
}

}  // namespace

std::vector<ScriptLine> SplitScript(std::string_view script) {
  std::vector<ScriptLine> lines;
  int number = 0;
  while (!script.empty()) {
    const size_t lf = script.find('\n');
    std::string_view text = script.substr(0, lf);
    script.remove_prefix(lf == std::string_view::npos ? script.size() : lf + 1);
    ++number;
    if (text.ends_with('\r')) text.remove_suffix(1);
    ScriptLine line{number, text, Words(text)};
    if (!line.words.empty() && !line.words[0].starts_with('#')) lines.push_back(std::move(line));
  }
  return lines;
}

std::string_view TextAfterWord(const ScriptLine& line, size_t n) {
  const std::string_view word = line.words[n];
  const size_t after = static_cast<size_t>(word.data() - line.text.data()) + word.size() + 1;
  return after < line.text.size() ? line.text.substr(after) : std::string_view();
}

}  // namespace korvexed::cli
