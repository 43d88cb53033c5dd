#include "cli/script.h"

#include <cstdio>

#include "cli/exit_status.h"
#include "cli/script_args.h"
#include "cli/script_commands.h"

namespace korvexed::cli {

int RunScript(std::string_view script, HeadlessPlatform& platform) {
  ScriptState state{platform};
  for (const ScriptLine& line : SplitScript(script)) {
    try {
      RunScriptLine(line, state);
    } catch (const ScriptError& error) {
      std::fflush(stdout);
      std::fprintf(stderr, "line %d: %s\n", line.number, error.what());
      return exit_usage;
    }
  }
  return state.write_failed ? exit_io : exit_ok;
}

}  // namespace korvexed::cli
