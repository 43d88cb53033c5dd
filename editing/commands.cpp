#include "editing/commands.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "editing/clipboard.h"
#include "editing/history.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "editing/text_input.h"
#include "editing/value_input.h"
#include "platform/platform.h"

namespace korvexed {

namespace {

void information(std::string_view text) { platform().message_box(text, MsgIcon::information, MsgButtons::ok); }

// Every command that changed data ends here.
void edited() {
  doc.modified = true;
  RefreshListsAfterEdit();
}

}  // namespace

bool ChangeFeedrateCommand(double old_f, double new_f) {
  if (std::fabs(new_f) < 1.0) {
    information("Feedrate is too small. Please enter greater than 1");
    return false;
  }
  if (new_f == old_f) {
    information("No feedrate change is required.");
    return false;
  }
  return history.run("Change Feedrate", [=] {
    if (change_feedrate(old_f, new_f) == 0) return false;
    edited();
    return true;
  });
}

bool ScaleExtrusionCommand(double percent) {
  if (percent == 100) return false;
  return history.run("Scale Extrusion Rate", [=] {
    if (scale_marked_extrusion(percent / 100) == 0) return false;
    edited();
    return true;
  });
}

bool TranslateCommand(double rotation, double ox, double oy) {
  if (std::fabs(rotation) <= negligible && std::fabs(ox) <= negligible && std::fabs(oy) <= negligible) {
    information("No translation is needed");
    return false;
  }
  return history.run("Translate All GCode", [=] {
    {
      const BusyPointer busy;
      translate_all(rotation, ox, oy);
    }
    edited();
    return true;
  });
}

namespace {

bool delete_selected_data(bool rows_allowed) {
  if (delete_marked_vertices() > 0) {
    if (rows_allowed) delete_selected_rows();
  } else if (!rows_allowed || delete_selected_rows() == 0) {
    return false;
  }
  edited();
  return true;
}

}  // namespace

bool DeleteSelectedDataCommand(bool rows_allowed) {
  return history.run("Delete Selected Data", [=] { return delete_selected_data(rows_allowed); });
}

bool CopySelectedDataCommand(bool rows_allowed) {
  const std::string text = SelectedDataText(rows_allowed);
  if (text.empty()) return false;
  platform().set_clipboard_text(text);
  return true;
}

bool CutSelectedDataCommand(bool rows_allowed) {
  return CopySelectedDataCommand(rows_allowed) &&
         history.run("Cut Selected Data", [=] { return delete_selected_data(rows_allowed); });
}

bool PasteGCodeCommand(int32_t r) {
  const std::string text = platform().clipboard_text();
  if (text.empty() || r < 0) return false;
  return history.run("Paste GCode", [=] {
    if (paste_gcode(r, text) == 0) return false;
    edited();
    return true;
  });
}

bool DeleteSelectedLayersCommand() {
  return history.run("Delete Selected Layers", [] {
    const int32_t first = FirstSelected(lists.layer_selected);
    if (delete_selected_layers() == 0) return false;
    doc.modified = true;
    RefreshLayerCaptions();
    // The layer that took the place of the first deleted one, else the
    // last, becomes current as a click on it would make it.
    ShowSingleLayer(std::min(first, doc.layer_count - 1));
    return true;
  });
}

void InsertPointsCommand(int32_t r, int32_t count, double x, double y) {
  history.run("Insert Point(s)", [=] {
    if (count == 1) {
      insert_point(r, x, y);  // where the user clicked, not the middle
    } else {
      insert_points_evenly(r, count);
    }
    edited();
    return true;
  });
}

bool ReplaceTextCommand(int32_t r, const std::string& text) {
  if (text == doc.text_list[doc.layer(doc.current_layer).g[static_cast<size_t>(r)].index]) return false;
  return history.run("Edit Selected Data", [=] {
    replace_text_record(r, text);
    edited();
    return true;
  });
}

bool ChangeFeedrateDialog(FeedrateMemory& memory) {
  if (memory.new_f < 1.0) memory.new_f = 100.0;
  std::array<ValueRow, 3> rows{{{"Old Feedrate (0 = All):", memory.old_f}, {"New Feedrate:", memory.new_f}, {}}};
  if (!ValueInput("Change Feedrate F", rows)) return false;
  memory.old_f = rows[0].value;
  memory.new_f = rows[1].value;
  return ChangeFeedrateCommand(memory.old_f, memory.new_f);
}

bool TranslateDialog() {
  std::array<ValueRow, 3> rows{{{"Rotation (deg CCW +ve):", 0}, {"Offset X:", 0}, {"Offset Y:", 0}}};
  ValueInput("Translate Data", rows);  // Cancel leaves the zeros, which then do nothing
  return TranslateCommand(rows[0].value, rows[1].value, rows[2].value);
}

bool ScaleExtrusionDialog() {
  std::array<ValueRow, 3> rows{{{"Scale (%):", 100}, {}, {}}};
  if (!ValueInput("Scale Extrusion Rate", rows)) return false;
  return ScaleExtrusionCommand(std::clamp(rows[0].value, 0.0, 1000.0));
}

bool EditSelectedDataDialog() {
  int32_t r = lists.data_caret;
  if (!lists.row_to_g.empty()) {
    const int32_t line = FirstSelected(lists.select_line);
    if (line < 0) return false;
    r = lists.row_to_g[static_cast<size_t>(line)];
  }
  return r >= 0 && TextInput(r);
}

}  // namespace korvexed
