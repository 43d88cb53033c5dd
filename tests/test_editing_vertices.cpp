// Moving marked vertices, picking, rubber-band marking, feedrate and kind
// changes.
#include <gtest/gtest.h>

#include <cmath>

#include "editing/commands.h"
#include "editing/history.h"
#include "tests/editing_fixture.h"
#include "view/world_view.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

// Records 1 to 4 of layer 0: (0,0), then 3 mm extruding moves along X
// with one unit of E per millimetre.
const char* const straight_doc = "G1 X0 Y0 F1200\nG1 X3 Y0 E3\nG1 X6 Y0 E6\nG1 X9 Y0 E9\n";

// A view at two pixels per millimetre with the origin at pixel (0, 0):
// the pick radius is 2.5 mm.
class PickTest : public EditingTest {
 protected:
  PickTest() : saved_view_(view) {
    view.view_scale = 2;
    view.view_offset_x = view.view_offset_y = 0;
  }
  ~PickTest() override { view = saved_view_; }

 private:
  WorldView saved_view_;
};

using ScaleExtrusion = EditingTest;

TEST_F(ScaleExtrusion, ScalesTheMarkedExtrusionAndCarriesTheChangeOnAsOneStep) {
  load(straight_doc);
  ShowSingleLayer(0);
  mark({2, 3});
  ASSERT_TRUE(ScaleExtrusionCommand(200));
  EXPECT_EQ(column(&coor_data::e_delta, 0, 2, 4), (std::vector<double>{6, 6, 3}));
  EXPECT_EQ(column(&coor_data::e, 0, 2, 4), (std::vector<double>{6, 12, 15}));
  EXPECT_TRUE(at(0, 3).given & given_e);
  EXPECT_CONSISTENT();
  EXPECT_EQ(history.undo_name(), "Scale Extrusion Rate");
  history.undo();
  EXPECT_EQ(column(&coor_data::e, 0, 2, 4), (std::vector<double>{3, 6, 9}));
}

TEST_F(ScaleExtrusion, NothingLeftMakesATravelAndAHundredPercentChangesNothing) {
  load(straight_doc);
  ShowSingleLayer(0);
  mark({3});
  ASSERT_TRUE(ScaleExtrusionCommand(0));
  EXPECT_TRUE(at(0, 3).no_extrude);
  EXPECT_EQ(column(&coor_data::e, 0, 2, 4), (std::vector<double>{3, 3, 6}));
  // A travel is no extruding move: nothing more to scale.
  EXPECT_FALSE(ScaleExtrusionCommand(50));
  mark({2});
  EXPECT_FALSE(ScaleExtrusionCommand(100));
  EXPECT_EQ(history.size(), 1u);
}

}  // namespace

using Move = EditingTest;

TEST_F(Move, NegligibleOffsetsChangeNothing) {
  load(straight_doc);
  mark({2, 3});
  EXPECT_FALSE(move_marked(0, 1e-11, 0));
  EXPECT_EQ(at(0, 2).x, 3);
  EXPECT_EQ(at(0, 2).e_delta, 3);
}

TEST_F(Move, ATypedExtrusionChangeIsScaledWithTheSegment) {
  load(straight_doc);
  mark({4});
  EXPECT_TRUE(move_marked(3, 0, 1));
  // (3 + 1) * sqrt(36 / 9); the last vertex of the document has no next move.
  EXPECT_DOUBLE_EQ(at(0, 4).e_delta, 8);
  EXPECT_DOUBLE_EQ(at(0, 4).e, 14);
  EXPECT_CONSISTENT();
}

TEST_F(Move, MovesThatStateNoPositionGoWithTheVertexBeforeThem) {
  load("G1 X0 Y0 F1200\nG1 X10 Y0 E1\nG1 E0.2 F2400\nG1 Z0.6\nG0 X20 Y0\nG1 Z0.2\nG1 X30 Y0 E2\n");
  mark({2});
  ASSERT_TRUE(move_marked(0, 5, 0));
  // The retraction and the lift stay where the nozzle is; the travel
  // leaves from there.
  EXPECT_EQ((std::vector<double>{at(0, 3).y, at(0, 4).y, at(0, 5).y}), (std::vector<double>{5, 5, 0}));
  EXPECT_DOUBLE_EQ(at(0, 5).d_delta, 100 + 25);
  EXPECT_EQ(saved(), "G1 X0 Y0 F1200\r\nG1 X10 Y5 E1.11803\r\nG1 E0.31803 F2400\r\nG1  Z0.6\r\nG0 X20 Y0\r\n"
                     "G1  Z0.2\r\nG1 X30 E2.11803\r\n");
  EXPECT_CONSISTENT();
}

TEST_F(Move, ADegenerateSegmentKeepsItsExtrusionUnscaledForGood) {
  load(straight_doc);
  mark({3});
  EXPECT_TRUE(move_marked(-3, 0, 0));  // onto its predecessor
  EXPECT_TRUE(at(0, 3).no_extrude);
  EXPECT_EQ(at(0, 3).d_delta, 0);
  const double kept = at(0, 3).e_delta;
  EXPECT_DOUBLE_EQ(at(0, 4).e_delta, 6);

  EXPECT_TRUE(move_marked(3, 0, 0));
  EXPECT_TRUE(at(0, 3).no_extrude);
  EXPECT_EQ(std::pair(at(0, 3).e_delta, at(0, 3).d_delta), std::pair(kept, 9.0));
  EXPECT_DOUBLE_EQ(at(0, 4).e_delta, 3);
  EXPECT_CONSISTENT();
}

