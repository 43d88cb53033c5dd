// Deleting marked vertices, selected data rows and selected layers.
#include <gtest/gtest.h>

#include <cmath>

#include "editing/commands.h"
#include "tests/editing_fixture.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

// Four layers at z 0, 0.2, 0.5 and 0.9, each move one unit of E per mm.
const char* const layers_doc =
    "G1 X0 Y0 F1200\nG1 X3 Y0 E3\n"
    "G1 X3 Y0 Z0.2 E4\nG1 X6 Y0 E7\n"
    "G1 X6 Y0 Z0.5 E8\nG1 X9 Y0 E11\n"
    "G1 X12 Y0 Z0.9 E14\n";

void select_layers(std::initializer_list<int32_t> layers) {
  lists.layer_selected.assign(static_cast<size_t>(doc.layer_count), 0);
  for (const int32_t l : layers) lists.layer_selected[static_cast<size_t>(l)] = 1;
}

}  // namespace

using DeleteVertices = EditingTest;

TEST_F(DeleteVertices, TheLastMoveOfALayerIsNeverDeleted) {
  load("G1 X0 Y0\nG1 X0 Y0 Z0.3 E1\nM117 mid\nG1 X3 Y0 E2\n");
  ShowSingleLayer(1);
  mark({0, 2});
  EXPECT_EQ(delete_marked_vertices(), 1);
  EXPECT_EQ(last_message(), "Layer must contains at least 1 coor (G0/G1) data");
  EXPECT_EQ(ui->messages.back().icon, MsgIcon::information);
  EXPECT_EQ(doc.layer(1).coor_count, 1);
  EXPECT_EQ(doc.layer(1).g_count, 2);
  EXPECT_EQ(at(1, 0).x, 0);
  EXPECT_CONSISTENT();
}

TEST_F(DeleteVertices, SeveralAtOnceEqualOneByOneFromTheLast) {
  // Runs of one and two vertices inside layer 2, and its last vertex, whose
  // next move is in layer 3.
  load(korvexed::testing::e_running_on());
  ShowSingleLayer(2);
  for (const int32_t r : {6, 4, 2, 1}) {
    mark({r});
    ASSERT_EQ(delete_marked_vertices(), 1);
  }
  const std::vector<double> one_by_one = bookkeeping();

  load(korvexed::testing::e_running_on());
  ShowSingleLayer(2);
  mark({1, 2, 4, 6});
  EXPECT_EQ(delete_marked_vertices(), 4);
  expect_same_bookkeeping(bookkeeping(), one_by_one);
  EXPECT_EQ(lists.row_to_g, (std::vector<int32_t>{0, 1, 2}));
  EXPECT_EQ(lists.select_line, (std::vector<uint8_t>{0, 0, 0}));
  EXPECT_CONSISTENT();
}

TEST_F(DeleteVertices, ResetsBetweenTheVertexAndTheNextMoveAreIgnored) {
  load("G1 X3 Y0 E3\nG1 X6 Y0 E6\nG92 E0\nG1 X9 Y0 E3\n");
  mark({2});
  EXPECT_EQ(delete_marked_vertices(), 1);
  // The next move continues from the E before the deleted vertex, as if
  // the reset were not there.
  EXPECT_DOUBLE_EQ(at(0, 3).e_delta, 6);
  EXPECT_DOUBLE_EQ(at(0, 3).e, 9);
  EXPECT_TRUE(CheckConsistency().starts_with("layer 0 record 3: e 9"));
}

TEST_F(DeleteVertices, TheCommandDeletesRowsOnlyWhenAllowed) {
  load("G1 X3 Y0 E3\nM117 a\nG1 X6 Y0 E6\n");
  mark({});
  on_view({2});
  EXPECT_FALSE(DeleteSelectedDataCommand(false));
  EXPECT_FALSE(doc.modified);
  EXPECT_EQ(doc.layer(0).g_count, 4);

  on_view({0, 1, 2, 3});
  mark({3});
  EXPECT_TRUE(DeleteSelectedDataCommand(false));
  EXPECT_TRUE(doc.modified);
  EXPECT_EQ(doc.layer(0).g_count, 3);
  EXPECT_EQ(kind(0, 2), line_kind::text);

  doc.modified = false;
  mark({});
  EXPECT_TRUE(DeleteSelectedDataCommand(true));
  EXPECT_TRUE(doc.modified);
  EXPECT_EQ(doc.layer(0).g_count, 2);
}

