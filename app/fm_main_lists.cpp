// The layer, data and selection lists with their sliders, buttons and
// pop-up menus. The lists' logic decides; this file only connects it.
#include <QMenu>
#include <QPushButton>
#include <QSlider>

#include "app/fm_main.h"
#include "controls/list_box.h"
#include "editing/commands.h"
#include "editing/list_events.h"
#include "editing/list_state.h"
#include "view/draw_area.h"
#include "view/korvexed_graphic.h"

namespace korvexed {

namespace {

// Settings that the sliders follow.
constexpr int layer_range_scroll = 0, data_range_scroll = 1;
// The one command of the layer editing menu that is not inert.
constexpr int delete_layers_item = 3;

// Opens a view menu below its button with the items that apply now.
template <size_t N>
void PopUpBelow(QMenu* menu, const std::vector<QAction*>& items, const std::array<bool, N>& enabled, QWidget* button) {
  for (size_t i = 0; i < N; ++i) items[i]->setEnabled(enabled[i]);
  menu->exec(button->mapToGlobal(QPoint(0, button->height())));
}

}  // namespace

void FmMain::ConnectLists() {
  platform_.set_list(ListId::layer, lstLayer_, cmdLayer_);
  platform_.set_list(ListId::data, lstData_, cmdData_);
  platform_.set_list(ListId::select, lstSelect_, cmdSelect_);
  platform_.set_slider(SliderId::layer, scrLayer_);
  platform_.set_slider(SliderId::data, scrData_);
  lstLayer_->set_source(&lists.layer_selected, &lists.layer_caret, LayerLineText);
  lstData_->set_source(&lists.data_selected, &lists.data_caret, DataLineText);
  lstSelect_->set_source(&lists.select_line, &lists.select_caret, SelectLineText);

  connect(lstLayer_, &ListBox::clicked, this, [] { LayerClick(); });
  connect(lstData_, &ListBox::clicked, this, [] { DataClick(); });
  connect(lstSelect_, &ListBox::clicked, this, [] { SelectionListClick(); });
  connect(lstLayer_, &ListBox::right_clicked, this, [this](QPoint at) {
    if (LayerMenuAllowed()) popLstLayer_->exec(at);
  });
  connect(lstData_, &ListBox::right_clicked, this, [] { DataListRightClick(); });
  connect(lstSelect_, &ListBox::right_clicked, this, [] { SelectListRightClick(); });

  connect(cmdLayer_, &QPushButton::clicked, this,
          [this] { PopUpBelow(mnLstLayer_, poLstlayer_, LayerViewItemsEnabled(), cmdLayer_); });
  connect(cmdData_, &QPushButton::clicked, this,
          [this] { PopUpBelow(mnLstData_, poLstData_, DataViewItemsEnabled(), cmdData_); });
  connect(cmdSelect_, &QPushButton::clicked, this,
          [this] { PopUpBelow(mnLstSelect_, poLstSelect_, SelectItemsEnabled(), cmdSelect_); });

  // A move of the thumb, a click on the track and the "+" and "-" keys all
  // change the value; setting it from the logic does not.
  connect(scrLayer_, &QSlider::valueChanged, this,
          [this](int value) { LayerSliderChange(value, setting(layer_range_scroll)); });
  connect(scrData_, &QSlider::valueChanged, this,
          [this](int value) { DataSliderChange(value, setting(data_range_scroll)); });
  // The keyboard never drives the sliders: their focus goes to the drawing.
  for (QSlider* slider : {scrLayer_, scrData_}) {
    slider->setFocusPolicy(Qt::ClickFocus);
    slider->setFocusProxy(picDraw_);
  }
}

void FmMain::poLstlayer_Click(int index) { LayerViewCommand(index); }
void FmMain::poLstData_Click(int index) { DataViewCommand(index); }
void FmMain::poLstSelect_Click(int index) { SelectCommand(index); }

void FmMain::poPopLayer_Click(int index) {
  if (index != delete_layers_item) return;
  // The layer list is not drawn while its layers go (a message may show
  // on the way); it is drawn again once they are gone.
  lstLayer_->HideListBox();
  const bool deleted = DeleteSelectedLayersCommand();
  lstLayer_->ShowListBox();
  if (deleted) RedrawView();
}

}  // namespace korvexed
