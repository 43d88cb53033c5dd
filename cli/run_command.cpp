#include "cli/run_command.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

#include "cli/cli_platform.h"
#include "cli/exit_status.h"
#include "cli/info.h"
#include "cli/numbers.h"
#include "cli/output.h"
#include "cli/render.h"
#include "cli/script.h"
#include "document/document.h"
#include "document/korvexed_file.h"
#include "editing/commands.h"
#include "editing/history.h"
#include "editing/list_state.h"

namespace korvexed::cli {

namespace {

// Reads FILE as Open does, but the lists show layer 0 afterwards and
// nothing is fitted: scripts start from there.
bool OpenDocument(const std::string& path) {
  if (!LoadGCode(path)) return false;
  doc.file_name = path;
  FillLayerList(0);
  doc.modified = false;
  history.clear();
  return true;
}

std::optional<std::string> ReadScript(const std::string& path) {
  std::FILE* file = path == "-" ? stdin : std::fopen(path.c_str(), "rb");
  std::string text;
  if (file) {
    char buffer[1 << 16];
    size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, file)) > 0) text.append(buffer, n);
  }
  const bool failed = !file || std::ferror(file);
  const int error = errno;
  if (file && file != stdin) std::fclose(file);
  if (!failed) return text;
  std::fprintf(stderr, "korvexed-cli: cannot read the script %s: %s\n", path.c_str(), std::strerror(error));
  return std::nullopt;
}

int Status(bool ok) { return ok ? exit_ok : exit_io; }

int Run(const Arguments& args, CliPlatform& platform) {
  std::optional<std::string> script;
  if (args.command == Command::edit && !(script = ReadScript(args.script))) return exit_io;
  if (!OpenDocument(args.file)) return exit_io;
  switch (args.command) {
    case Command::info:
      WriteInfo(stdout);
      return exit_ok;
    case Command::dump:
      return Status(WriteDumpTo(args.out.empty() ? "-" : args.out));
    case Command::convert:
      return Status(WriteGCodeTo(args.out, args.tagged ? save_tagged : save_plain));
    case Command::translate:
      TranslateCommand(DialogValue(args.rotate), DialogValue(args.dx), DialogValue(args.dy));
      return Status(WriteGCodeTo(args.out, save_plain));
    case Command::render:
      return RenderPicture(args);
    default:
      return RunScript(*script, platform);
  }
}

}  // namespace

int RunCommand(const Arguments& args) {
  CliPlatform platform;
  platform.default_answer = args.accept_partial ? MsgAnswer::yes : MsgAnswer::no;
  platform.decimal_comma = args.decimal_comma;
  const InstalledPlatform installed(platform);
  return Run(args, platform);
}

}  // namespace korvexed::cli
