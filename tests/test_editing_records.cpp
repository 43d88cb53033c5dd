// The record-level operations: machine state, next move, E shifts, record
// slots, geometry and the d_delta self-check.
#include <gtest/gtest.h>

#include "editing/commands.h"
#include "tests/editing_fixture.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

// Layer 0: G1 Z0, a move, an E reset, a text line, a move.
// Layer 1 (z 0.4): a move, a G92 X1, a move.
const char* const state_doc =
    "G1 X5 Y6 E2 F900\n"
    "G92 E0\n"
    "M104 S200\n"
    "G1 X8 Y10 E3\n"
    "G1 X8 Y10 Z0.4 E4\n"
    "G92 X1\n"
    "G1 X1 Y10 E5\n";

}  // namespace

using State = EditingTest;

// The state before record `r` of `layer`, and the layer the walk ends in.
TEST_F(State, BeforeARecordWalksBackToTheLastMoveAndTheResetsAfterIt) {
  struct Case {
    const char* what;
    const char* gcode;
    int32_t layer, r, end_layer;
    double x, y, e, f;
  };
  const char* const everything_reset = "G1 X1 Y1 E1\nG1 X1 Y1 Z0.3 E2\nG92 X7 Y8 E9 F100\nM117\n";
  const Case cases[] = {
      {"the origin before the first record", state_doc, 0, -1, 0, 0, 0, 0, 0},
      {"a reset of E keeps the move's position", state_doc, 0, 3, 0, 5, 6, 0, 900},
      {"into the layer before", state_doc, 1, -1, 0, 8, 10, 3, 900},
      {"a reset of X in the same layer", state_doc, 1, 1, 1, 1, 10, 4, 900},
      {"a reset of everything ends the walk", everything_reset, 1, 2, 1, 7, 8, 9, 100},
  };
  for (const Case& c : cases) {
    load(c.gcode);
    int32_t layer = c.layer;
    const coor_data s = get_state_before(layer, c.r);
    EXPECT_EQ(layer, c.end_layer) << c.what;
    EXPECT_EQ((std::vector<double>{s.x, s.y, s.e, s.f}), (std::vector<double>{c.x, c.y, c.e, c.f})) << c.what;
  }
  // The last move's deltas come along; none when a reset gave everything.
  int32_t layer = 1;
  EXPECT_EQ(get_state_before(layer, 2).e_delta, 0);
  load(state_doc);
  layer = 0;
  const coor_data s = get_state_before(layer, 3);
  EXPECT_EQ(s.e_delta, 2);
  EXPECT_EQ(s.d_delta, 61);
}

TEST_F(State, NextMoveAppliesTheResetsOnTheWay) {
  load(state_doc);
  coor_data s;
  s.e = 42;
  // The move found and the layer it is in.
  const auto next = [&s](int32_t layer, int32_t r) {
    const int32_t move = find_next_move(layer, r, s);
    return std::pair(move, layer);
  };
  EXPECT_EQ(next(0, 2), std::pair(4, 0));
  EXPECT_EQ(s.e, 0);
  EXPECT_EQ(next(0, 5), std::pair(0, 1));
  EXPECT_EQ(next(1, 3), std::pair(-1, 2));
}

using ShiftE = EditingTest;

TEST_F(ShiftE, CarriesAcrossLayersUpToTheFirstResetOfE) {
  load("G1 X1 E1\nG1 X2 E2\n"
       "G1 X3 Z0.2 E3\nG92 X0\nG1 X1 E4\nM117 hi\n"
       "G1 X2 Z0.4 E5\nG92 E0\nG1 X3 E1\n");
  shift_e_after(0, 2, 1e-11);
  EXPECT_EQ(at(0, 2).e, 2);

  shift_e_after(0, 2, 0.5);
  EXPECT_EQ(column(&coor_data::e, 0, 1, 2), (std::vector<double>{1, 2.5}));
  // A reset of X only does not stop the walk.
  EXPECT_EQ(column(&coor_data::e, 1, 0, 2), (std::vector<double>{3.5, no_value, 4.5}));
  EXPECT_EQ(column(&coor_data::e, 2, 0, 2), (std::vector<double>{5.5, 0, 1}));
  EXPECT_EQ(at(0, 2).e_delta, 1);  // only e moves
}

using Slots = EditingTest;

