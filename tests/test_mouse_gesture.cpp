// The drawing area's gestures without a window, beyond what the window
// tests drive with the real mouse: drag steps, vertex and line clicks,
// the menus offered, and no document.
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
  void keys(bool shift, bool ctrl, bool alt) { ui->modifiers = {.shift = shift, .ctrl = ctrl, .alt = alt}; }
};

}  // namespace

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

TEST_F(Gesture, ClickOnALineMarksBothEndsAloneAndAltUnmarksThem) {
  mark({2});
  click(left_button, mouse(6, 10, 0, 2));  // both ends of 3 to 4 alone
  EXPECT_EQ(marked(2), 0);
  EXPECT_EQ(marked(3) + marked(4), 2);
  keys(false, false, true);
  click(left_button, mouse(6, 10));
  EXPECT_EQ(marked(3) + marked(4), 0);
}

TEST_F(Gesture, OnePointGoesWhereTheUserClicked) {
  ui->menu_choices.push_back([] { InsertPointsAtClick(1); });
  click(right_button, mouse(6, 2, 0, 3));
  EXPECT_DOUBLE_EQ(at(0, 2).x, 6);
  EXPECT_DOUBLE_EQ(at(0, 2).y, 1.7);
  EXPECT_CONSISTENT();
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
