#pragma once
// Running an edit script over the loaded document.
#include <string_view>

#include "platform/headless_platform.h"

namespace korvexed::cli {

// Runs the script line by line; a wrong line is reported on standard
// error as "line N: " and the reason, and ends the run. Returns the exit
// status: 2 for a wrong line, else 1 when a save, export or dump failed,
// else 0.
int RunScript(std::string_view script, HeadlessPlatform& platform);

}  // namespace korvexed::cli
