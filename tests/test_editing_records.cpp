// The record-level operations: machine state, record slots, segment
// distance and the d_delta self-check.
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
    "G1 X8 Y11 Z0.4 E4\n"
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
  const char* const everything_reset = "G1 X1 Y1 E1\nG1 X1 Y2 Z0.3 E2\nG92 X7 Y8 E9 F100\nM117\n";
  const Case cases[] = {
      {"the origin before the first record", state_doc, 0, -1, 0, 0, 0, 0, 0},
      {"a reset of E keeps the move's position", state_doc, 0, 3, 0, 5, 6, 0, 900},
      {"into the layer before", state_doc, 1, -1, 0, 8, 10, 3, 900},
      {"a reset of X in the same layer", state_doc, 1, 1, 1, 1, 11, 4, 900},
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
  EXPECT_GT(layer.g_capacity(), capacity);
  EXPECT_EQ(std::tuple(layer.g_count, layer.coor_count), std::tuple(capacity + 1, capacity + 1));
  EXPECT_EQ(std::tuple(layer.g[5].index, layer.g[5].kind, layer.g[6].index, doc.coor_list_count),
            std::tuple(new_index, line_kind::g1, displaced, new_index + 1));
  ASSERT_EQ(lists.data_selected.size(), static_cast<size_t>(capacity + 1));
  EXPECT_EQ(std::tuple(lists.data_selected[5], lists.select_flag[5], lists.select_flag[6]), std::tuple(1, 1, 1));
  EXPECT_EQ(std::tuple(lists.select_line[5], lists.select_line[6], lists.select_line[7]), std::tuple(1, 1, 0));
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
