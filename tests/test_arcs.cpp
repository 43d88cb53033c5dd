// Arcs: their geometry, and every edit that moves, splits, turns or picks
// them keeping their centre, direction and extrusion per millimetre.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "document/arc_geometry.h"
#include "document/korvexed_file.h"
#include "tests/editing_fixture.h"
#include "view/world_view.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

constexpr double pi = std::numbers::pi;

// Layer 0, records: 1 G1 to (10, 0) with F; 2 a counter-clockwise quarter
// round the origin to (0, 10), one unit of E per millimetre; 3 G1 on to
// (0, 20); 4 a clockwise arc of three quarters round (0, 30) back to
// (10, 30); 5 G1 to (20, 30).
const char* const arcs_doc =
    "G1 X10 Y0 F1200\n"
    "G3 X0 Y10 I-10 J0 E15.707963267948966\n"
    "G1 X0 Y20 E25.707963267948966\n"
    "G2 X10 Y30 I0 J10 E72.831853071795862\n"
    "G1 X20 Y30 E82.831853071795862\n";

double sweep_of(int32_t r) {
  int32_t layer = 0;
  const coor_data p = get_state_before(layer, r - 1);
  return doc.arc_from({p.x, p.y}, doc.layer(0).g[static_cast<size_t>(r)]).sweep();
}
const arc_data& centre_of(int32_t r) { return doc.arc(doc.layer(0).g[static_cast<size_t>(r)].index); }
// Extrusion per millimetre of move r.
double rate(int32_t r) { return doc.coor(0, r).e_delta / std::sqrt(doc.coor(0, r).d_delta); }

}  // namespace

TEST(ArcGeometry, SweepLengthAndNearestPoint) {
  const Arc ccw{{10, 0}, {0, 10}, -10, 0, false};
  const Arc cw{{10, 0}, {0, 10}, -10, 0, true};
  EXPECT_DOUBLE_EQ(ccw.sweep(), pi / 2);
  EXPECT_DOUBLE_EQ(cw.sweep(), 3 * pi / 2);
  EXPECT_DOUBLE_EQ(std::sqrt(ccw.length_sq()), 5 * pi);
  EXPECT_DOUBLE_EQ((Arc{{5, 0}, {5, 0}, -5, 0, true}).sweep(), 2 * pi) << "ends that meet: a full circle";
  EXPECT_EQ((Arc{{5, 0}, {6, 0}, 0, 0, true}).length_sq(), 0) << "no centre, no length";
  EXPECT_NEAR(ccw.nearest_angle({20, 20}), pi / 4, 1e-12);
  EXPECT_NEAR(ccw.distance_sq({20, 20}), std::pow(std::sqrt(800) - 10, 2), 1e-9);
  EXPECT_NEAR(ccw.distance_sq({-10, 5}), 125, 1e-9) << "off the arc: the nearer end";
}

TEST(ArcGeometry, RadiusFormAndRefitting) {
  double i = 0, j = 0;
  // R > 0: at most half a turn; R < 0 the long way; both sides per direction.
  const std::tuple<double, bool, double, double> cases[] = {
      {5, false, 0, 0}, {-5, false, 0, 0}, {5 * std::sqrt(2), false, 0, 5}, {5 * std::sqrt(2), true, 0, -5},
      {-5 * std::sqrt(2), false, 0, -5}, {1, false, 0, 0}};
  for (const auto& [r, clockwise, want_i, want_j] : cases) {
    ASSERT_TRUE(CentreFromRadius({-5, 0}, {5, 0}, r, clockwise, i, j));
    EXPECT_NEAR(i, want_i + 5, 1e-12) << r;
    EXPECT_NEAR(j, want_j, 1e-12) << r;
  }
  EXPECT_FALSE(CentreFromRadius({1, 1}, {1, 1}, 3, false, i, j));
  EXPECT_FALSE(CentreFromRadius({1, 1}, {2, 1}, 0, false, i, j));

  // A short arc keeps its sweep on new ends, a long one its radius.
  Arc quarter{{10, 0}, {0, 10}, -10, 0, false};
  RefitArc(quarter, pi / 2, {20, 0}, {0, 20});
  EXPECT_NEAR(quarter.sweep(), pi / 2, 1e-12);
  EXPECT_NEAR(quarter.radius(), 20, 1e-12);
  Arc hole{{3, 0}, {0, -3}, -3, 0, false};  // three quarters round a hole
  RefitArc(hole, 3 * pi / 2, {3.5, 0}, {0, -3});
  EXPECT_NEAR(hole.radius(), 3, 1e-12);
  EXPECT_GT(hole.sweep(), pi);
  Arc circle{{3, 0}, {3, 0}, -3, 0, true};
  RefitArc(circle, 2 * pi, {4, 0}, {4, 0});
  EXPECT_EQ(circle.i, -3) << "a full circle stays one";
  Arc collapsed = quarter;
  RefitArc(collapsed, pi / 2, {1, 1}, {1, 1});
  EXPECT_EQ(collapsed.length_sq(), 0);
}

using Arcs = EditingTest;

