// The state behind the layer, data and selection lists.
#include <gtest/gtest.h>

#include "tests/editing_fixture.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

// Layer 0: G1 Z0, a travel, an extruding move, a zero-length extruding
// move, a G92, a text line. Layer 1 at z 3.6.
const char* const list_doc = "G0 X5 Y5\nG1 X9 Y5 E2\nG1 X9 Y5 E3\nG92 E0\nM106\nG1 X10 Y5 Z3.6 E1\n";

using U8 = std::vector<uint8_t>;

}  // namespace

using Lists = EditingTest;

TEST_F(Lists, LayerCaptionsAreShortPlainNumbers) {
  load("G1 X1 Z0.2\nG1 X1 Z3.6\nG1 X1 Z0.00001\n");
  EXPECT_EQ(LayerLineText(0), "L0> Z0");
  EXPECT_EQ(LayerLineText(3), "L3> Z0.00001");
  doc.layer(2).z = 3.8 - 0.2;  // 3.5999999999999996
  EXPECT_EQ(LayerLineText(2), "L2> Z3.6");
}

TEST_F(Lists, AfterOpenLayerZeroIsAloneOnViewWithAllItsRows) {
  load(list_doc);
  EXPECT_EQ(doc.current_layer, 0);
  EXPECT_EQ(lists.layer_selected, (U8{1, 0}));
  EXPECT_EQ(lists.layer_caret, 0);
  EXPECT_EQ(lists.data_selected, (U8{1, 1, 1, 1, 1, 1}));
  EXPECT_EQ(lists.select_flag, (U8{0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(lists.row_to_g, (std::vector<int32_t>{0, 1, 2, 3}));
  EXPECT_EQ(ui->status[2], "Layer 0");
  EXPECT_EQ(ui->status[1], "L0> Z0");
  EXPECT_EQ(ui->status[3], "Data 0");
}

TEST_F(Lists, TheGuardStopsARebuild) {
  load(list_doc);
  lists.refresh_guard = true;
  on_view({1});
  EXPECT_EQ(lists.row_to_g.size(), 4u);
  lists.refresh_guard = false;
}

TEST_F(Lists, SelectionStatusCountsTheSelectedLines) {
  load(list_doc);
  SelectionStatus();
  EXPECT_EQ(ui->status[1], "0 vertex selected");
  EXPECT_EQ(ui->status[3], "Multi Data");

  lists.select_line = {0, 0, 1, 0};
  ApplySelection(true);
  EXPECT_EQ(lists.select_flag, (U8{0, 0, 1, 0, 0, 0}));
  EXPECT_EQ(ui->status[1], "1 vertex selected");
  EXPECT_EQ(ui->status[3], "Data 2");
  EXPECT_EQ(debug_messages(), 0);
}

TEST_F(Lists, ALineWithoutItsMarkShowsTheCountMismatch) {
  load(list_doc);
  mark({1, 2});
  lists.select_line[0] = 1;
  SelectionStatus();
  EXPECT_EQ(last_message(), "for debug purpose: data vs gui selection count not tally (2 vs 3)");
  EXPECT_EQ(ui->messages.back().icon, MsgIcon::critical);
}
