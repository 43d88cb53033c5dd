// The drawing area's gestures without a window: picks, clicks with the
// modifier keys, rubber bands, drags, pans, hover texts and the menus.
#include <gtest/gtest.h>

#include <functional>

#include "tests/gesture_fixture.h"
#include "view/mouse_gesture.h"

using namespace korvexed;
using korvexed::testing::GestureTest;
using korvexed::testing::MousePoint;

namespace {

class Gesture : public GestureTest {
 protected:
  static void press(int32_t button, MousePoint p) { picDraw_MouseDown(button, p.x, p.y); }
  static void move(int32_t buttons, MousePoint p) { picDraw_MouseMove(buttons, p.x, p.y); }
  static void release(int32_t button, MousePoint p) { picDraw_MouseUp(button, p.x, p.y); }
  static void click(int32_t button, MousePoint p) {
    press(button, p);
    release(button, p);
  }
  static void drag(int32_t button, MousePoint from, MousePoint to) {
    press(button, from);
    move(button, to);
    release(button, to);
  }
  void keys(bool shift, bool ctrl, bool alt) { ui->modifiers = {.shift = shift, .ctrl = ctrl, .alt = alt}; }
  static int yellow_pixels() {
    int n = 0;
    for (int32_t y = 0; y < drawing.picture.height; ++y)
      for (int32_t x = 0; x < drawing.picture.width; ++x) n += PixelAt(drawing.picture, x, y) == palette.selected;
    return n;
  }
};

}  // namespace

TEST_F(Gesture, PressWithinFivePixelsOfAMarkedVertexDragsTheWholeSelection) {
  mark({2, 3});
  // 4.2 pixels from record 2; the steps add up to 1 mm right, 2 mm up.
  press(left_button, mouse(10, 2, 3, -3));
  move(left_button, mouse(10, 2, 8, -13));
  move(left_button, mouse(10, 2, 13, -23));
  release(left_button, mouse(10, 2, 13, -23));
  EXPECT_DOUBLE_EQ(at(0, 2).x, 11);
  EXPECT_DOUBLE_EQ(at(0, 2).y, 4);
  EXPECT_DOUBLE_EQ(at(0, 3).x, 11);
  EXPECT_DOUBLE_EQ(at(0, 3).y, 12);
  EXPECT_TRUE(doc.modified);
  EXPECT_CONSISTENT();
  EXPECT_EQ(ui->status[1], "2 vertices selected");
}

TEST_F(Gesture, EachDragStepMovesByTheStepOnlyAndShowsIt) {
  mark({4});
  press(left_button, mouse(2, 10));
  move(left_button, mouse(2, 10, 5, 0));
  EXPECT_EQ(ui->status[1], "Movement dX (0.5), dY (0)");
  move(left_button, mouse(2, 10, 5, 10));
  EXPECT_EQ(ui->status[1], "Movement dX (0), dY (-1)");
  EXPECT_DOUBLE_EQ(at(0, 4).x, 2.5);
  EXPECT_DOUBLE_EQ(at(0, 4).y, 9);
}

TEST_F(Gesture, PressSixPixelsAwayDrawsARubberBandThatReplacesTheMarks) {
  mark({1, 2});
  const MousePoint from = mouse(10, 2, -6, 0), to = mouse(10, 2, 30, -20);
  press(left_button, from);
  move(left_button, to);
  EXPECT_EQ(gesture.band_x, 112);
  EXPECT_EQ(gesture.band_y, 30);
  EXPECT_GT(yellow_pixels(), 2 * 36);
  EXPECT_EQ(ui->status[1], "X1 (9.4), Y1 (2) - X2 (13), Y2 (4) - dX (3.6), dY (2)");
  release(left_button, to);
  EXPECT_EQ(marked(1), 0);
  EXPECT_EQ(marked(2), 1);
  EXPECT_EQ(at(0, 2).x, 10);  // nothing moved
  EXPECT_FALSE(doc.modified);
}

TEST_F(Gesture, RubberBandWithShiftAddsAndWithAltSubtracts) {
  mark({1, 2});
  // Around records 2 and 3.
  const MousePoint from = mouse(9, 1), to = mouse(11, 11);
  keys(true, false, false);
  drag(left_button, from, to);
  EXPECT_EQ(marked(1) + marked(2) + marked(3), 3);
  keys(false, false, true);
  drag(left_button, from, to);
  EXPECT_EQ(marked(1), 1);
  EXPECT_EQ(marked(2) + marked(3), 0);
  EXPECT_LT(yellow_pixels(), 100);  // the band (240 pixels) is gone, the marked vertex's square stays
}

TEST_F(Gesture, ClickOnAVertexSelectsItAloneOrAddsWithShiftButAltNeverSelects) {
  mark({1});
  click(left_button, mouse(10, 10, 2, 2));
  EXPECT_EQ(marked(1), 0);
  EXPECT_EQ(marked(3), 1);
  keys(true, false, false);
  click(left_button, mouse(2, 10));
  EXPECT_EQ(marked(3) + marked(4), 2);
  keys(false, false, true);
  click(left_button, mouse(10, 2));
  EXPECT_EQ(marked(2), 0);
  EXPECT_EQ(ui->status[1], "2 vertices selected");
}

TEST_F(Gesture, ClickOnAMarkedVertexKeepsOnlyItOrUnmarksItWithCtrl) {
  mark({1, 2, 3});
  click(left_button, mouse(10, 2));
  EXPECT_EQ(marked(1) + marked(3), 0);
  EXPECT_EQ(marked(2), 1);
  keys(false, true, false);
  click(left_button, mouse(10, 2));
  EXPECT_EQ(marked(2), 0);
}

