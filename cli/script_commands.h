#pragma once
// The commands of edit scripts, each done as the main window does it.
#include "cli/script_lines.h"
#include "platform/headless_platform.h"

namespace korvexed::cli {

struct ScriptState {
  HeadlessPlatform& platform;  // its key state is what a rubber band sees
  bool write_failed = false;   // a save, export or dump failed
};

// Checks one command line against the document and runs it. A wrong line
// throws ScriptError before anything has changed.
void RunScriptLine(const ScriptLine& line, ScriptState& state);

}  // namespace korvexed::cli