TEST_F(Slots, InsertingIntoAFullLayerGrowsItAndSplitsTheSelection) {
  // Layer slots keep their arrays from one document to the next: fill the
  // one that layer 0 has.
  load("");
  const int32_t capacity = doc.layer(0).g_capacity();
  std::string gcode;
  for (int i = 1; i < capacity; ++i) gcode += "G1 X" + std::to_string(i) + " E" + std::to_string(i) + "\n";
  load(gcode);
  ASSERT_EQ(doc.layer(0).g_count, capacity);
  ASSERT_EQ(doc.layer(0).g_capacity(), capacity);
  mark({5});
  const int32_t new_index = doc.coor_list_count;
  const int32_t displaced = doc.layer(0).g[5].index;

  insert_record_before(0, 5);

  const layer_data& layer = doc.layer(0);
  EXPECT_EQ(std::tuple(layer.g_capacity(), layer.g_count, layer.coor_count),
            std::tuple(capacity + 1000, capacity + 1, capacity + 1));
  EXPECT_EQ(std::tuple(layer.g[5].index, layer.g[5].kind, layer.g[6].index, doc.coor_list_count),
            std::tuple(new_index, line_kind::g1, displaced, new_index + 1));
  ASSERT_EQ(lists.data_selected.size(), static_cast<size_t>(capacity + 1));
  const auto from_5 = [](const std::vector<uint8_t>& v, int n) {
    return std::vector<uint8_t>(v.begin() + 5, v.begin() + 5 + n);
  };
  EXPECT_EQ(lists.data_selected[5], 1);
  EXPECT_EQ(from_5(lists.select_flag, 2), (std::vector<uint8_t>{1, 1}));
  EXPECT_EQ(from_5(lists.select_line, 3), (std::vector<uint8_t>{1, 1, 0}));
}

TEST_F(Slots, TheNewRecordTakesTheKindItDisplaces) {
  load("G1 X3 E3\nG0 X9\n");
  insert_record_before(0, 2);
  EXPECT_EQ(kind(0, 2), line_kind::g0);
  EXPECT_EQ(kind(0, 3), line_kind::g0);
}

TEST_F(Slots, ARecordInsertedBeforeAnOffViewMoveIsStillListed) {
  load("G1 X3 E3\nM117\nG1 X6 E6\n");
  on_view({0, 1, 2});
  insert_record_before(0, 3);
  EXPECT_EQ(lists.row_to_g, (std::vector<int32_t>{0, 1, 3}));
  EXPECT_EQ(lists.data_selected, (std::vector<uint8_t>{1, 1, 1, 1, 0}));
}

TEST_F(Slots, DeletingRenumbersTheSelectionList) {
  load("G1 X1 E1\nG1 X2 E2\nM117\nG1 X3 E3\n");
  mark({2, 4});
  delete_record(0, 2);
  EXPECT_EQ(doc.layer(0).g_count, 4);
  EXPECT_EQ(doc.layer(0).coor_count, 3);
  EXPECT_EQ(lists.row_to_g, (std::vector<int32_t>{0, 1, 3}));
  EXPECT_EQ(lists.select_line, (std::vector<uint8_t>{0, 0, 1}));
  EXPECT_EQ(lists.select_flag, (std::vector<uint8_t>{0, 0, 0, 1}));
  EXPECT_EQ(lists.data_selected.size(), 4u);

  delete_record(0, 2);  // the text line: no move less
  EXPECT_EQ(doc.layer(0).coor_count, 3);
  EXPECT_EQ(lists.row_to_g, (std::vector<int32_t>{0, 1, 2}));
}

TEST(Geometry, SegmentDistanceClampsToTheEnds) {
  EXPECT_EQ(seg_dist_sq(0, 0, 10, 0, 5, 3), 9);
  EXPECT_EQ(seg_dist_sq(0, 0, 10, 0, -4, 3), 25);
  EXPECT_EQ(seg_dist_sq(0, 0, 10, 0, 13, 4), 25);
  EXPECT_EQ(seg_dist_sq(1, 1, 1, 1, 4, 5), 25);
  EXPECT_EQ(dist3_sq(1, 2, 3, 2, 4, 6), 14);
}

TEST(Geometry, RectanglesIncludeTheirEdges) {
  const auto normalized = [](double x1, double y1, double x2, double y2) {
    normalize_rect(x1, y1, x2, y2);
    return std::vector<double>{x1, y1, x2, y2};
  };
  EXPECT_EQ(normalized(5, 6, 1, 2), (std::vector<double>{1, 2, 5, 6}));
  EXPECT_EQ(normalized(1, 6, 5, 2), (std::vector<double>{1, 2, 5, 6}));
  EXPECT_TRUE(point_in_rect(1, 2, 1, 2, 5, 6));
  EXPECT_TRUE(point_in_rect(5, 6, 1, 2, 5, 6));
  EXPECT_FALSE(point_in_rect(5.0000001, 3, 1, 2, 5, 6));
}

using SelfCheck = EditingTest;

TEST_F(SelfCheck, AWrongLengthIsReportedAndTheEditGoesOn) {
  load("G1 X3 Y0 E3\nG1 X3 Y4 E7\n");
  mark({2});
  EXPECT_TRUE(move_marked(1, 0, 0));
  EXPECT_EQ(debug_messages(), 0);

  at(0, 2).d_delta += 1;
  EXPECT_TRUE(move_marked(1, 0, 0));
  ASSERT_EQ(ui->messages.size(), 1u);
  EXPECT_EQ(ui->messages[0].text,
            "for debug purpose: d_delta is not tally at layer_list(0).g(2) please report to the developer");
  EXPECT_EQ(ui->messages[0].icon, MsgIcon::critical);
  EXPECT_EQ(at(0, 2).x, 5);
}
