// Splitting a move by inserted points.
#include <gtest/gtest.h>

#include "editing/commands.h"
#include "tests/editing_fixture.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

using InsertPoints = EditingTest;

TEST_F(InsertPoints, TheCommandPutsOnePointWhereTheUserClicked) {
  load("G1 X0 Y0 F1200\nG1 X9 Y0 E9\nG1 X12 Y0 E12\n");
  InsertPointsCommand(2, 1, 4.5, 6);
  EXPECT_TRUE(doc.modified);
  EXPECT_EQ(std::pair(at(0, 2).x, at(0, 2).y), std::pair(4.5, 6.0));
  // Off the segment both pieces are longer, and so is their extrusion.
  EXPECT_DOUBLE_EQ(at(0, 2).e_delta, 7.5);
  EXPECT_DOUBLE_EQ(at(0, 3).e_delta, 7.5);
  EXPECT_DOUBLE_EQ(at(0, 4).e, 18);
  EXPECT_CONSISTENT();
}

TEST_F(InsertPoints, AZeroLengthMoveHalvesItsExtrusion) {
  load("G1 X3 Y0 E3\nG1 X3 Y0 E5\nG1 X6 Y0 E8\n");
  insert_point(2, 3, 0);
  EXPECT_EQ(column(&coor_data::e_delta, 0, 2, 3), (std::vector<double>{1, 1}));
  EXPECT_EQ(column(&coor_data::no_extrude, 0, 2, 3), (std::vector<bool>{true, true}));
  EXPECT_EQ(at(0, 3).e, 5);
  EXPECT_CONSISTENT();
}

TEST_F(InsertPoints, ATravelSplitStaysATravel) {
  load("G1 X3 Y0 E3\nG0 X9 Y0\n");
  insert_points_evenly(2, 1);
  EXPECT_EQ(kind(0, 2), line_kind::g0);
  EXPECT_EQ(kind(0, 3), line_kind::g0);
  EXPECT_EQ(at(0, 2).x, 6);
  EXPECT_CONSISTENT();
}

TEST_F(InsertPoints, TheNewVertexIsOnViewMarkedAndListed) {
  load("G1 X3 Y0 E3\nM117\nG1 X9 Y0 E9\n");
  mark({1});
  insert_points_evenly(3, 1);
  EXPECT_EQ(lists.data_selected, (std::vector<uint8_t>{1, 1, 1, 1, 1}));
  EXPECT_EQ(lists.select_flag, (std::vector<uint8_t>{0, 1, 0, 1, 0}));
  EXPECT_EQ(lists.row_to_g, (std::vector<int32_t>{0, 1, 3, 4}));
  EXPECT_EQ(lists.select_line, (std::vector<uint8_t>{0, 1, 1, 0}));
  SelectionStatus();
  EXPECT_EQ(debug_messages(), 0);
  EXPECT_EQ(ui->status[1], "2 vertices selected");
}

TEST_F(InsertPoints, ALayerTakesOneHundredThousandRecordsAtMost) {
  std::string gcode;
  for (int i = 1; i < max_data_count - 1; ++i)
    gcode += "G1 X" + std::to_string(i % 100) + " E" + std::to_string(i) + "\n";
  load(gcode);
  ASSERT_EQ(doc.layer(0).g_count, max_data_count - 1);
  insert_points_evenly(5, 2);
  EXPECT_EQ(doc.layer(0).g_count, max_data_count);
  ASSERT_EQ(ui->messages.size(), 1u);
  EXPECT_EQ(last_message(), "Data count limit has been reached, cannot insert further data.");
  EXPECT_EQ(ui->messages.back().icon, MsgIcon::exclamation);
  EXPECT_CONSISTENT();
}
