#include "cli/script_commands.h"

#include <map>
#include <string_view>

#include "cli/script_handlers.h"
#include "cli/words.h"

namespace korvexed::cli {

namespace {

using Handler = void (*)(const ScriptArgs&, ScriptState&);

const std::map<std::string_view, Handler> handlers{
    {"layer", ScriptLayer},
    {"rows", ScriptRows},
    {"select", ScriptSelect},
    {"rect", ScriptRect},
    {"move", ScriptMove},
    {"delete-vertices", ScriptDeleteVertices},
    {"delete-rows", ScriptDeleteRows},
    {"feedrate", ScriptFeedrate},
    {"kind", ScriptKind},
    {"insert-point", ScriptInsertPoint},
    {"insert-points", ScriptInsertPoints},
    {"text", ScriptText},
    {"delete-layers", ScriptDeleteLayers},
    {"translate", ScriptTranslate},
    {"save", ScriptSave},
    {"export", ScriptExport},
    {"dump", ScriptDump},
    {"undo", ScriptUndo},
    {"redo", ScriptRedo},
};

}  // namespace

layer_data& CurrentLayer(const ScriptArgs& args) {
  if (doc.current_layer < 0 || doc.current_layer >= doc.layer_count) {
    throw ScriptError(Quoted(args.command()) + " needs a current layer (choose one with 'layer L')");
  }
  return doc.layer(doc.current_layer);
}

void RunScriptLine(const ScriptLine& line, ScriptState& state) {
  const ScriptArgs args(line);
  const auto handler = handlers.find(args.command());
  if (handler == handlers.end()) throw ScriptError("unknown command " + Quoted(args.command()));
  handler->second(args, state);
}

}  // namespace korvexed::cli
