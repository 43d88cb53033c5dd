#pragma once
// The handlers of the edit-script commands and what they share. Each
// handler checks its whole line before it changes anything.
#include "cli/script_args.h"
#include "cli/script_commands.h"
#include "document/document.h"

namespace korvexed::cli {

// The current layer; a script error when there is none.
layer_data& CurrentLayer(const ScriptArgs& args);

// Which layer, rows and vertices the edits work on (script_view.cpp).
void ScriptLayer(const ScriptArgs& args, ScriptState& state);
void ScriptRows(const ScriptArgs& args, ScriptState& state);
void ScriptSelect(const ScriptArgs& args, ScriptState& state);
void ScriptRect(const ScriptArgs& args, ScriptState& state);

// The edits (script_edits.cpp).
void ScriptMove(const ScriptArgs& args, ScriptState& state);
void ScriptDeleteVertices(const ScriptArgs& args, ScriptState& state);
void ScriptDeleteRows(const ScriptArgs& args, ScriptState& state);
void ScriptFeedrate(const ScriptArgs& args, ScriptState& state);
void ScriptKind(const ScriptArgs& args, ScriptState& state);
void ScriptInsertPoint(const ScriptArgs& args, ScriptState& state);
void ScriptInsertPoints(const ScriptArgs& args, ScriptState& state);
void ScriptText(const ScriptArgs& args, ScriptState& state);
void ScriptDeleteLayers(const ScriptArgs& args, ScriptState& state);
void ScriptTranslate(const ScriptArgs& args, ScriptState& state);
void ScriptUndo(const ScriptArgs& args, ScriptState& state);
void ScriptRedo(const ScriptArgs& args, ScriptState& state);

// Writing the document (script_output.cpp).
void ScriptSave(const ScriptArgs& args, ScriptState& state);
void ScriptExport(const ScriptArgs& args, ScriptState& state);
void ScriptDump(const ScriptArgs& args, ScriptState& state);

}  // namespace korvexed::cli
