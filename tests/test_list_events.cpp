// Clicks, sliders and menus of the layer, data and selection lists.
#include <gtest/gtest.h>

#include "editing/list_events.h"
#include "tests/editing_fixture.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

// Layers 0 to 4; layers 1 to 4 hold a Z move and an extruding move each.
const char* const five_layers =
    "G0 X1 Y1\n"
    "G1 X1 Y1 Z0.2\nG1 X2 Y1 E1\n"
    "G1 X1 Y1 Z0.4\nG1 X2 Y2 E2\n"
    "G1 X1 Y1 Z0.6\nG1 X3 Y1 E3\n"
    "G1 X1 Y1 Z0.8\nG1 X3 Y3 E4\n";

using U8 = std::vector<uint8_t>;

// A click on a line as the list applies it: a plain click selects only the
// line, Ctrl toggles it.
void Click(std::vector<uint8_t>& selected, int32_t& caret, int32_t line, bool ctrl) {
  if (!ctrl) std::fill(selected.begin(), selected.end(), 0);
  selected[static_cast<size_t>(line)] = ctrl ? !selected[static_cast<size_t>(line)] : 1;
  caret = line;
}

void ClickLayer(int32_t line, bool ctrl = false) {
  Click(lists.layer_selected, lists.layer_caret, line, ctrl);
  LayerClick();
}

void ClickData(int32_t row, bool ctrl = false) {
  Click(lists.data_selected, lists.data_caret, row, ctrl);
  DataClick();
}

class ListEvents : public EditingTest {
 protected:
  void SetUp() override { load(five_layers); }
  const HeadlessPlatform::Slider& slider(SliderId id) { return ui->sliders[static_cast<size_t>(id)]; }
  bool button(ListId id) { return ui->list_buttons[static_cast<size_t>(id)]; }
};

}  // namespace

TEST_F(ListEvents, ALayerClickListsTheLayerAndMovesTheSliders) {
  EXPECT_EQ(slider(SliderId::layer).maximum, 4);
  ClickLayer(2);
  EXPECT_EQ(doc.current_layer, 2);
  EXPECT_EQ(lists.data_selected, (U8{1, 1}));
  EXPECT_EQ(lists.data_caret, 0);
  EXPECT_EQ(slider(SliderId::layer).value, 2);
  EXPECT_EQ(slider(SliderId::data).maximum, 1);
  EXPECT_TRUE(slider(SliderId::data).enabled);
  EXPECT_TRUE(button(ListId::data));
  EXPECT_TRUE(button(ListId::select));
  EXPECT_EQ(ui->status[2], "Layer 2");
  EXPECT_EQ(ui->status[1], "L2> Z0.4");
  EXPECT_EQ(ui->status[3], "Data 0");
}

TEST_F(ListEvents, DeselectingALayerKeepsALayerCurrent) {
  ClickLayer(0, true);  // the only one
  EXPECT_EQ(lists.layer_selected, (U8{1, 0, 0, 0, 0}));
  EXPECT_EQ(doc.current_layer, 0);

  ClickLayer(1);
  ClickLayer(3, true);
  ClickLayer(4, true);
  ClickLayer(4, true);  // the current one: the nearest selected below
  EXPECT_EQ(doc.current_layer, 3);
  EXPECT_EQ(lists.layer_caret, 3);
  EXPECT_EQ(lists.layer_selected, (U8{0, 1, 0, 1, 0}));
  ClickLayer(1, true);  // none below: the nearest above
  EXPECT_EQ(doc.current_layer, 3);
  EXPECT_EQ(lists.layer_selected, (U8{0, 0, 0, 1, 0}));
  EXPECT_EQ(debug_messages(), 0);
}

TEST_F(ListEvents, ALayerWithoutRecordsDisablesTheDataControls) {
  // Edits keep a layer's Z move, so only a document can hold such a layer.
  doc.layer(2).g_count = 0;
  ClickLayer(1);
  ClickLayer(2);
  EXPECT_TRUE(lists.data_selected.empty());
  EXPECT_TRUE(lists.row_to_g.empty());
  EXPECT_FALSE(button(ListId::data));
  EXPECT_FALSE(button(ListId::select));
  EXPECT_FALSE(slider(SliderId::data).enabled);
  ClickLayer(3);
  EXPECT_TRUE(button(ListId::data));
  EXPECT_TRUE(slider(SliderId::data).enabled);
}

TEST_F(ListEvents, TheLayerSliderAddsLayersOnlyWithRangeScroll) {
  LayerSliderChange(1, false);
  LayerSliderChange(2, true);
  LayerSliderChange(3, true);
  EXPECT_EQ(lists.layer_selected, (U8{0, 1, 1, 1, 0}));
  EXPECT_EQ(doc.current_layer, 3);
  LayerSliderChange(4, false);
  EXPECT_EQ(lists.layer_selected, (U8{0, 0, 0, 0, 1}));
  EXPECT_EQ(doc.current_layer, 4);
}

