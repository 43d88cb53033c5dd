// The picture, pixel by pixel: grids, axes, path colours, arrows, dots,
// start and end markers, other layers, rows off view, marked vertices.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "tests/editing_fixture.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

const PathColours& current = palette.current_path;
const PathColours& other = palette.other_path;

class RenderingTest : public EditingTest {
 protected:
  RenderingTest() {
    EXPECT_TRUE(CreateDrawing(200, 200));
    draw_settings = {};
    SetView(1, 0, 0);
  }

  // World (x, y) at pixel ((offset_x + x) * scale, (offset_y + y) * scale).
  static void SetView(double scale, double offset_x, double offset_y) {
    view.view_scale = scale;
    view.view_offset_x = offset_x;
    view.view_offset_y = offset_y;
    UpdateViewBounds();
  }
  static Rgb At(int32_t x, int32_t y) { return PixelAt(drawing.picture, x, y); }
  static int Count(Rgb colour) {
    int n = 0;
    for (int32_t y = 0; y < drawing.picture.height; ++y)
      for (int32_t x = 0; x < drawing.picture.width; ++x) n += At(x, y) == colour;
    return n;
  }
  static void Blank() { FillBitmap(drawing.picture, palette.background); }
};

// After the document's G1 Z0 (row 0): a travel from the origin, then, off
// the 10 mm grid: extrusion right, travel up (G0), extrusion left.
const char* const square_path = "G1 X23 Y23 F1000\nG1 X83 Y23 E1\nG0 X83 Y83\nG1 X23 Y83 E2\n";

}  // namespace

TEST_F(RenderingTest, GridsAppearOnlyFourPixelsApartOrMore) {
  SetView(3, 10, 10);  // the origin at pixel (30, 30)
  ClearPicture();
  EXPECT_EQ(At(60, 45), palette.grid_10);  // x = 10 mm
  EXPECT_EQ(At(33, 45), palette.background);  // x = 1 mm: no 1 mm grid at 3 px/mm
  EXPECT_EQ(At(30, 45), palette.axes);
  EXPECT_EQ(At(45, 30), palette.axes);
  EXPECT_EQ(At(45, 0), palette.grid_10);  // y = -10 mm

  SetView(4, 10, 10);
  ClearPicture();
  EXPECT_EQ(At(44, 45), palette.grid_1);
  EXPECT_EQ(At(80, 45), palette.grid_10);

  SetView(1, 50, 50);  // 1 mm grid gone, 100 mm grid on top of the 10 mm one
  ClearPicture();
  EXPECT_EQ(At(150, 45), palette.grid_100);
  EXPECT_EQ(At(140, 45), palette.grid_10);
  EXPECT_EQ(At(141, 45), palette.background);
}

TEST_F(RenderingTest, ArrowsPointTheWayTheToolMovesWithBarbsAQuarterOfTheSegmentUpToFifteenPixels) {
  struct Case {
    const char* way;
    int32_t x1, y1, x2, y2, barb1_x, barb1_y, barb2_x, barb2_y;
  };
  // Barbs from the middle, n cos 20 deg back and n sin 20 deg aside, n = length / 4.
  const Case cases[] = {{"right, 100 long", 50, 100, 150, 100, 86, 105, 86, 95},
                        {"right, 20 long", 50, 100, 70, 100, 55, 102, 55, 98},
                        {"up", 100, 40, 100, 140, 95, 76, 105, 76},
                        {"down", 100, 140, 100, 40, 95, 104, 105, 104},
                        {"left", 140, 90, 40, 90, 104, 95, 104, 85},
                        {"up right", 40, 40, 140, 140, 76, 84, 84, 76}};
  for (const Case& c : cases) {
    Blank();
    const double length_sq = double(c.x2 - c.x1) * (c.x2 - c.x1) + double(c.y2 - c.y1) * (c.y2 - c.y1);
    DrawArrow(c.x1, c.y1, c.x2, c.y2, length_sq, current.travel);
    EXPECT_EQ(At(c.barb1_x, c.barb1_y), current.travel) << c.way;
    EXPECT_EQ(At(c.barb2_x, c.barb2_y), current.travel) << c.way;
    int ahead = 0;  // pixels beyond the middle, the way the tool moves
    for (int32_t y = 0; y < 200; ++y)
      for (int32_t x = 0; x < 200; ++x)
        ahead += At(x, y) == current.travel &&
                 (2 * x - c.x1 - c.x2) * (c.x2 - c.x1) + (2 * y - c.y1 - c.y2) * (c.y2 - c.y1) > 0;
    EXPECT_EQ(ahead, 0) << c.way;
  }
  Blank();
  DrawArrow(50, 100, 65, 100, 15 * 15, current.travel);  // too short for barbs
  EXPECT_EQ(Count(current.travel), 0);
}

