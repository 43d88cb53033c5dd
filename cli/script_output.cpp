// Script commands that write the document; a failure is reported and the
// script goes on.
#include <string>

#include "cli/output.h"
#include "cli/script_handlers.h"
#include "document/korvexed_file.h"
#include "editing/history.h"

namespace korvexed::cli {

void ScriptSave(const ScriptArgs& args, ScriptState& state) {
  args.expect(1, 1);
  const std::string path(args[0]);
  if (!WriteGCodeTo(path, save_plain)) {
    state.write_failed = true;
    return;
  }
  // As Save As: the document is now that file's.
  history.saved();
  if (path != "-") doc.file_name = path;
}

void ScriptExport(const ScriptArgs& args, ScriptState& state) {
  args.expect(1, 1);
  if (!WriteGCodeTo(std::string(args[0]), save_tagged)) state.write_failed = true;
}

void ScriptDump(const ScriptArgs& args, ScriptState& state) {
  args.expect(1, 1);
  if (!WriteDumpTo(std::string(args[0]))) state.write_failed = true;
}

}  // namespace korvexed::cli
