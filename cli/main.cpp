// korvexed-cli: the editor's document operations from a shell.
#include <cstdio>
#include <string_view>
#include <vector>

#include "cli/arguments.h"
#include "cli/exit_status.h"
#include "cli/run_command.h"
#include "cli/usage.h"

using namespace korvexed::cli;

int main(int argc, char** argv) {
  const std::vector<std::string_view> words(argv + 1, argv + argc);
  Arguments args;
  try {
    args = ParseArguments(words);
  } catch (const UsageError& error) {
    std::fprintf(stderr, "korvexed-cli: %s\nTry 'korvexed-cli --help' for more information.\n", error.what());
    return exit_usage;
  }
  if (args.command == Command::help || args.command == Command::version) {
    const std::string_view text = args.command == Command::help ? HelpText() : VersionText();
    std::fwrite(text.data(), 1, text.size(), stdout);
    return exit_ok;
  }
  return RunCommand(args);
}
