// Copy, Cut and Paste of G-code: what is copied, and a path pasted on
// another layer printing the same, at that layer's height.
#include <gtest/gtest.h>

#include <cmath>

#include "editing/clipboard.h"
#include "editing/commands.h"
#include "editing/history.h"
#include "tests/editing_fixture.h"
#include "tests/printer_motion.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

// Two layers of relative extrusion: a square of four sides on each, the
// second layer ending with a move the paste goes before.
const char* const squares =
    "M83\nG1 Z0.2 F1200\nG1 X10 Y0 E1 ;side\nG1 X10 Y10 E1\nG92 E0\nM117 half\nG1 X0 Y10 E1\nG1 X0 Y0 E1\n"
    "G1 Z0.4\nG1 X20 Y0 E2\nG1 X20 Y20 E2\n";

using Clipboard = EditingTest;

}  // namespace

TEST_F(Clipboard, CopyWritesEveryFieldWithTheMovesOwnExtrusionAndNoZ) {
  load(squares);
  ShowSingleLayer(1);
  mark({1, 2, 6});
  EXPECT_EQ(SelectedDataText(false), "G1 X10 Y0 E1 F1200 ;side\nG1 X10 Y10 E1 F1200\nG1 X0 Y0 E1 F1200\n");
  // From the data list, the G92 and text rows on view come too.
  EXPECT_EQ(SelectedDataText(true),
            "G1 X10 Y0 E1 F1200 ;side\nG1 X10 Y10 E1 F1200\nG92 E0\nM117 half\nG1 X0 Y0 E1 F1200\n");

  load("G1 X0 Y0 Z0.2 F600\nG1 X10 Y0 E5\nG3 X0 Y10 I-10 J0 E6\n");
  ShowSingleLayer(1);
  mark({2});
  EXPECT_EQ(SelectedDataText(false), "G3 X0 Y10 I-10 J0 E1 F600\n") << "absolute E copied as the arc's own";
}

TEST_F(Clipboard, APastedPathPrintsTheSameOnTheLayerItGoesInto) {
  load(squares);
  ShowSingleLayer(1);
  mark({1, 2, 5, 6});
  ASSERT_TRUE(CopySelectedDataCommand(false));
  ShowSingleLayer(2);
  const double e_after = at(2, 2).e;
  ASSERT_TRUE(PasteGCodeCommand(2));  // before the second layer's last move
  EXPECT_CONSISTENT();
  ASSERT_EQ(doc.layer(2).g_count, 7);
  // The square again, at the new layer's height, in its extrusion mode.
  EXPECT_EQ(move_z(2, 2), 0.4);
  EXPECT_EQ((std::vector<double>{at(2, 2).x, at(2, 3).y, at(2, 4).x}), (std::vector<double>{10, 10, 0}));
  EXPECT_TRUE(at(2, 2).e_relative);
  EXPECT_EQ(at(2, 2).given, given_x | given_y | given_e | given_f);
  EXPECT_DOUBLE_EQ(at(2, 6).e, e_after + 4 + at(2, 6).e_delta - 2) << "the E after follows the pasted total";

  // The printer runs the pasted sides with the same filament per mm.
  const auto moves = test::RunPrinter(saved());
  int sides = 0;
  for (const auto& move : moves)
    if (std::abs(move.z - 0.4) < 1e-9 && std::abs(move.e_change - 1) < 1e-9) ++sides;
  EXPECT_EQ(sides, 4);

  // Paste is one step.
  EXPECT_EQ(history.undo_name(), "Paste GCode");
  history.undo();
  EXPECT_EQ(doc.layer(2).g_count, 3);
  EXPECT_CONSISTENT();
}

TEST_F(Clipboard, PasteReadsLinesAsTheLoaderDoesAndCutIsOneStep) {
  load(squares);
  ShowSingleLayer(2);
  ui->clipboard = "M600\r\nG1 X5 Y5 Z0.6 E0.5\r\nG1X6Y5E0.1\r\n";
  ASSERT_TRUE(PasteGCodeCommand(1));
  EXPECT_EQ(doc.text_list[doc.layer(2).g[1].index], "M600");
  EXPECT_EQ(move_z(2, 2), 0.6) << "a stated Z is the move's own, in this layer";
  EXPECT_EQ(move_z(2, 3), 0.6);
  EXPECT_EQ(doc.layer_count, 3);
  EXPECT_CONSISTENT();

  load(squares);
  ShowSingleLayer(1);
  mark({5});
  ASSERT_TRUE(CutSelectedDataCommand(false));
  EXPECT_EQ(ui->clipboard, "G1 X0 Y10 E1 F1200\n");
  EXPECT_EQ(doc.layer(1).coor_count, 4);
  EXPECT_EQ(history.undo_name(), "Cut Selected Data");
  EXPECT_CONSISTENT();
}
