#include "view/mouse_gesture.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include "editing/commands.h"
#include "editing/history.h"
#include "editing/korvexed_data.h"
#include "editing/list_events.h"
#include "editing/list_state.h"
#include "platform/platform.h"
#include "view/korvexed_graphic.h"
#include "view/layer_drawing.h"
#include "view/world_view.h"

namespace korvexed {

MouseGesture gesture;

namespace {

constexpr Rgb band_colour = RgbT(255, 255, 0);
// How far the pointer must go from the press before a press becomes a drag,
// so that a hand's shake on a click moves nothing.
constexpr int32_t drag_start_distance = 3;

int32_t bitmap_y(int32_t mouse_y) { return drawing.picture.height - mouse_y; }

void mouse_to_world(int32_t x, int32_t y, double& wx, double& wy) { PixelToWorld(x, bitmap_y(y), wx, wy); }

std::string number(double value) { return FormatNumber(value, false); }

void show_status(const std::string& text) { ShowStatus(text, 1); }

uint8_t& flag(int32_t r) { return lists.select_flag[static_cast<size_t>(r)]; }

void clear_selection() { std::fill(lists.select_flag.begin(), lists.select_flag.end(), 0); }

// The flags changed: the selection list, its status and the picture follow.
void refresh_selection() { ApplySelection(false); }

void rubber_band(int32_t x, int32_t y) {
  RestorePicture();
  gesture.band_x = RoundPixel((x + gesture.press_x) / 2.0);
  gesture.band_y = RoundPixel(drawing.picture.height - (gesture.press_y + y) / 2.0);
  DrawSquare(gesture.band_x, gesture.band_y, std::abs(x - gesture.press_x), std::abs(y - gesture.press_y), band_colour);
  ShowPicture();
  double x1, y1, x2, y2;
  mouse_to_world(gesture.press_x, gesture.press_y, x1, y1);
  mouse_to_world(x, y, x2, y2);
  show_status("X1 (" + number(x1) + "), Y1 (" + number(y1) + ") - X2 (" + number(x2) + "), Y2 (" + number(y2) +
              ") - dX (" + number(std::fabs(x1 - x2)) + "), dY (" + number(std::fabs(y1 - y2)) + ")");
}

// Each step moves the marks by the pointer's step; the status shows the
// whole way from the press.
void drag_marked(int32_t x, int32_t y) {
  if (CountSelected(lists.select_line) == 0) return;
  if (!history.recording()) {
    // The whole drag is one step; Redo makes its moves again.
    gesture.drag_moves = std::make_shared<std::vector<PlanePoint>>();
    history.begin("Move", [moves = gesture.drag_moves] {
      for (const PlanePoint& step : *moves) move_marked(step.x, step.y, 0);
      RefreshListsAfterEdit();
      return true;
    });
  }
  const PlanePoint step{(x - gesture.last_x) / view.view_scale, (gesture.last_y - y) / view.view_scale};
  if (move_marked(step.x, step.y, 0)) gesture.drag_moves->push_back(step);
  RefreshListsAfterEdit();
  show_status("Movement dX (" + number((x - gesture.press_x) / view.view_scale) + "), dY (" +
              number((gesture.press_y - y) / view.view_scale) + ")");
  doc.modified = true;
  RedrawView();
}

// The ruler's line from the press to the pointer, and its measure.
void measure(int32_t x, int32_t y) {
  RestorePicture();
  DrawSegment(gesture.press_x, bitmap_y(gesture.press_y), x, bitmap_y(y), band_colour);
  ShowPicture();
  double x1, y1, x2, y2;
  mouse_to_world(gesture.press_x, gesture.press_y, x1, y1);
  mouse_to_world(x, y, x2, y2);
  const double dx = x2 - x1, dy = y2 - y1;
  show_status("Ruler: " + number(std::hypot(dx, dy)) + " mm, dX " + number(dx) + ", dY " + number(dy) + ", " +
              number(std::atan2(dy, dx) * 180 / std::numbers::pi) + "\u00b0");
}

void pan(int32_t x, int32_t y) { ZoomView(1, x - gesture.last_x, gesture.last_y - y, true); }

bool near_press(int32_t x, int32_t y) {
  return std::max(std::abs(x - gesture.press_x), std::abs(y - gesture.press_y)) < drag_start_distance;
}

void hover(int32_t x, int32_t y) {
  if (gesture.press_x < 0) {
    gesture.press_x = 0;
    return;
  }
  double wx, wy;
  mouse_to_world(x, y, wx, wy);
  show_status("Mouse location X (" + number(wx) + "), Y (" + number(wy) + ")");
}

// A click on a marked vertex: alone it keeps only that vertex marked;
// with Ctrl or Alt it unmarks it.
void click_marked_vertex(const Modifiers& keys) {
  if (keys.ctrl || keys.alt) {
    flag(gesture.press_hit) = 0;
  } else if (!keys.shift && lists.row_to_g.size() > 1) {
    clear_selection();
    flag(gesture.press_hit) = 1;
  }
  refresh_selection();
}

void click_vertex(const Modifiers& keys) {
  if (!keys.any()) clear_selection();
  if (!keys.alt) flag(gesture.press_hit) = 1;
  refresh_selection();
}

// The move before `end` on the same layer, when its row is on view.
int32_t line_start(int32_t end) {
  const layer_data& ly = doc.layer(doc.current_layer);
  for (int32_t r = end - 1; r >= 0; --r) {
    if (!is_move(ly.g[static_cast<size_t>(r)].kind)) continue;
    return lists.data_selected[static_cast<size_t>(r)] ? r : -1;
  }
  return -1;
}

void click_line(const Modifiers& keys) {
  const int32_t ends[] = {line_start(gesture.press_hit), gesture.press_hit};
  if (!keys.any()) clear_selection();
  for (const int32_t r : ends) {
    if (r < 0) continue;
    if (keys.ctrl) flag(r) = !flag(r);
    else flag(r) = keys.alt ? 0 : 1;
  }
  refresh_selection();
}

void click(int32_t x, int32_t y) {
  const Modifiers keys = platform().key_state();
  if (gesture.press_hit >= 0) return click_marked_vertex(keys);
  gesture.press_hit = pick_vertex(x, bitmap_y(y), false);
  if (gesture.press_hit >= 0) return click_vertex(keys);
  double sx, sy;
  gesture.press_hit = pick_segment(x, bitmap_y(y), sx, sy);
  if (gesture.press_hit > 0) return click_line(keys);
  if (!keys.any() && !lists.row_to_g.empty()) {
    clear_selection();
    refresh_selection();
  }
}

void end_band(int32_t x, int32_t y) {
  RestorePicture();
  mark_in_rect(gesture.press_x, bitmap_y(gesture.press_y), x, bitmap_y(y));
  refresh_selection();
}

// The insert menu, with the line that an insertion would split drawn over
// the picture until the menu closes unused.
void insert_menu(int32_t x, int32_t y) {
  double sx, sy;
  gesture.press_hit = pick_segment(x, bitmap_y(y), sx, sy);
  const bool line_hit = gesture.press_hit >= 0;
  platform().set_menu_item_enabled(PopupMenu::unselect_edit, 0, line_hit && !platform().clipboard_text().empty());
  platform().set_menu_item_enabled(PopupMenu::unselect_edit, 1, line_hit);
  if (line_hit) {
    SavePicture();
    DrawMoveOver({sx, sy}, doc.layer(doc.current_layer).g[static_cast<size_t>(gesture.press_hit)], band_colour);
    ShowPicture();
  }
  if (platform().menu_item_enabled(PopupMenu::unselect_edit, 0) ||
      platform().menu_item_enabled(PopupMenu::unselect_edit, 1) ||
      platform().menu_item_enabled(PopupMenu::unselect_edit, 2)) {
    gesture.popup_used = false;
    platform().popup_menu(PopupMenu::unselect_edit);
  }
  if (line_hit && !gesture.popup_used) {
    RestorePicture();
    ShowPicture();
  }
}

void edit_menu() { MarkedDataMenu(!lists.row_to_g.empty(), doc.layer(doc.current_layer).coor_count >= 2); }

}  // namespace

void picDraw_MouseDown(int32_t button, int32_t x, int32_t y) {
  if (!IsDocumentLoaded()) return;
  const BusyPointer busy;
  gesture.press_x = gesture.last_x = view.wheel_anchor_x = x;
  gesture.press_y = gesture.last_y = view.wheel_anchor_y = y;
  gesture.press_button = button;
  gesture.press_hit = gesture.ruler ? -1 : pick_vertex(x, bitmap_y(y), true);  // on a marked vertex: a drag
  gesture.press_moved = false;
  if (button == left_button && gesture.press_hit < 0) SavePicture();
}

void picDraw_MouseMove(int32_t buttons, int32_t x, int32_t y) {
  if (!IsDocumentLoaded()) return;
  const BusyPointer busy;
  if (buttons == 0) return hover(x, y);
  if (gesture.press_button == 0 || (x == gesture.last_x && y == gesture.last_y)) return;
  if (!gesture.press_moved && near_press(x, y)) return;
  switch (buttons) {
    case left_button:
      if (gesture.ruler) measure(x, y);
      else if (gesture.press_hit < 0) rubber_band(x, y);
      else drag_marked(x, y);
      break;
    case right_button:
    case middle_button:
      pan(x, y);
      break;
    default:
      return;
  }
  gesture.last_x = x;
  gesture.last_y = y;
  gesture.press_moved = true;
}

void picDraw_MouseUp(int32_t button, int32_t x, int32_t y) {
  if (!IsDocumentLoaded() || gesture.press_button == 0) return;
  const BusyPointer busy;
  history.end();  // a drag's step
  if (button == left_button && gesture.ruler) {
    // A measure marks nothing; its line stays until the next redraw.
  } else if (button == left_button && !gesture.press_moved) {
    click(x, y);
  } else if (button == left_button) {
    // A finished drag leaves the lists showing the moved records.
    if (gesture.press_hit < 0) end_band(x, y);
    else refresh_selection();
  } else if (button == right_button && !gesture.press_moved) {
    if (gesture.press_hit < 0) insert_menu(x, y);
    else edit_menu();
  }
  gesture.press_button = 0;
  gesture.press_x = -1;
}

void SetRuler(bool on) {
  gesture.ruler = on;
  if (!on) RedrawView();
}

void InsertPointsAtClick(int32_t count) {
  gesture.popup_used = true;
  double x, y;
  mouse_to_world(gesture.press_x, gesture.press_y, x, y);
  InsertPointsCommand(gesture.press_hit, count, x, y);
  RedrawView();
}

}  // namespace korvexed
