#pragma once
#include <string_view>

namespace korvexed::cli {

// What --help prints.
std::string_view HelpText();
// What --version prints, "korvexed-cli " and the version.
std::string_view VersionText();

}  // namespace korvexed::cli
