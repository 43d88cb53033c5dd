// The printed part: its extent without the first layers' purge and prime
// lines and skirts, the layer where it starts, and Zoom Fit around it.
#include <gtest/gtest.h>

#include <string>

#include "document/printed_part.h"
#include "tests/editing_fixture.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

// A square of extrusion from (x0, y0) to (x1, y1), entered by a travel to
// its corner; E counts on from `e`.
std::string square(double x0, double y0, double x1, double y1, int& e) {
  auto at = [](double x, double y) { return " X" + std::to_string(x) + " Y" + std::to_string(y); };
  std::string gcode = "G0" + at(x0, y0) + "\n";
  for (const auto& corner : {at(x1, y0), at(x1, y1), at(x0, y1), at(x0, y0)})
    gcode += "G1" + corner + " E" + std::to_string(++e) + "\n";
  return gcode;
}

// Cura's way: the start code parks at the origin, a prime line along the
// bed's edge at Z0.3 of its own, then a 0.2 mm first layer with a skirt
// around the part, and two more layers of the part at 50 to 70 mm.
std::string primed_print() {
  int e = 0;
  std::string gcode = "G28\nG1 Z15 F6000\nG0 X0 Y0\nG1 Z0.3\nG1 X0.1 Y20 F1500\nG1 X0.1 Y200 E15\n";
  gcode += "G1 Z0.2\n" + square(40, 40, 80, 80, e) + square(50, 50, 70, 70, e);
  gcode += "G1 Z0.4\n" + square(50, 50, 70, 70, e);
  gcode += "G1 Z0.6\n" + square(50, 50, 70, 70, e) + "G0 X0 Y220\n";
  return gcode;
}

class PrintedPart : public EditingTest {
 protected:
  PrintedPart() { EXPECT_TRUE(CreateDrawing(800, 600)); }
};

}  // namespace

TEST_F(PrintedPart, LeavesOutThePrimeLineAndTheSkirtAndStartsWhereThePartDoes) {
  load(primed_print());
  ASSERT_EQ(doc.layer_count, 5);  // start code, prime line, three layers
  const PlaneExtent part = PartExtent();
  EXPECT_EQ(part.min_x, 50);
  EXPECT_EQ(part.max_x, 70);
  EXPECT_EQ(part.min_y, 50);
  EXPECT_EQ(part.max_y, 70);
  EXPECT_EQ(FirstPrintedLayer(part), 2);
}

TEST_F(PrintedPart, TwoLayersOfExtrusionCountWholeAndArcsCountToWhereTheyTurn) {
  // A half circle clockwise from (10,0) over (0,-10) to (-10,0), and a
  // short line down from its end on the next layer: the circle's top is
  // no part of it.
  load("G1 Z0.2 F1200\nG0 X10 Y0\nG2 X-10 Y0 I-10 J0 E1\nG1 Z0.4\nG1 X-10 Y-5 E2\n");
  PlaneExtent part = PartExtent();
  EXPECT_EQ(part.min_x, -10);
  EXPECT_EQ(part.max_x, 10);
  EXPECT_EQ(part.min_y, -10);
  EXPECT_EQ(part.max_y, 0);
  EXPECT_EQ(FirstPrintedLayer(part), 1);

  // Nothing inside a part's extent: the first layer that extrudes.
  part = {};
  part.add({500, 500});
  EXPECT_EQ(FirstPrintedLayer(part), 1);
}

TEST_F(PrintedPart, APrintWithoutExtrusionHasNoPartAndStartsAtLayerZero) {
  load("G1 Z0.2 F1200\nG1 X10 Y10\nG1 Z0.4\nG1 X20 Y20 E0\n");
  EXPECT_TRUE(PartExtent().empty());
  EXPECT_EQ(FirstPrintedLayer(PartExtent()), 0);
}

TEST_F(PrintedPart, ZoomFitCentresThePartWithAMarginAndLeavesTheOriginOut) {
  load(primed_print());
  ZoomFit();
  // 20 mm fill 90 % of the 600 pixels' height; the width is centred.
  EXPECT_DOUBLE_EQ(view.view_scale, 0.9 * 600 / 20);
  EXPECT_NEAR(view.view_ymin, 50 - 0.05 * 600 / view.view_scale, 1e-9);
  EXPECT_NEAR(view.view_ymax, 70 + 0.05 * 600 / view.view_scale, 1e-9);
  EXPECT_NEAR(view.view_xmin + view.view_xmax, 120, 1e-9);
  EXPECT_GT(view.view_xmin, 0);

  // Whichever layer is on view, the picture stays where it is.
  const WorldView fitted = view;
  for (const int32_t layer : {0, 1, 4}) {
    ShowSingleLayer(layer);
    ZoomFit();
    EXPECT_EQ(view.view_xmin, fitted.view_xmin);
    EXPECT_EQ(view.view_ymin, fitted.view_ymin);
    EXPECT_EQ(view.view_scale, fitted.view_scale);
  }
}