TEST_F(Arcs, LoadAsMovesWithTheirCentreAndLength) {
  load(std::string(arcs_doc) + "G2 X0 Y0 I0 J0\nG18\nG2 X1 Y1 I1 J0\nG17\nG3 X1 Y2 R1 I1\nG2 X5 Y5 P2 I1\n");
  EXPECT_EQ(doc.layer(0).coor_count, 6);
  EXPECT_EQ(doc.layer(0).g[2].kind, line_kind::g3);
  EXPECT_EQ(doc.layer(0).g[4].kind, line_kind::g2);
  EXPECT_DOUBLE_EQ(at(0, 2).d_delta, 25 * pi * pi);
  EXPECT_DOUBLE_EQ(at(0, 4).d_delta, std::pow(10 * 3 * pi / 2, 2));
  EXPECT_FALSE(at(0, 4).no_extrude);
  // No centre, another plane, R with I, another word: text, and no message.
  for (int32_t r = 6; r <= 11; ++r) EXPECT_EQ(doc.layer(0).g[static_cast<size_t>(r)].kind, line_kind::text) << r;
  EXPECT_TRUE(ui->messages.empty());
  EXPECT_EQ(RecordText(doc.layer(0).g[4], 4, true, true, false), "D4> G2 X10 Y30 I0 J10 E72.83185 F1200");
  EXPECT_CONSISTENT();
}

TEST_F(Arcs, SaveWritesIAndJAlwaysAndTheEndWheneverKnown) {
  // After homing an arc that states no X still states none.
  load("G1 X10 Y0 Z0.2 F1200\nG3 X20 Y0 R-5 E3\nG28\nG2 Y5 J2.5 E4\nG2 X10 Y0 I0 J-10 Z0.4 E5\n");
  EXPECT_EQ(saved(), "G1 X10 Y0 Z0.2 F1200\r\nG3 X20 Y0 I5 J0 E3\r\nG28\r\nG2 Y5 I0 J2.5 E4\r\n"
                     "G2 X10 Y0 Z0.4 I0 J-10 E5\r\n");
}

TEST_F(Arcs, DraggingAnEndKeepsTheShapeTheRateAndTheMoveAfter) {
  load(arcs_doc);
  const double short_rate = rate(2), long_rate = rate(4), after_rate = rate(3);
  mark({2});
  ASSERT_TRUE(move_marked(-3, 4, 0));
  // The quarter stays a quarter on its new ends, extruding as before.
  EXPECT_NEAR(sweep_of(2), pi / 2, 1e-12);
  EXPECT_NEAR(rate(2), short_rate, 1e-9);
  // The straight move after it now starts at the moved end.
  EXPECT_DOUBLE_EQ(at(0, 3).d_delta, 9 + 36);
  EXPECT_NEAR(rate(3), after_rate, 1e-9);
  EXPECT_CONSISTENT();

  // The long arc keeps its radius when its start moves, and goes the long
  // way round still.
  mark({3});
  ASSERT_TRUE(move_marked(1, 0, 0));
  EXPECT_NEAR(std::hypot(centre_of(4).i, centre_of(4).j), 10, 1e-12);
  EXPECT_GT(sweep_of(4), pi);
  EXPECT_NEAR(rate(4), long_rate, 1e-9);
  EXPECT_CONSISTENT();

  // A short arc whose ends meet loses its centre and its extrusion.
  mark({2});
  ASSERT_TRUE(move_marked(at(0, 1).x - at(0, 2).x, at(0, 1).y - at(0, 2).y, 0));
  EXPECT_EQ(centre_of(2).i, 0);
  EXPECT_TRUE(at(0, 2).no_extrude);
  EXPECT_NE(saved().find("G3 X10 Y0 I0 J0"), std::string::npos);
  EXPECT_CONSISTENT();
}

TEST_F(Arcs, InsertingPointsSplitsRoundTheSameCentre) {
  load(arcs_doc);
  ShowSingleLayer(0);
  insert_point(2, 20, 20);  // nearest the arc's middle
  ASSERT_EQ(doc.layer(0).g[2].kind, line_kind::g3);
  EXPECT_NEAR(at(0, 2).x, 10 * std::cos(pi / 4), 1e-12);
  EXPECT_NEAR(at(0, 2).y, 10 * std::sin(pi / 4), 1e-12);
  for (const int32_t r : {2, 3}) {
    EXPECT_NEAR(sweep_of(r), pi / 4, 1e-12);
    EXPECT_NEAR(at(0, r).e_delta, 2.5 * pi, 1e-9) << "the extrusion shared by length";
  }
  EXPECT_NEAR(centre_of(3).i, -10 * std::cos(pi / 4), 1e-12);

  insert_points_evenly(5, 2);  // the three-quarter arc into three quarters
  for (const int32_t r : {5, 6, 7}) EXPECT_NEAR(sweep_of(r), pi / 2, 1e-12) << r;
  EXPECT_NEAR(at(0, 5).x, -10, 1e-12);
  EXPECT_NEAR(at(0, 5).y, 30, 1e-12);
  EXPECT_CONSISTENT();
}

TEST_F(Arcs, TranslateTurnsTheCentreWithThePoints) {
  load(arcs_doc);
  translate_all(90, 0, 0);
  EXPECT_NEAR(centre_of(2).i, 0, 1e-12);
  EXPECT_NEAR(centre_of(2).j, -10, 1e-12);
  EXPECT_NEAR(sweep_of(2), pi / 2, 1e-12);
  EXPECT_CONSISTENT();
}

TEST_F(Arcs, KindChangesLeaveArcsAndPickingFollowsTheArc) {
  load(arcs_doc);
  ShowSingleLayer(0);
  mark({2, 3});
  EXPECT_EQ(set_marked_kind(line_kind::g0), 1);
  EXPECT_EQ(doc.layer(0).g[2].kind, line_kind::g3);

  // The middle of the quarter is 2.9 mm from its chord: far from the line
  // that joins its ends, on the arc itself.
  const WorldView kept = view;
  view.view_scale = 10;
  double sx, sy;
  EXPECT_EQ(pick_segment_world(10 * std::cos(pi / 4), 10 * std::sin(pi / 4), sx, sy), 2);
  EXPECT_EQ(pick_segment_world(5, 5, sx, sy), -1);
  view = kept;
}