TEST_F(Gesture, CtrlClickOnALineSwapsTheMarksOfItsEnds) {
  mark({2});
  keys(false, true, false);
  click(left_button, mouse(10, 6, 3, 0));  // on the line from record 2 to 3
  EXPECT_EQ(marked(2), 0);
  EXPECT_EQ(marked(3), 1);
  keys(false, false, false);
  click(left_button, mouse(6, 10, 0, 2));  // plain: both ends of 3 to 4 alone
  EXPECT_EQ(marked(3) + marked(4), 2);
  keys(false, false, true);
  click(left_button, mouse(6, 10));
  EXPECT_EQ(marked(3) + marked(4), 0);
}

TEST_F(Gesture, ClickOnEmptySpaceClearsTheSelectionUnlessShiftIsHeld) {
  mark({2, 3});
  keys(true, false, false);
  click(left_button, mouse(6, 6));
  EXPECT_EQ(marked(2) + marked(3), 2);
  keys(false, false, false);
  click(left_button, mouse(6, 6));
  EXPECT_EQ(marked(2) + marked(3), 0);
}

TEST_F(Gesture, RightOrMiddleDragPansThePictureWithThePointer) {
  int32_t px, py;
  WorldToPixel(10, 2, px, py);
  drag(right_button, mouse(5, 5), mouse(5, 5, 30, 20));
  int32_t moved_x, moved_y;
  WorldToPixel(10, 2, moved_x, moved_y);
  EXPECT_EQ(moved_x, px + 30);
  EXPECT_EQ(moved_y, py - 20);  // 20 down: the bitmap counts upwards
  drag(middle_button, mouse(5, 5), mouse(5, 5, -30, -20));
  WorldToPixel(10, 2, moved_x, moved_y);
  EXPECT_EQ(moved_x, px);
  EXPECT_EQ(moved_y, py);
  EXPECT_FALSE(doc.modified);
}

TEST_F(Gesture, TheFirstHoverAfterAReleaseShowsNoText) {
  click(left_button, mouse(6, 6));
  ui->status[1].clear();
  move(0, mouse(3, 4));
  EXPECT_EQ(ui->status[1], "");
  move(0, mouse(3, 4));
  EXPECT_EQ(ui->status[1], "Mouse location X (3), Y (4)");
}

TEST_F(Gesture, RightClickOnALineOffersTheInsertMenuAndTwoPointsCutItInThree) {
  ui->menu_choices.push_back([] { InsertPointsAtClick(2); });
  click(right_button, mouse(6, 2, 0, 2));
  ASSERT_EQ(ui->menus_shown, std::vector<PopupMenu>{PopupMenu::unselect_edit});
  EXPECT_TRUE(ui->menu_item_enabled(PopupMenu::unselect_edit, 1));
  ASSERT_EQ(doc.layer(0).g_count, 7);
  EXPECT_NEAR(at(0, 2).x, 2 + 8.0 / 3, 1e-12);
  EXPECT_NEAR(at(0, 3).x, 2 + 16.0 / 3, 1e-12);
  EXPECT_NEAR(at(0, 4).e_delta, 8.0 / 3, 1e-12);
  EXPECT_TRUE(doc.modified);
  EXPECT_CONSISTENT();
}

TEST_F(Gesture, OnePointGoesWhereTheUserClicked) {
  ui->menu_choices.push_back([] { InsertPointsAtClick(1); });
  click(right_button, mouse(6, 2, 0, 3));
  EXPECT_DOUBLE_EQ(at(0, 2).x, 6);
  EXPECT_DOUBLE_EQ(at(0, 2).y, 1.7);
  EXPECT_CONSISTENT();
}

TEST_F(Gesture, TheInsertPreviewIsWipedWhenTheMenuClosesUnused) {
  const Bitmap before = drawing.picture;
  int preview = 0;
  ui->menu_choices.push_back([&] { preview = yellow_pixels(); });
  click(right_button, mouse(6, 2));
  EXPECT_GT(preview, 70);  // the 8 mm line and its arrow
  EXPECT_EQ(drawing.picture.pixels, before.pixels);
}

TEST_F(Gesture, RightClickOnEmptySpaceShowsTheInsertMenuOnlyWhenItsOtherItemIsEnabled) {
  ui->set_menu_item_enabled(PopupMenu::unselect_edit, 2, false);
  click(right_button, mouse(6, 6));
  EXPECT_FALSE(ui->menu_item_enabled(PopupMenu::unselect_edit, 1));
  EXPECT_TRUE(ui->menus_shown.empty());
  ui->set_menu_item_enabled(PopupMenu::unselect_edit, 2, true);
  click(right_button, mouse(6, 6));
  EXPECT_EQ(ui->menus_shown.size(), 1u);
}

TEST_F(Gesture, RightClickOnAMarkedVertexOffersTheEditMenu) {
  mark({3});
  click(right_button, mouse(10, 10));
  ASSERT_EQ(ui->menus_shown, std::vector<PopupMenu>{PopupMenu::select_edit});
  EXPECT_TRUE(ui->menu_item_enabled(PopupMenu::select_edit, 2));
}

TEST_F(Gesture, NothingHappensWithoutADocument) {
  ResetDocument(false);
  ui->status[1].clear();
  click(right_button, mouse(6, 2));
  move(0, mouse(6, 2));
  EXPECT_TRUE(ui->menus_shown.empty());
  EXPECT_EQ(ui->status[1], "");
}