TEST_F(Move, ALoadedZeroLengthMoveKeepsItsExtrusion) {
  load("G1 X3 Y0 E3\nG1 X3 Y0 E4\nG1 X6 Y0 E7\n");
  ASSERT_TRUE(at(0, 2).no_extrude);
  mark({1});
  EXPECT_TRUE(move_marked(0, 1, 0));
  EXPECT_EQ(std::pair(at(0, 2).e_delta, at(0, 2).d_delta), std::pair(1.0, 1.0));
  EXPECT_DOUBLE_EQ(at(0, 2).e, at(0, 1).e + 1);
  EXPECT_CONSISTENT();

  mark({2});
  EXPECT_TRUE(move_marked(1, 0, 0));
  EXPECT_EQ(at(0, 2).e_delta, 1);
  EXPECT_CONSISTENT();
}

TEST_F(Move, TheNextMoveAfterAnEResetCountsFromTheReset) {
  load("G1 X0 Y0\nG1 X3 Y0 E3\nG92 E0\nG1 X6 Y0 E3\nG1 X9 Y0 E6\nG92 E0\nG1 X12 Y0 E3\n");
  mark({2});
  EXPECT_TRUE(move_marked(0, 4, 0));
  EXPECT_DOUBLE_EQ(at(0, 2).e, 5);
  EXPECT_DOUBLE_EQ(at(0, 4).e_delta, 5);
  EXPECT_DOUBLE_EQ(at(0, 4).e, 5);
  EXPECT_DOUBLE_EQ(at(0, 5).e, 8);
  EXPECT_EQ(at(0, 7).e, 3);  // beyond the next reset nothing changes
  EXPECT_CONSISTENT();
}

TEST_F(Move, TheNextMoveAfterAPositionResetStartsThere) {
  load("G1 X3 Y0 E3\nG92 X0\nG1 X3 Y0 E6\n");
  mark({1});
  EXPECT_TRUE(move_marked(0, 4, 0));
  EXPECT_EQ(at(0, 3).d_delta, 25);
  EXPECT_CONSISTENT();
}

TEST_F(Move, ECarriesIntoLaterLayersUpToTheFirstReset) {
  load("G1 X0 Y0\nG1 X3 Y0 E3\n"
       "G1 X3 Y0 Z0.5 E4\nG1 X6 Y0 E7\n"
       "G1 X6 Y0 Z1 E8\nG92 E0\nG1 X9 Y0 E3\n");
  mark({2});
  EXPECT_TRUE(move_marked(0, 4, 0));
  // The first move of layer 1 climbs 0.5 from the moved vertex.
  EXPECT_DOUBLE_EQ(at(1, 0).d_delta, 16.25);
  EXPECT_DOUBLE_EQ(at(1, 0).e_delta, std::sqrt(65.0));
  EXPECT_EQ(at(2, 2).e, 3);
  EXPECT_CONSISTENT();
}

TEST_F(Move, SeveralVerticesAtOnceEqualOneByOne) {
  load(korvexed::testing::e_running_on());
  ShowSingleLayer(2);
  for (const int32_t r : {1, 3, 4, 6}) {
    mark({r});
    move_marked(0.3, -0.7, 0.01);
  }
  const std::vector<double> one_by_one = bookkeeping();

  load(korvexed::testing::e_running_on());
  ShowSingleLayer(2);
  mark({1, 3, 4, 6});
  move_marked(0.3, -0.7, 0.01);
  expect_same_bookkeeping(bookkeeping(), one_by_one);
  EXPECT_CONSISTENT();
}

TEST_F(PickTest, NearestVertexWithinFivePixels) {
  load(straight_doc);
  EXPECT_EQ(pick_vertex_world(5.9, 0.1, false), 3);
  EXPECT_EQ(pick_vertex_world(8.4, 0, false), 4);
  EXPECT_EQ(pick_vertex_world(11.5, 0, false), -1);  // exactly 5 pixels away
  EXPECT_EQ(pick_vertex_world(4.5, 0, false), 2);    // a tie goes to the earlier one
}

TEST_F(PickTest, MarkedOnlyIgnoresNearerUnmarkedVertices) {
  load(straight_doc);
  mark({4});
  EXPECT_EQ(pick_vertex_world(7.4, 0, false), 3);
  EXPECT_EQ(pick_vertex_world(7.4, 0, true), 4);
}

TEST_F(PickTest, SegmentsOnViewOnly) {
  load(straight_doc);
  double sx = -1, sy = -1;
  EXPECT_EQ(pick_segment_world(4.5, 1, sx, sy), 3);
  EXPECT_EQ(std::pair(sx, sy), std::pair(3.0, 0.0));
  on_view({0, 1, 2, 4});
  EXPECT_EQ(pick_segment_world(4.5, 1, sx, sy), 2);
  EXPECT_EQ(sx, 0);
}

TEST_F(PickTest, APositionResetMovesTheSegmentStart) {
  load("G1 X3 Y0 E3\nG92 X20\nG1 X24 Y0 E6\n");
  double sx = -1, sy = -1;
  EXPECT_EQ(pick_segment_world(22, 0.5, sx, sy), 3);
  EXPECT_EQ(sx, 20);
}

using Feedrate = EditingTest;

TEST_F(Feedrate, ChecksComeFirstAndChangeNothing) {
  load("G1 X1 E1 F1200\n");
  mark({1});
  EXPECT_FALSE(ChangeFeedrateCommand(0, 0.5));
  EXPECT_EQ(last_message(), "Feedrate is too small. Please enter greater than 1");
  EXPECT_FALSE(ChangeFeedrateCommand(1200, 1200));
  EXPECT_EQ(last_message(), "No feedrate change is required.");
  EXPECT_EQ(ui->messages.back().icon, MsgIcon::information);
  EXPECT_EQ(at(0, 1).f, 1200);
  EXPECT_FALSE(doc.modified);
}
