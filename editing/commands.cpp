#include "editing/commands.h"

#include <cmath>

#include "editing/korvexed_data.h"
#include "editing/list_state.h"
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
  if (change_feedrate(old_f, new_f) == 0) return false;
  edited();
  return true;
}

bool TranslateCommand(double rotation, double ox, double oy) {
  if (std::fabs(rotation) <= negligible && std::fabs(ox) <= negligible && std::fabs(oy) <= negligible) {
    information("No translation is needed");
    return false;
  }
  {
    const BusyPointer busy;
    translate_all(rotation, ox, oy);
  }
  edited();
  return true;
}

bool DeleteSelectedDataCommand(bool rows_allowed) {
  if (delete_marked_vertices() > 0) {
    if (rows_allowed) delete_selected_rows();
  } else if (!rows_allowed || delete_selected_rows() == 0) {
    return false;
  }
  edited();
  return true;
}

bool DeleteSelectedLayersCommand() {
  if (delete_selected_layers() == 0) return false;
  doc.modified = true;
  RefreshLayerCaptions();
  ClearCurrentLayer();
  return true;
}

void InsertPointsCommand(int32_t r, int32_t count, double x, double y) {
  if (count == 1) {
    insert_point(r, x, y);  // where the user clicked, not the middle
  } else {
    insert_points_evenly(r, count);
  }
  edited();
}

bool ReplaceTextCommand(int32_t r, const std::string& text) {
  if (text == doc.text_list[doc.layer(doc.current_layer).g[static_cast<size_t>(r)].index]) return false;
  replace_text_record(r, text);
  edited();
  return true;
}

}  // namespace korvexed