TEST_F(RenderingTest, PathColourFollowsExtrusionAndTravelHidesWithoutItsDots) {
  load(square_path);
  draw_settings.show_movement = true;
  RedrawView();
  EXPECT_EQ(At(53, 23), current.extrusion);
  EXPECT_EQ(At(83, 53), current.travel);
  EXPECT_EQ(At(12, 12), current.travel);  // from the origin
  EXPECT_EQ(At(84, 24), current.vertex);  // dots on top of both lines
  EXPECT_EQ(At(82, 84), current.vertex);
  EXPECT_EQ(At(23, 23), current.vertex);

  draw_settings.show_movement = false;
  RedrawView();
  EXPECT_EQ(At(83, 53), palette.background);
  EXPECT_EQ(At(84, 84), current.vertex);
}

TEST_F(RenderingTest, StartAndEndSquaresMarkWhereTheLayerBeginsAndEnds) {
  // Layer 1 starts where layer 0 left the tool, far from its own first move.
  load("G1 X23 Y23 F1000\nG1 X43 Y153 E1\nG1 X153 Y153 Z0.2\nG1 X153 Y33 E2\n");
  ShowSingleLayer(1);
  RedrawView();
  // Green outline 11 x 11 about (43, 153), red one about (153, 33).
  EXPECT_EQ(At(38, 148), current.vertex);
  EXPECT_EQ(At(48, 158), current.vertex);
  EXPECT_EQ(At(148, 28), current.end_marker);
  EXPECT_EQ(At(158, 38), current.end_marker);
}

TEST_F(RenderingTest, SquaresAreOutlinesCentredOnTheirPixel) {
  Blank();
  DrawSquare(100, 100, 11, 11, palette.selected);
  EXPECT_EQ(Count(palette.selected), 40);
  EXPECT_EQ(At(95, 95), palette.selected);
  EXPECT_EQ(At(105, 105), palette.selected);
  Blank();
  DrawSquare(100, 100, 4, 2, palette.selected);  // left 98, bottom 99, right 101, top 100
  EXPECT_EQ(Count(palette.selected), 8);
  EXPECT_EQ(At(98, 99), palette.selected);
  EXPECT_EQ(At(101, 100), palette.selected);
}

TEST_F(RenderingTest, OtherLayersLieUnderTheCurrentOneAtHalfBrightness) {
  load("G1 X23 Y23 F1000\nG1 X83 Y23 E1\nG1 X83 Y23 Z0.2\nG1 X83 Y83 E2\n");
  ShowSingleLayer(1);
  lists.layer_selected[0] = 1;
  RedrawView();
  EXPECT_EQ(At(53, 23), other.extrusion);
  EXPECT_EQ(At(12, 12), palette.background);  // no travel shown
  EXPECT_EQ(At(24, 24), other.vertex);
  EXPECT_EQ(At(83, 53), current.extrusion);
  // Layer 1 is on top where the two meet.
  EXPECT_EQ(At(83, 23), current.vertex);
}

TEST_F(RenderingTest, RowsOffViewHideTheirMovesButMarkedVerticesKeepTheirSquares) {
  load(square_path);
  on_view({0, 1, 3, 4});  // row 0 is the document's G1 Z0
  mark({2});
  RedrawView();
  EXPECT_EQ(At(53, 23), palette.background);  // row 2 off view
  EXPECT_EQ(At(53, 83), current.extrusion);
  EXPECT_EQ(At(78, 18), palette.selected);  // square about (83, 23)
  EXPECT_EQ(At(88, 28), palette.selected);

  on_view({});
  RedrawView();
  EXPECT_EQ(Count(current.extrusion), 0);
  EXPECT_EQ(Count(current.vertex), 0);
}

TEST_F(RenderingTest, MovesFarOutsideTheViewAreCutWhereTheyCrossIt) {
  load("G1 X-10000000 Y0.0001 F1000\nG1 X10000000 Y0.0001 E1\nG1 X0.0001 Y10000000 E2\n");
  SetView(max_view_scale, 0.0002, 0.0002);  // 1 mm is half a million pixels
  RedrawView();
  // From 5 * 10^12 pixels left to as far right, along row 150.
  for (int32_t x = 0; x < 200; ++x) ASSERT_EQ(At(x, 150), current.extrusion) << x;
  EXPECT_EQ(At(0, 151), palette.background);
}

TEST_F(RenderingTest, NothingOfTheDocumentIsDrawnWhileNoneIsLoaded) {
  ResetDocument(false);
  SetView(1, 100, 100);
  RedrawView();
  EXPECT_EQ(Count(current.vertex), 0);
  EXPECT_EQ(Count(current.end_marker), 0);
}

TEST_F(RenderingTest, AGestureDrawsOverASavedPictureAndRestoreWipesIt) {
  load(square_path);
  RedrawView();
  const std::vector<uint8_t> picture = drawing.picture.pixels;
  SavePicture();
  draw_settings.show_arrow = true;
  DrawSegment(10, 190, 110, 190, palette.selected);
  EXPECT_EQ(At(60, 190), palette.selected);
  EXPECT_EQ(At(46, 195), palette.selected);  // its arrow: 15 px barbs at the middle
  RestorePicture();
  EXPECT_EQ(drawing.picture.pixels, picture);
}
