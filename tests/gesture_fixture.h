#pragma once
// A 200 x 200 drawing at ten pixels per millimetre with the world origin at
// the bottom-left pixel, and a square path to click on: records 1 to 4 at
// (2, 2), (10, 2), (10, 10) and (2, 10) mm, one unit of E per millimetre.
#include <cstdint>

#include "tests/editing_fixture.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed::testing {

inline const char* const square_doc = "G1 X2 Y2 F1200\nG1 X10 Y2 E8\nG1 X10 Y10 E16\nG1 X2 Y10 E24\n";

struct MousePoint {
  int32_t x, y;
};

class GestureTest : public EditingTest {
 protected:
  GestureTest() : saved_view_(view) {
    EXPECT_TRUE(CreateDrawing(200, 200));
    view.view_scale = 10;
    view.view_offset_x = view.view_offset_y = 0;
    UpdateViewBounds();
    load(square_doc);
    RedrawView();
  }
  ~GestureTest() override { view = saved_view_; }

  // The mouse position (y downwards) of a world point, moved by (dx, dy)
  // pixels.
  static MousePoint mouse(double wx, double wy, int32_t dx = 0, int32_t dy = 0) {
    int32_t px, py;
    WorldToPixel(wx, wy, px, py);
    return {px + dx, drawing.picture.height - py + dy};
  }
  static int marked(int32_t r) { return lists.select_flag[static_cast<size_t>(r)]; }

 private:
  WorldView saved_view_;
};

}  // namespace korvexed::testing
