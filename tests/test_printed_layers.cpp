// Layers as the slicer printed them: lifts, travel heights and spiral
// turns, every move at its own height, and deleting a layer without
// driving the nozzle into what was printed before.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <regex>
#include <string>

#include "tests/editing_fixture.h"
#include "tests/printer_motion.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

// The height of each layer after layer 0.
std::vector<double> layer_heights() {
  std::vector<double> z;
  for (int32_t L = 1; L < doc.layer_count; ++L) z.push_back(doc.layer(L).z);
  return z;
}

// The printer's lowest target Z, and the lowest of extruding moves.
double lowest_print_z(const std::string& gcode) {
  double lowest = 1e9;
  for (const auto& move : test::RunPrinter(gcode))
    if (move.e_change > 0 && !std::isnan(move.z)) lowest = std::min(lowest, move.z);
  return lowest;
}

using Layers = EditingTest;

}  // namespace

TEST_F(Layers, FollowTheHeightThePrintGoesOnAt) {
  const std::pair<const char*, std::vector<double>> cases[] = {
      // A lift for a travel and its return stay in the layer.
      {"G1 Z0.2\nG1 X10 E1\nG1 Z0.6\nG0 X20\nG1 Z0.2\nG1 X30 E2\nG1 Z0.4\nG1 X10 E3\n", {0.2, 0.4}},
      // A lift at a layer change: the travel height is no layer.
      {"G1 Z0.2\nG1 X10 E1\nG1 Z0.8\nG0 X0\nG1 Z0.4\nG1 X10 E2\n", {0.2, 0.4}},
      // The end code's last lift, and a park position, stay in the last layer.
      {"G1 Z0.2\nG1 X10 E1\nG1 Z0.4\nG1 X0 E2\nG1 E1.2\nG1 Z10\nG0 X0 Y200\n", {0.2, 0.4}},
      // Two objects, one after the other: the second goes back down.
      {"G1 Z0.2\nG1 X10 E1\nG1 Z0.4\nG1 X0 E2\nG1 Z5\nG0 X50\nG1 Z0.2\nG1 X60 E3\nG1 Z0.4\nG1 X50 E4\n",
       {0.2, 0.4, 0.2, 0.4}},
      // No extrusion in the plane at all: every change of Z.
      {"G1 Z1\nG1 X5\nG1 Z2\nG1 Z3 E5\n", {1, 2, 3}},
  };
  for (const auto& [gcode, heights] : cases) {
    load(gcode);
    EXPECT_EQ(layer_heights(), heights) << gcode;
    EXPECT_CONSISTENT();
  }
}

TEST_F(Layers, SpiralsAreCutIntoTurns) {
  // Two flat layers of 0.2, then a spiral rising 0.05 a move: a layer
  // whenever it has risen another 0.2 over the last flat layer.
  std::string gcode = "G1 Z0.2\nG1 X10 E1\nG1 Z0.4\nG1 X0 E2\n";
  double e = 2;
  for (int k = 1; k <= 12; ++k) {
    gcode += "G1 X" + std::to_string(k % 2 ? 10 : 0) + " Z" + std::to_string(0.4 + 0.05 * k) + " E" +
             std::to_string(e += 1) + "\n";
  }
  load(gcode);
  const std::vector<double> heights = layer_heights();
  ASSERT_EQ(heights.size(), 5u);
  EXPECT_NEAR(heights[2], 0.45, 1e-12);
  EXPECT_NEAR(heights[3], 0.65, 1e-12);
  EXPECT_NEAR(heights[4], 0.85, 1e-12);
  // Every move keeps its own height, and climbs from the one before.
  EXPECT_NEAR(move_z(3, 1), 0.5, 1e-12);
  EXPECT_DOUBLE_EQ(at(3, 1).d_delta, 100 + std::pow(move_z(3, 1) - move_z(3, 0), 2));
  EXPECT_CONSISTENT();

  // A spiral from the first layer on counts its turns by 0.2 mm.
  load("G1 X0 Y0\nG1 X10 Z0.1 E1\nG1 X0 Z0.2 E2\nG1 X10 Z0.3 E3\nG1 X0 Z0.4 E4\n");
  EXPECT_EQ(doc.layer_count, 3);
}