using DeleteRows = EditingTest;

TEST_F(DeleteRows, WithoutItsOnlyEResetTheExtrusionCarriesOn) {
  load("G1 X3 Y0 E3\nG92 E0\nG1 X6 Y0 E3\nG1 X9 Y0 E6\n"
       "G1 X9 Y0 Z0.5 E7\nG92 E0\nG1 X12 Y0 E3\n");
  on_view({2});
  EXPECT_EQ(delete_selected_rows(), 1);
  EXPECT_DOUBLE_EQ(at(0, 2).e, 6);
  EXPECT_DOUBLE_EQ(at(0, 3).e, 9);
  EXPECT_DOUBLE_EQ(at(1, 0).e, 10);
  EXPECT_EQ(at(1, 2).e, 3);
  EXPECT_CONSISTENT();
}

TEST_F(DeleteRows, LaterResetsBeforeTheNextMoveStillCount) {
  load("G1 X3 Y0 E3\nM117 a\nG92 E0\nG92 X0\nG1 X3 Y0 E3\n");
  on_view({3});
  EXPECT_EQ(delete_selected_rows(), 1);
  EXPECT_EQ(at(0, 4).d_delta, 9);
  EXPECT_FALSE(at(0, 4).no_extrude);
  EXPECT_DOUBLE_EQ(at(0, 4).e, 6);
  EXPECT_CONSISTENT();
}

using DeleteLayers = EditingTest;

TEST_F(DeleteLayers, AMiddleLayerLowersTheLaterOnesAndKeepsTheirThickness) {
  load(layers_doc);
  select_layers({1});
  EXPECT_EQ(delete_selected_layers(), 1);
  ASSERT_EQ(doc.layer_count, 3);
  EXPECT_DOUBLE_EQ(doc.layer(1).z, 0.3);
  EXPECT_DOUBLE_EQ(doc.layer(1).dz, 0.3);
  EXPECT_DOUBLE_EQ(doc.layer(2).z, 0.7);
  EXPECT_DOUBLE_EQ(doc.layer(2).dz, 0.4);
  // The old layer 2 now climbs from the end of layer 0.
  EXPECT_DOUBLE_EQ(at(1, 0).d_delta, 9.09);
  EXPECT_DOUBLE_EQ(at(1, 0).e_delta, std::sqrt(9.09 / 0.09));
  EXPECT_CONSISTENT();
}

TEST_F(DeleteLayers, TheFirstLayerCanGo) {
  load(layers_doc);
  select_layers({0});
  EXPECT_EQ(delete_selected_layers(), 1);
  EXPECT_EQ(doc.layer_count, 3);
  EXPECT_DOUBLE_EQ(doc.layer(0).z, 0.2);
  EXPECT_CONSISTENT();
}

TEST_F(DeleteLayers, OneLayerAlwaysStays) {
  load(layers_doc);
  select_layers({0, 1, 2, 3});
  EXPECT_EQ(delete_selected_layers(), 3);
  EXPECT_EQ(last_message(), "Cannot remove all layer");
  EXPECT_EQ(ui->messages.back().icon, MsgIcon::information);
  EXPECT_EQ(doc.layer_count, 1);
  EXPECT_EQ(doc.layer(0).z, 0);
}

TEST_F(DeleteLayers, AResetBeforeTheFirstMoveOfTheNextLayerCounts) {
  load("G1 X3 Y0 E3\n"
       "G1 X3 Y0 Z0.2 E4\nG1 X6 Y0 E7\n"
       "G1 X6 Y0 Z0.5 E8\nG92 E0\nG1 X9 Y0 E3\n");
  ShowSingleLayer(2);
  mark({0});
  ASSERT_EQ(delete_marked_vertices(), 1);
  ASSERT_EQ(kind(2, 0), line_kind::g92);

  select_layers({1});
  EXPECT_EQ(delete_selected_layers(), 1);
  EXPECT_DOUBLE_EQ(at(1, 1).e, at(1, 1).e_delta);
  EXPECT_CONSISTENT();
}

TEST_F(DeleteLayers, TheCommandWithNoLayerSelectedChangesNothing) {
  load(layers_doc);
  select_layers({});
  EXPECT_FALSE(DeleteSelectedLayersCommand());
  EXPECT_FALSE(doc.modified);
  EXPECT_EQ(doc.layer_count, 4);
}
