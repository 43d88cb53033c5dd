#pragma once
// Small helpers for the words of command lines and scripts.
#include <initializer_list>
#include <string>
#include <string_view>

namespace korvexed::cli {

// The word in single quotes, as messages show it.
std::string Quoted(std::string_view word);

// The position of `word` among `names`, or -1.
int KeywordIndex(std::string_view word, std::initializer_list<std::string_view> names);

}  // namespace korvexed::cli