TEST_F(Layers, SaveKeepsEveryLiftAsRead) {
  const std::string gcode = "G1 Z0.2 F600\nG1 X10 Y0 E1\nG1 Z0.6\nG0 X20\nG1 Z0.2\nG1 X30 E2\nG1 Z0.4\nG1 X10 E3\n";
  load(gcode);
  ASSERT_EQ(doc.layer_count, 3);
  EXPECT_EQ(saved(), "G1 Z0.2 F600\r\nG1 X10 Y0 E1\r\nG1  Z0.6\r\nG0 X20\r\nG1  Z0.2\r\nG1 X30 E2\r\nG1  Z0.4\r\n"
                     "G1 X10 E3\r\n");
  EXPECT_EQ(test::CompareMotion(test::RunPrinter(gcode), test::RunPrinter(saved(save_tagged))), "");
}

TEST_F(Layers, InsertedPointsClimbWithTheirShareOfTheMove) {
  load("G1 Z0.2\nG1 X10 E1\nG1 X20 Z0.6\n");
  ShowSingleLayer(1);
  insert_points_evenly(2, 1);
  EXPECT_NEAR(move_z(1, 2), 0.4, 1e-12);
  EXPECT_CONSISTENT();
}

TEST_F(Layers, DeletingALayerLowersOnlyWhatStoodOnIt) {
  const std::string dir = KORVEXED_TEST_DATA;
  // A z-hop print: whichever layer goes, nothing is printed below the first
  // layer, and what was above comes down by one layer.
  const std::string zhop = read(dir + "/prusa_zhop_rel.gcode");
  load(zhop);
  const int32_t layers = doc.layer_count;
  const double first = doc.layer(1).z, height = doc.layer(2).z - doc.layer(1).z;
  for (int32_t deleted = 1; deleted < layers; ++deleted) {
    load(zhop);
    const double top = doc.layer(layers - 1).z;
    ShowSingleLayer(deleted);
    EXPECT_EQ(delete_selected_layers(), 1);
    const std::string written = saved();
    EXPECT_NEAR(lowest_print_z(written), first, 1e-9) << "layer " << deleted;
    const auto moves = test::RunPrinter(written);
    const auto printing = std::find_if(moves.begin(), moves.end(), [](const auto& m) { return m.e_change > 0; });
    for (auto move = printing; move != moves.end(); ++move)
      EXPECT_FALSE(move->z < first - 1e-9) << "layer " << deleted << " line " << move->line;
    if (deleted + 1 < layers) {
      EXPECT_NEAR(doc.layer(layers - 2).z, top - height, 1e-9);
    }
    EXPECT_CONSISTENT();
  }

  // A prime line printed above the first layer: deleting it lowers nothing.
  load("G1 Z0.3\nG1 X10 E1\nG1 Z0.2\nG1 X20 E2\nG1 Z0.4\nG1 X10 E3\n");
  ShowSingleLayer(1);
  delete_selected_layers();
  EXPECT_EQ(layer_heights(), (std::vector<double>{0.2, 0.4}));

  // The first of two objects: the second stays where it was.
  load("G1 Z0.2\nG1 X10 E1\nG1 Z0.4\nG1 X0 E2\nG1 Z5\nG0 X50\nG1 Z0.2\nG1 X60 E3\nG1 Z0.4\nG1 X50 E4\n");
  ShowSingleLayer(1);
  delete_selected_layers();
  EXPECT_EQ(layer_heights(), (std::vector<double>{0.2, 0.2, 0.4}));
  EXPECT_CONSISTENT();
}

TEST_F(Layers, MatchTheSlicersOwnLayerMarks) {
  const std::regex mark("(^|\\n)(;LAYER_CHANGE|;LAYER:-?\\d+)");
  for (const auto& entry : std::filesystem::directory_iterator(KORVEXED_TEST_DATA)) {
    if (entry.path().extension() != ".gcode") continue;
    const std::string text = read(entry.path().string());
    int marks = 0;
    for (auto it = std::sregex_iterator(text.begin(), text.end(), mark); it != std::sregex_iterator(); ++it) ++marks;
    if (marks == 0) continue;
    ASSERT_TRUE(LoadGCode(entry.path().string()));
    // A prime line at a height of its own is a layer of its own.
    EXPECT_LE(std::abs(doc.layer_count - 1 - marks), 2) << entry.path().filename();
  }
}
