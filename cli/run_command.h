#pragma once
// The commands of korvexed-cli over the editor's document.
#include "cli/arguments.h"

namespace korvexed::cli {

// Runs one parsed command line; returns the exit status.
int RunCommand(const Arguments& args);

}  // namespace korvexed::cli
