// The drawing area's pop-up menus and the editing commands behind them
// and behind the Tools menu. The gestures themselves are the drawing
// area's (view/mouse_gesture).
#include "app/fm_main.h"

#include "controls/list_box.h"
#include "document/document.h"
#include "editing/commands.h"
#include "editing/list_state.h"
#include "view/draw_area.h"
#include "view/korvexed_graphic.h"
#include "view/mouse_gesture.h"

namespace korvexed {

void FmMain::ConnectDrawingArea() {
  platform_.set_popup_menu(PopupMenu::select_edit, mnSelectEdit_, poSelectEdit_);
  platform_.set_popup_menu(PopupMenu::unselect_edit, mnUnSelectEdit_, poUnSelectEdit_);
}

void FmMain::poSelectEdit_Click(int index) {
  if (!IsDocumentLoaded()) return;  // their shortcuts work before a file is open
  bool changed = false;
  switch (index) {
    case 2: changed = EditSelectedDataDialog(); break;
    case 3: changed = ChangeFeedrateDialog(feedrate_memory_); break;
    // Data rows (G92 and text lines) go too only when the command came
    // from the data list.
    case 4: changed = DeleteSelectedDataCommand(focusWidget() == lstData_); break;
    case 0: CopySelectedDataCommand(focusWidget() == lstData_); return;
    case 1: changed = CutSelectedDataCommand(focusWidget() == lstData_); break;
    default: return;
  }
  if (changed) RedrawView();
}

// Paste goes before the end of the line right-clicked in the drawing, or
// before the data list's caret row; Add First Point and Add Last Point are
// inert, and Insert Point(s) only opens poPoint.
void FmMain::poUnSelectEdit_Click(int index) {
  if (index != 0 || !IsDocumentLoaded()) return;
  const int32_t at = focusWidget() == lstData_ ? lists.data_caret : gesture.press_hit;
  if (PasteGCodeCommand(at)) RedrawView();
}

void FmMain::poPoint_Click(int index) { InsertPointsAtClick(index + 1); }

void FmMain::poTools_Click(int index) {
  if (index == 0) {
    SetRuler(!gesture.ruler);
    poTools_[0]->setChecked(gesture.ruler);
  } else if ((index == 1 && TranslateDialog()) || (index == 2 && ScaleExtrusionDialog())) {
    RedrawView();
  }
}

}  // namespace korvexed
