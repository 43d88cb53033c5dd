// The view of the drawing area: start-up view, conversions, zoom clamps,
// the wheel, Zoom Fit, resizing, and what the rulers are told.
#include <gtest/gtest.h>

#include <cstdint>

#include "tests/editing_fixture.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

struct RecordingRuler : RulerSink {
  double start = 0, length = 0;
  void set_start_value(double value) override { start = value; }
  void set_length(double l) override { length = l; }
};

class WorldViewTest : public EditingTest {
 protected:
  WorldViewTest() {
    SetRulers(&horizontal, &vertical);
    EXPECT_TRUE(CreateDrawing(800, 600));
  }
  ~WorldViewTest() override { SetRulers(nullptr, nullptr); }

  RecordingRuler horizontal, vertical;
};

}  // namespace

TEST_F(WorldViewTest, StartsWithFortyMillimetresAcrossAboutTheOrigin) {
  EXPECT_EQ(view.view_scale, 20);
  EXPECT_EQ(view.view_xmin, -20);
  EXPECT_EQ(view.view_xmax, 20);
  EXPECT_EQ(view.view_ymin, -15);
  EXPECT_EQ(view.view_ymax, 15);
  // Rulers count in tens of millimetres; the vertical one runs down from the top.
  EXPECT_EQ(horizontal.start, -2);
  EXPECT_EQ(horizontal.length, 4);
  EXPECT_EQ(vertical.start, 1.5);
  EXPECT_EQ(vertical.length, -3);
}

TEST_F(WorldViewTest, PixelsRoundHalvesToEvenAndSaturateFarOff) {
  int32_t px, py;
  WorldToPixel(0.025, -0.025, px, py);  // 400.5 and 299.5
  EXPECT_EQ(px, 400);
  EXPECT_EQ(py, 300);
  WorldToPixel(0.075, 0, px, py);  // 401.5
  EXPECT_EQ(px, 402);
  WorldToPixel(1e300, -1e300, px, py);
  EXPECT_EQ(px, INT32_MAX);
  EXPECT_EQ(py, INT32_MIN);
  double x, y;
  PixelToWorld(400, 300, x, y);
  EXPECT_EQ(x, 0);
  EXPECT_EQ(y, 0);
}

TEST_F(WorldViewTest, ZoomStopsAtItsBoundsAndPansByWholePixels) {
  for (int i = 0; i < 200; ++i) ZoomView(1.5, 0, 0, false);
  EXPECT_EQ(view.view_scale, max_view_scale);
  for (int i = 0; i < 200; ++i) ZoomView(0.5, 0, 0, false);
  EXPECT_EQ(view.view_scale, min_view_scale);

  ZoomView(20 / min_view_scale, 0, 0, false);
  int32_t x0, y0, x1, y1;
  WorldToPixel(3, 4, x0, y0);
  ZoomView(1, 10, -5, false);
  WorldToPixel(3, 4, x1, y1);
  EXPECT_EQ(x1 - x0, 10);
  EXPECT_EQ(y1 - y0, -5);
  EXPECT_DOUBLE_EQ(view.view_offset_x, -view.view_xmin);
}

TEST_F(WorldViewTest, FitWithoutExtrusionPutsTheExtremesOnTheEdgesAndHoldsTheOrigin) {
  // Travel only, at positive coordinates; G92 does not count.
  load("G1 X50 Y60 F1200\nG1 X190 Y70\nG1 X60 Y80\nG92 X500 Y-500\n");
  ZoomFit();
  EXPECT_DOUBLE_EQ(view.view_scale, 800.0 / 190);  // 0 to 190 across
  EXPECT_DOUBLE_EQ(view.view_xmin, 0);
  EXPECT_DOUBLE_EQ(view.view_xmax, 190);
  EXPECT_LE(view.view_ymin, 0);
  EXPECT_GE(view.view_ymax, 80);
  // The spare height is shared above and below.
  EXPECT_NEAR(view.view_ymin + view.view_ymax, 80, 1e-9);
}

TEST_F(WorldViewTest, FitWithoutMovesShowsTwentyMillimetresAboutTheOrigin) {
  ResetDocument(false);  // one layer: G1 Z0 at the origin
  ZoomFit();
  EXPECT_DOUBLE_EQ(view.view_scale, 30);  // the height limits: 600 / 20
  EXPECT_DOUBLE_EQ(view.view_ymin, -10);
  EXPECT_DOUBLE_EQ(view.view_ymax, 10);
  EXPECT_NEAR(view.view_xmin, -800.0 / 60, 1e-12);
}

// Growing wider is driven through the window; here what it cannot see.
TEST_F(WorldViewTest, ResizingKeepsTheSavedPictureAndTheRulersInStep) {
  const double scale = view.view_scale;
  ResizeView(900, 500);
  EXPECT_EQ(drawing.saved.width, 900);
  EXPECT_DOUBLE_EQ(horizontal.length, (view.view_xmax - view.view_xmin) / 10);
  EXPECT_DOUBLE_EQ(view.view_ymin, -15 + 50 / scale);
  EXPECT_DOUBLE_EQ(view.view_ymax, 15 - 50 / scale);

  // Without a bitmap there is nothing to keep in step.
  ASSERT_TRUE(ResizeBitmap(drawing.picture, 0, 0));
  ResizeView(300, 300);
  EXPECT_EQ(drawing.picture.width, 0);
}
