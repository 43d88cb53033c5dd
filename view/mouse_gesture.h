#pragma once
// The mouse in the drawing area: clicks and rubber bands select vertices,
// a drag moves the marked ones, the right and middle buttons pan, a right
// click opens the edit or the insert menu. Coordinates are the drawing
// area's, y downwards; the bitmap's y is its height minus the mouse y.
#include <cstdint>
#include <memory>
#include <vector>

#include "document/arc_geometry.h"

namespace korvexed {

enum MouseButton : int32_t { left_button = 1, right_button = 2, middle_button = 4 };

struct MouseGesture {
  // The pointer at the press; press_x = -1 after a release: the next hover
  // shows no text.
  int32_t press_x = 0, press_y = 0;
  // The pointer at the last handled move (the press before the first).
  int32_t last_x = 0, last_y = 0;
  // Centre of the rubber band, bitmap pixels.
  int32_t band_x = 0, band_y = 0;
  // The button pressed; 0 while no gesture is under way.
  int32_t press_button = 0;
  bool press_moved = false;
  // The record the gesture is about (a marked vertex at the press, then
  // the vertex or line clicked); -1 for none.
  int32_t press_hit = -1;
  // Cleared before the insert menu opens, set when an insertion used it.
  bool popup_used = false;
  // Tools > Ruler: a left drag measures instead of marking or moving.
  bool ruler = false;
  // The steps of the drag under way, in millimetres, for its Redo.
  std::shared_ptr<std::vector<PlanePoint>> drag_moves;
};

extern MouseGesture gesture;

void picDraw_MouseDown(int32_t button, int32_t x, int32_t y);
// `buttons`: the buttons held, or-ed.
void picDraw_MouseMove(int32_t buttons, int32_t x, int32_t y);
void picDraw_MouseUp(int32_t button, int32_t x, int32_t y);

// Turns the ruler on or off; off wipes its line.
void SetRuler(bool on);

// Insert Point(s) of the insert menu: `count` points on the line that the
// right click picked; one point goes where the user clicked.
void InsertPointsAtClick(int32_t count);

}  // namespace korvexed
