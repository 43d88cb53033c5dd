#include "cli/words.h"

#include <algorithm>

namespace korvexed::cli {

std::string Quoted(std::string_view word) { return "'" + std::string(word) + "'"; }

int KeywordIndex(std::string_view word, std::initializer_list<std::string_view> names) {
  const auto found = std::find(names.begin(), names.end(), word);
  return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

}  // namespace korvexed::cli
