// Script commands that change the document, as the window's commands do.
#include <optional>
#include <string>
#include <vector>

#include "cli/numbers.h"
#include "cli/script_handlers.h"
#include "cli/words.h"
#include "editing/commands.h"
#include "editing/history.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"

namespace korvexed::cli {

namespace {

// A record of the current layer that must be a move: a line or an arc.
int32_t MoveRecord(const ScriptArgs& args, size_t i) {
  const layer_data& layer = CurrentLayer(args);
  const int32_t r = args.index(i, layer.g_count, "record");
  if (!is_move(layer.g[static_cast<size_t>(r)].kind)) {
    throw ScriptError("record " + std::to_string(r) + " is not a move record (G0, G1, G2, G3)");
  }
  return r;
}

// How the window ends an edit that changed data; true for its step.
bool Edited() {
  doc.modified = true;
  RefreshListsAfterEdit();
  return true;
}

}  // namespace

void ScriptMove(const ScriptArgs& args, ScriptState&) {
  CurrentLayer(args);
  args.expect(2, 3);
  const double dx = args.number(0), dy = args.number(1);
  const double de = args.size() == 3 ? args.number(2) : 0.0;
  history.run("Move", [=] { return move_marked(dx, dy, de) && Edited(); });
}

void ScriptDeleteVertices(const ScriptArgs& args, ScriptState&) {
  CurrentLayer(args);
  args.expect(0, 0);
  history.run("Delete Selected Data", [] { return delete_marked_vertices() > 0 && Edited(); });
}

void ScriptDeleteRows(const ScriptArgs& args, ScriptState&) {
  CurrentLayer(args);
  args.expect(0, 0);
  history.run("Delete Selected Data", [] { return delete_selected_rows() > 0 && Edited(); });
}

void ScriptFeedrate(const ScriptArgs& args, ScriptState&) {
  CurrentLayer(args);
  args.expect(2, 2);
  const double old_f = DialogValue(args.number(0)), new_f = DialogValue(args.number(1));
  ChangeFeedrateCommand(old_f, new_f);
}

void ScriptKind(const ScriptArgs& args, ScriptState&) {
  CurrentLayer(args);
  args.expect(1, 1);
  const int kind = KeywordIndex(args[0], {"G0", "G1"});
  if (kind < 0) throw ScriptError(Quoted(args[0]) + " is not G0 or G1");
  const line_kind to = kind == 0 ? line_kind::g0 : line_kind::g1;
  history.run("Edit Selected Data", [=] { return set_marked_kind(to) > 0 && Edited(); });
}

void ScriptInsertPoint(const ScriptArgs& args, ScriptState&) {
  args.expect(3, 3);
  const int32_t r = MoveRecord(args, 0);
  InsertPointsCommand(r, 1, args.number(1), args.number(2));
}

void ScriptInsertPoints(const ScriptArgs& args, ScriptState&) {
  args.expect(2, 2);
  const int32_t r = MoveRecord(args, 0);
  const std::optional<int32_t> n = ParseIndex(args[1]);
  if (!n || *n < 1 || *n > 5) throw ScriptError("the point count must be 1 to 5, not " + Quoted(args[1]));
  if (*n > 1) return InsertPointsCommand(r, *n, 0, 0);
  // One point goes to the middle, where the even spread puts it.
  int32_t p_layer = doc.current_layer;
  const coor_data p = get_state_before(p_layer, r - 1);
  const coor_data& m = doc.coor(doc.current_layer, r);
  InsertPointsCommand(r, 1, p.x + (m.x - p.x) / 2, p.y + (m.y - p.y) / 2);
}

void ScriptText(const ScriptArgs& args, ScriptState&) {
  const layer_data& layer = CurrentLayer(args);
  if (args.size() < 1) throw ScriptError("'text' needs a record index");
  const int32_t r = args.index(0, layer.g_count, "record");
  if (layer.g[static_cast<size_t>(r)].kind != line_kind::text) {
    throw ScriptError("record " + std::to_string(r) + " is not a text record");
  }
  ReplaceTextCommand(r, std::string(args.rest(0)));
}

void ScriptDeleteLayers(const ScriptArgs& args, ScriptState&) {
  const std::vector<int32_t> layers = args.indices(0, doc.layer_count, "layer");
  lists.layer_selected.assign(static_cast<size_t>(doc.layer_count), 0);
  for (const int32_t i : layers) lists.layer_selected[static_cast<size_t>(i)] = 1;
  DeleteSelectedLayersCommand();
  // Also when nothing could be deleted, the script goes on without one.
  ClearCurrentLayer();
}

void ScriptTranslate(const ScriptArgs& args, ScriptState&) {
  args.expect(3, 3);
  const double rotation = DialogValue(args.number(0));
  const double ox = DialogValue(args.number(1)), oy = DialogValue(args.number(2));
  TranslateCommand(rotation, ox, oy);
}

void ScriptUndo(const ScriptArgs& args, ScriptState&) {
  args.expect(0, 0);
  history.undo();
}

void ScriptRedo(const ScriptArgs& args, ScriptState&) {
  args.expect(0, 0);
  history.redo();
}

}  // namespace korvexed::cli