TEST_F(ListEvents, TheDataSliderAddsRowsOnlyWithRangeScroll) {
  ClickLayer(1);
  DataViewCommand(0);
  DataSliderChange(1, true);
  DataSliderChange(0, true);
  EXPECT_EQ(lists.data_selected, (U8{1, 1}));
  EXPECT_EQ(lists.data_caret, 0);
  DataSliderChange(1, false);
  EXPECT_EQ(lists.data_selected, (U8{0, 1}));
  EXPECT_EQ(lists.row_to_g, (std::vector<int32_t>{1}));
  EXPECT_EQ(ui->status[3], "Data 1");
}

TEST_F(ListEvents, LayerViewCommands) {
  LayerViewCommand(2);  // All
  EXPECT_EQ(lists.layer_selected, (U8{1, 1, 1, 1, 1}));
  ClickLayer(3, true);
  ClickLayer(3, true);
  EXPECT_EQ(doc.current_layer, 3);
  LayerViewCommand(0);  // Single
  EXPECT_EQ(lists.layer_selected, (U8{0, 0, 0, 1, 0}));

  LayerViewCommand(2);
  LayerViewCommand(1);  // Invert with every layer on view: layer 0 alone
  EXPECT_EQ(lists.layer_selected, (U8{1, 0, 0, 0, 0}));
  EXPECT_EQ(doc.current_layer, 0);
  EXPECT_EQ(lists.data_selected.size(), static_cast<size_t>(doc.layer(0).g_count));

  ClearCurrentLayer();
  LayerViewCommand(0);  // no current layer: layer 1
  EXPECT_EQ(doc.current_layer, 1);
  EXPECT_EQ(lists.layer_selected, (U8{0, 1, 0, 0, 0}));
  EXPECT_EQ(lists.data_selected, (U8{1, 1}));
}

TEST_F(ListEvents, ViewNoneThenAClickPutsOneRowOnView) {
  ClickLayer(1);
  DataViewCommand(0);
  EXPECT_FALSE(DataViewItemsEnabled()[0]);
  ClickData(1, true);
  EXPECT_EQ(lists.data_selected, (U8{0, 1}));
  EXPECT_EQ(lists.row_to_g, (std::vector<int32_t>{1}));
  EXPECT_EQ(ui->status[3], "Data 1");
  EXPECT_EQ(ui->status[1], DataLineText(1));
}

TEST_F(ListEvents, AMarkTakenOffViewComesBackWithoutADebugMessage) {
  ClickLayer(1);
  lists.select_line = {0, 1};
  lists.select_caret = 1;
  SelectionListClick();
  EXPECT_EQ(ui->status[1], SelectLineText(1));
  ClickData(0);  // row 1 off view
  ClickData(0, true);
  EXPECT_TRUE(lists.row_to_g.empty());
  SelectCommand(2);
  DataViewCommand(4);
  EXPECT_EQ(lists.select_line, (U8{0, 1}));
  EXPECT_EQ(lists.select_flag, (U8{0, 1}));
  EXPECT_EQ(debug_messages(), 0);
}

TEST_F(ListEvents, MenuItemsEnabledWhenTheyChangeSomething) {
  using B3 = std::array<bool, 3>;
  EXPECT_EQ(LayerViewItemsEnabled(), (B3{false, true, true}));
  LayerViewCommand(2);
  EXPECT_EQ(LayerViewItemsEnabled(), (B3{true, true, false}));
  EXPECT_TRUE(LayerMenuAllowed());

  ClickLayer(1);
  EXPECT_EQ(DataViewItemsEnabled(), (std::array<bool, 5>{true, true, false, true, false}));
  EXPECT_EQ(SelectItemsEnabled(), (B3{false, true, true}));
  SelectCommand(2);
  EXPECT_EQ(SelectItemsEnabled(), (B3{true, true, false}));
  EXPECT_TRUE(DataViewItemsEnabled()[2]);
}

TEST_F(ListEvents, RightClicksOpenTheMarkedDataMenu) {
  ClickLayer(1);
  SelectListRightClick();  // nothing marked
  EXPECT_TRUE(ui->menus_shown.empty());
  DataListRightClick();
  ASSERT_EQ(ui->menus_shown.size(), 1u);
  EXPECT_EQ(lists.select_flag, (U8{1, 1}));
  EXPECT_EQ(ui->status[1], "2 vertices selected");
  EXPECT_TRUE(ui->menu_item_enabled(PopupMenu::select_edit, 3));

  DataViewCommand(0);
  DataListRightClick();
  EXPECT_EQ(ui->menus_shown.size(), 1u);
}
